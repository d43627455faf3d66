#pragma once

#include <string>

namespace tarvex::setup {

struct Team {
  int team_no = 0;
  std::string name;
  std::string short_name;
  std::string abbr;
  std::string alt_abbr;
  char stat = ' ';  // 'X' exhibition team
  int division = 0;
  int region = 0;
  bool no_points = false;
  std::string guid;
};

struct Athlete {
  int ath_no = 0;
  std::string last_name;
  std::string first_name;
  std::string initial;
  std::string pref_name;
  char sex = ' ';         // 'M' or 'F'
  double birth_date = 0;  // days since 1899-12-30; 0: not known
  int team_no = 0;
  std::string schl_yr;
  int age = 0;
  std::string reg_no;
  char stat = ' ';  // 'X' exhibition, '*' foreign
  int div_no = 0;
  int comp_no = 0;  // 0: none
  std::string guid;
};

// What an entry of an athlete and a relay have in common: the seed mark and the flags before any round.
struct EntryCommon {
  int event_ptr = 0;
  char actseed_course = ' ';
  float actualseed_time = 0;  // as typed, in the unit actseed_course; 0: none
  char convseed_course = ' ';
  float convseed_time = 0;  // in the event's unit
  bool hand_time = false;
  bool video_time = false;
  int seed_place = 0;
  bool scr_stat = false;
  char spec_stat = ' ';
  char dec_stat = ' ';
  bool alt_stat = false;
  int div_no = 0;
  std::string entry_note;
  std::string conv_ltr;
};

struct Entry : EntryCommon {
  int ath_no = 0;
  int team_age = 0;
};

struct Relay : EntryCommon {
  int relay_no = 0;
  int team_no = 0;
  std::string team_ltr;
  int rel_age = 0;
  char rel_sex = ' ';  // 'M', 'F', 'X'
  int relay_compno = 0;
};

// The letter that a relay goes by: a team's first relay may have none in the file.
inline std::string RelayLetter(const std::string& team_ltr) {
  return team_ltr.empty() ? "A" : team_ltr;
}

// One runner of a relay.
struct RelayName {
  int event_ptr = 0;
  int team_no = 0;
  std::string team_ltr;
  int ath_no = 0;
  int pos_no = 0;  // 1 to 8
  char event_round = 'F';
  int relay_no = 0;
};

}  // namespace tarvex::setup
