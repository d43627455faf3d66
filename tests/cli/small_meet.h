#pragma once

#include <string>
#include <vector>

#include "tests/cli/command_run.h"

namespace tarvex::cli {

// Three teams in a dash of ten, a long jump and a relay.
inline constexpr std::string_view kSmallMeet =
    "event_no,event_sex,distance,kind,rounds,last_name,first_name,ath_sex,birth_date,comp_no,team_abbr,"
    "team_name,seed_mark,relay_ltr,leg_1,leg_2,leg_3,leg_4\n"
    "1,M,100,Dash,1,Adams,Al,M,2006-03-09,11,CAN,Canada,10.50,,,,,\n"
    "1,M,100,Dash,1,Baker,Bo,M,,12,CAN,Canada,10.70,,,,,\n"
    "1,M,100,Dash,1,Clark,Cy,M,,13,CAN,Canada,10.90,,,,,\n"
    "1,M,100,Dash,1,Dietz,Dan,M,,21,GER,Germany,10.60,,,,,\n"
    "1,M,100,Dash,1,Ernst,Émil,M,,22,GER,Germany,10.80,,,,,\n"
    "1,M,100,Dash,1,Frei,Finn,M,,23,GER,Germany,11.00,,,,,\n"
    "1,M,100,Dash,1,Gara,Gil,M,,31,ITA,Italy,10.65,,,,,\n"
    "1,M,100,Dash,1,Hoss,Hal,M,,32,ITA,Italy,10.95,,,,,\n"
    "1,M,100,Dash,1,Iori,Ivo,M,,33,ITA,Italy,11.20,,,,,\n"
    "1,M,100,Dash,1,Jost,Jan,M,,34,ITA,Italy,,,,,,\n"
    "2,M,,Long Jump,1,Adams,Al,M,,11,CAN,Canada,7.20,,,,,\n"
    "2,M,,Long Jump,1,Ernst,Émil,M,,22,GER,Germany,6.85,,,,,\n"
    "2,M,,Long Jump,1,Gara,Gil,M,,31,ITA,Italy,7.05,,,,,\n"
    "3,M,400,Relay,1,,,,,,CAN,Canada,40.50,A,11,12,13,\"Kane, Ken\"\n"
    "3,M,400,Relay,1,,,,,,GER,Germany,41.00,A,21,22,23,\"Lutz, Lars\"\n"
    "3,M,400,Relay,1,,,,,,ITA,Italy,40.80,A,31,32,33,34\n";

// By heat and lane, by number and by name; a tie for the first place, a hand time, three without a mark.
inline constexpr std::string_view kDashResults =
    "heat,lane,comp_no,last_name,first_name,team_abbr,mark,wind\n"
    "1,4,,,,,10.45,+1.2\n"
    ",,21,,,,10.45,\n"
    ",,,Gara,Gil,ITA,10.60,\n"
    "1,6,,,,,DNF,\n"
    "1,2,,,,,10.5H,\n"
    "2,4,,,,,10.80,-0.3\n"
    "2,5,,,,,10.90,\n"
    "2,3,,,,,DQ,\n"
    ",,33,,,,11.15,\n"
    "2,2,,,,,NS,\n";
inline constexpr std::string_view kJumpResults =
    "comp_no;mark;wind\r\n11;7.31;2.4\r\n22;7.02;0.0\r\n31;FOUL;\r\n";
inline constexpr std::string_view kRelayResults =
    "team_abbr,relay_ltr,mark\nCAN,A,40.61\nGER,A,DQ\nITA,A,41.02\n";

class SmallMeetTest : public CommandTest {
 protected:
  void Import(const std::string& meet) const {
    Done({"create", meet});
    Done({"import", meet, File("entries.csv", kSmallMeet)});
  }
  void Seed(const std::string& meet) const { Done({"seed", meet, "--all", "--draw-seed", "7"}); }
  void EnterResults(const std::string& meet) const {
    Done({"results", meet, "1", "--enter", File("dash.csv", kDashResults)});
    Done({"results", meet, "2", "--enter", File("jump.csv", kJumpResults)});
    Done({"results", meet, "3", "--enter", File("relay.csv", kRelayResults)});
  }

  const std::string meet_ = Path("meet.mdb");
};

}  // namespace tarvex::cli
