#pragma once

#include <string>
#include <vector>

#include "database/meet.h"
#include "running/round_store.h"

namespace tarvex::running {

// One competitor of a round as lists show it.
struct SheetLine {
  int lane = 0;
  std::string lane_text;  // "4", "2B"
  int comp_no = 0;
  int id = 0;  // ath_no, or relay_no of a relay
  std::string name;
  std::string team_abbr;
  std::string team_name;
  std::string schl_yr;
  int age = 0;
  std::string seed_text;
  float mark = 0;
  std::string mark_text;  // the mark or the word for its status
  char stat = ' ';
  bool scratched = false;
  int place = 0;
  int heatplace = 0;
  int jdplace = 0;
  int jdheatplace = 0;
  float points = 0;
  std::string points_text;  // empty for none
  std::string wind;
  std::string note;
  int heat = 0;
  std::vector<std::string> runners;  // of a relay, by leg

  int effective_place() const { return jdplace > 0 ? jdplace : place; }
};

struct SheetHeat {
  int heat = 0;
  std::string wind;
  std::vector<SheetLine> lanes;  // by lane
};

// A round of one event, heat by heat.
struct RoundSheet {
  setup::Event event;
  setup::Round round = setup::Round::Finals;
  std::string name;
  bool is_relay = false;
  bool is_field = false;
  std::vector<SheetHeat> heats;

  // All lines in the order of a results list: by effective place, the others behind.
  std::vector<SheetLine> ByPlace() const;
};

Expected<RoundSheet> LoadSheet(const database::Meet& meet, const setup::StoredEvent& event,
                               setup::Round round, const setup::Roster& roster);

}  // namespace tarvex::running
