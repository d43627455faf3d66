#include "seeding/seed_store.h"

#include <unordered_map>

namespace tarvex::seeding {
namespace {

using database::Binding;
using database::BoundFields;
using database::Meet;

struct Source {
  jet::Table* table;
  BoundFields<SeedRow> fields;
  std::string_view by_event;
};

Expected<Source> Open(const Meet& meet, const setup::Event& event, setup::Round round) {
  static const std::vector<Binding<SeedRow>> common = {
      {"ConvSeed_time", &SeedRow::mark}, {"Seed_place", &SeedRow::seed_place},
      {"Scr_stat", &SeedRow::scratched}, {"Alt_stat", &SeedRow::alternate},
      {"Dec_stat", &SeedRow::dec_stat},  {"*exh", &SeedRow::exh},
      {"*heat", &SeedRow::heat},         {"*lane", &SeedRow::lane},
      {"un*heat", &SeedRow::old_heat},   {"un*lane", &SeedRow::old_lane},
  };
  static const std::vector<Binding<SeedRow>> entry_fields = [] {
    auto fields = common;
    fields.push_back({"Ath_no", &SeedRow::id});
    return fields;
  }();
  static const std::vector<Binding<SeedRow>> relay_fields = [] {
    auto fields = common;
    fields.push_back({"Relay_no", &SeedRow::id});
    fields.push_back({"Team_no", &SeedRow::team_no});
    fields.push_back({"Team_ltr", &SeedRow::team_ltr});
    fields.push_back({"Relay_Compno", &SeedRow::comp_no});
    return fields;
  }();
  const bool is_relay = event.ind_rel == 'R';
  TRY_ASSIGN(jet::Table * table, meet.Table(is_relay ? "Relay" : "Entry"));
  TRY_ASSIGN(auto fields, BoundFields<SeedRow>::Of(*table, is_relay ? relay_fields : entry_fields,
                                                   setup::FieldPrefix(round)));
  return Source{table, std::move(fields), is_relay ? "relevtptr" : "entevtptr"};
}

// The rows of a lane table; of one event only when it is the table of custom lanes.
Expected<LaneTable> LoadLaneTable(const Meet& meet, std::string_view name, int event_ptr) {
  TRY_ASSIGN(const jet::Table* table, meet.Table(name));
  const int lanes = table->Column("tot_lanes");
  const int event = table->Column("event_ptr");
  std::array<int, kMostLanes> order;
  for (int k = 0; k < kMostLanes; ++k) {
    const std::string field = (k + 1 < 10 ? "order_0" : "order_") + std::to_string(k + 1);
    order[static_cast<size_t>(k)] = table->Column(field);
  }
  LaneTable result;
  jet::TableScan scan = table->Scan();
  while (true) {
    TRY_ASSIGN(const bool more, scan.Next());
    if (!more) return result;
    const jet::Record& record = scan.record();
    if (event >= 0 && record.Long(event) != event_ptr) continue;
    const int count = lanes >= 0 ? record.Long(lanes) : 0;
    if (count < 1 || count > kMostLanes) continue;
    LaneRow row = {};
    for (size_t k = 0; k < order.size(); ++k) row[k] = order[k] >= 0 ? record.Long(order[k]) : 0;
    TRY(record.status());
    result.rows[static_cast<size_t>(count)] = row;
  }
}

Expected<WaterfallTable> LoadWaterfall(const Meet& meet) {
  TRY_ASSIGN(const jet::Table* table, meet.Table("Waterfall"));
  const int row_field = table->Column("Pos_no");
  const int position_field = table->Column("Rank_no");
  if (row_field < 0 || position_field < 0) return Status{Fault::NotFound, "table Waterfall lacks a field"};
  WaterfallTable waterfall;
  jet::TableScan scan = table->Scan();
  while (true) {
    TRY_ASSIGN(const bool more, scan.Next());
    if (!more) return waterfall;
    // Row k holds the start position of the k-th ranked entry.
    const int rank = scan.record().Long(row_field);
    if (rank >= 1 && rank <= kMostPositions) {
      waterfall.position[static_cast<size_t>(rank - 1)] = scan.record().Long(position_field);
    }
    TRY(scan.record().status());
  }
}

}  // namespace

Expected<std::vector<StoredSeedRow>> LoadSeedRows(const Meet& meet, const setup::Event& event,
                                                  setup::Round round) {
  TRY_ASSIGN(const Source source, Open(meet, event, round));
  return database::LoadBy(*source.table, source.fields, source.by_event, event.event_ptr);
}

std::vector<Seed> EligibleSeeds(const Meet& meet, const setup::Event& event, const setup::Roster& roster,
                                std::span<const StoredSeedRow> rows) {
  std::vector<Seed> seeds;
  for (const StoredSeedRow& stored : rows) {
    const SeedRow& row = stored.row;
    const setup::Athlete* athlete = event.ind_rel == 'R' ? nullptr : roster.athlete(row.id);
    const setup::Team* team = event.ind_rel == 'R' ? roster.team(row.team_no) : roster.team_of(athlete);
    EntryStatus status;
    status.scratched = row.scratched;
    status.alternate = row.alternate;
    status.dec_stat = row.dec_stat;
    status.exh = row.exh;
    status.ath_stat = athlete ? athlete->stat : ' ';
    status.team_stat = team ? team->stat : ' ';
    if (!IsEligible(status, meet.settings().use_declarationmethod)) continue;
    Seed seed;
    seed.id = row.id;
    seed.mark = row.mark;
    seed.seed_place = row.seed_place;
    seed.exhibition = IsExhibition(status, meet.settings().foreign_treatasexhibition);
    seed.comp_no = athlete ? athlete->comp_no : row.comp_no;
    seed.name = athlete ? athlete->last_name : team ? team->name : "";
    seed.second_name = athlete ? athlete->first_name : row.team_ltr;
    seeds.push_back(std::move(seed));
  }
  return seeds;
}

Status SavePlaces(jet::Transaction& write, const Meet& meet, const setup::Event& event, setup::Round round,
                  std::span<const StoredSeedRow> rows, std::span<const Place> places) {
  TRY_ASSIGN(const Source source, Open(meet, event, round));
  std::unordered_map<int, Place> by_id;
  for (const Place& place : places) by_id.emplace(place.id, place);
  for (const StoredSeedRow& stored : rows) {
    SeedRow row = stored.row;
    row.old_heat = row.heat;
    row.old_lane = row.lane;
    const auto found = by_id.find(row.id);
    row.heat = found == by_id.end() ? 0 : found->second.heat;
    row.lane = found == by_id.end() ? 0 : found->second.lane;
    TRY(database::SaveChanged(write, *source.table, source.fields, stored, row));
  }
  return Ok();
}

Expected<LaneTables> LoadLaneTables(const Meet& meet, int event_ptr) {
  LaneTables tables;
  TRY_ASSIGN(tables.std_lanes, LoadLaneTable(meet, "StdLanes", 0));
  TRY_ASSIGN(tables.std_alleys, LoadLaneTable(meet, "StdAlleys", 0));
  TRY_ASSIGN(tables.custom_lanes, LoadLaneTable(meet, "CustomLanes", event_ptr));
  TRY_ASSIGN(tables.waterfall, LoadWaterfall(meet));
  return tables;
}

Expected<std::string> LockedBySomebodyElse(const Meet& meet, const jet::RowId& event_row) {
  TRY_ASSIGN(const jet::Table* table, meet.Table("Event"));
  const int is_locked = table->Column("Is_locked");
  const int locked_by = table->Column("Locked_by");
  if (is_locked < 0 || locked_by < 0) return Status{Fault::NotFound, "table Event lacks its lock fields"};
  TRY_ASSIGN(const jet::Record record, table->Get(event_row));
  const std::string holder = database::LoadText(record, locked_by);
  TRY(record.status());
  if (!record.Boolean(is_locked) || holder == meet.session().user) return std::string();
  return holder;
}

}  // namespace tarvex::seeding
