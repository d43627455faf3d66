#pragma once

#include <span>
#include <string>
#include <vector>

#include "database/meet.h"
#include "database/rows.h"
#include "seeding/eligible.h"
#include "seeding/lanes.h"
#include "seeding/seed.h"
#include "setup/event.h"
#include "setup/roster_store.h"
#include "setup/rounds.h"

namespace tarvex::seeding {

// What seeding reads of an entry or relay, and where the round has put it.
struct SeedRow {
  int id = 0;  // ath_no or relay_no
  int team_no = 0;
  std::string team_ltr;
  int comp_no = 0;
  float mark = 0;
  int seed_place = 0;
  bool scratched = false;
  bool alternate = false;
  char dec_stat = ' ';
  char exh = ' ';  // of the round
  int heat = 0;
  int lane = 0;
  int old_heat = 0;  // before the last seeding of the round
  int old_lane = 0;
};
using StoredSeedRow = database::Stored<SeedRow>;

// All entries or relays of an event.
Expected<std::vector<StoredSeedRow>> LoadSeedRows(const database::Meet& meet, const setup::Event& event,
                                                  setup::Round round);

// The seeds that take part in a first round, with names, exhibition and competitor numbers from the roster.
std::vector<Seed> EligibleSeeds(const database::Meet& meet, const setup::Event& event,
                                const setup::Roster& roster, std::span<const StoredSeedRow> rows);

// Gives every row of the event its place, and 0 to those that have none. The places before are kept in the
// round's second pair of fields. Marks, statuses and judges' places stay.
Status SavePlaces(jet::Transaction& write, const database::Meet& meet, const setup::Event& event,
                  setup::Round round, std::span<const StoredSeedRow> rows, std::span<const Place> places);

// The lane tables of the meet, with the custom lanes of one event.
Expected<LaneTables> LoadLaneTables(const database::Meet& meet, int event_ptr);

// Who holds the event's lock; empty when nobody else does.
Expected<std::string> LockedBySomebodyElse(const database::Meet& meet, const jet::RowId& event_row);

}  // namespace tarvex::seeding
