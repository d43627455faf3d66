#pragma once

#include <string>
#include <vector>

#include "database/meet.h"
#include "database/rows.h"
#include "running/places.h"
#include "running/result.h"
#include "setup/event_store.h"
#include "setup/roster_store.h"
#include "setup/rounds.h"

namespace tarvex::running {

// An entry or relay with the fields of one round, as the tables have them.
struct RoundRow {
  int id = 0;       // ath_no or relay_no
  int team_no = 0;  // of a relay; an entry's team is its athlete's
  char team_ltr = ' ';
  int relay_compno = 0;
  char rel_sex = ' ';
  int age = 0;  // chosen for the entry, or the relay's; 0: the athlete's
  int div_no = 0;
  char actseed_course = ' ';
  float actualseed_time = 0;
  float convseed_time = 0;
  char spec_stat = ' ';
  bool scratched = false;

  int heat = 0;
  int lane = 0;
  float mark = 0;
  char course = ' ';
  char stat = ' ';
  char exh = ' ';
  bool hand = false;
  bool video = false;
  std::string wind;
  std::string note;
  int heatplace = 0;
  int jdheatplace = 0;
  int place = 0;
  int jdplace = 0;
  int ptsplace = 0;  // finals only
  float ev_score = 0;
  float jdev_score = 0;
};
using StoredRoundRow = database::Stored<RoundRow>;

// A round of an event with everything that its rules and lists need.
struct RoundData {
  setup::StoredEvent event;
  setup::Round round = setup::Round::Finals;
  std::vector<StoredRoundRow> stored;  // as read
  std::vector<RoundRow> rows;          // to be changed; same order
  std::vector<setup::AgeGroup> age_groups;

  bool is_relay() const { return event.row.ind_rel == 'R'; }
  bool is_last_round() const { return round == setup::Round::Finals; }
};

Expected<RoundData> LoadRound(const database::Meet& meet, const setup::StoredEvent& event,
                              setup::Round round);
// Writes the rows that changed, and the event's status when `event_stat` differs from the stored one.
Status SaveRound(jet::Transaction& write, const database::Meet& meet, const RoundData& data,
                 const setup::Event& event);

// The results for the rules, in the order of the rows. Results short of the scoring standard are marked when
// the meet scores only those that meet one.
Expected<std::vector<Result>> ResultsOf(const database::Meet& meet, const RoundData& data,
                                        const setup::Roster& roster);
// Takes places and points over into the rows.
void TakeOver(const std::vector<Result>& results, RoundData& data);

PlaceRules PlaceRulesOf(const database::MeetSettings& settings, const setup::Event& event,
                        setup::Round round);

// The wind of each heat of a round, as stored.
struct HeatWind {
  int heat = 0;
  std::string wind;
};
Expected<std::vector<HeatWind>> LoadWinds(const database::Meet& meet, int event_ptr, setup::Round round);
Status SaveWind(jet::Transaction& write, const database::Meet& meet, int event_ptr, setup::Round round,
                int heat, const std::string& wind);
// Takes the readings of all heats of a round away.
Status DeleteWinds(jet::Transaction& write, const database::Meet& meet, int event_ptr, setup::Round round);

// Longest wind reading, in characters, that a heat's row holds.
inline constexpr size_t kLongestHeatWind = 4;
inline constexpr size_t kLongestResultWind = 5;

}  // namespace tarvex::running
