#include "database/upgrade.h"

#include <fmt/format.h>

#include <set>

#include "base/text.h"
#include "database/identifier.h"
#include "database/messages.h"
#include "database/schema.h"
#include "database/starting_rows.h"

namespace tarvex::database {
namespace {

struct ScoringDefault {
  std::string_view field;
  int number;
};

constexpr std::string_view kPenaltyPoints = "xccpenalty_points";
constexpr ScoringDefault kScoringDefaults[] = {
    {"xccminimum_onteam", 5},        {"xccmaxscorers_perteam", 5}, {"xccnumberdisplacers_perteam", 2},
    {kPenaltyPoints, 100},           {"xrrnumber_teamscorers", 3}, {"fldrelnumber_teamscorers", 3},
    {"runrelnumber_teamscorers", 3},
};

Expected<std::vector<jet::RowId>> RowsWithoutText(const jet::Table& table, int column) {
  std::vector<jet::RowId> rows;
  jet::TableScan scan = table.Scan();
  while (true) {
    TRY_ASSIGN(const bool more, scan.Next());
    if (!more) return rows;
    const bool empty = Trim(scan.record().Text(column)).empty();
    TRY(scan.record().status());
    if (empty) rows.push_back(scan.record().id());
  }
}

}  // namespace

Expected<jet::Transaction*> Upgrade::Write() {
  if (!write_) {
    TRY_ASSIGN(write_, file_.Begin({"upgrade", session_.user}, session_.now));
  }
  return write_.get();
}

Status Upgrade::AddMissingTables() {
  TRY_ASSIGN(const auto names, file_.TableNames());
  std::set<std::string> present;
  for (const std::string& name : names) present.insert(tarvex::Upper(name));
  for (const std::string_view name : TablesToCheck()) {
    if (present.contains(std::string(name))) continue;
    const SchemaTable& schema = *FindSchemaTable(name);
    TRY_ASSIGN(jet::Transaction * write, Write());
    TRY_ASSIGN(jet::Table * table, write->CreateTable(SpecOf(schema, Made::AtFirstOpening)));
    TRY(InsertStartingRows(*write, *table, session_));
    changes_.push_back(fmt::format("table {} added", schema.name));
  }
  return Ok();
}

Status Upgrade::AddLateIndexes() {
  for (const SchemaTable& schema : Schema()) {
    for (const SchemaIndex& index : schema.indexes) {
      if (index.made != Made::AtFirstOpening) continue;
      TRY_ASSIGN(jet::Table * table, file_.FindTable(schema.name));
      if (table->Index(index.name) >= 0) continue;
      TRY_ASSIGN(jet::Transaction * write, Write());
      TRY(write->CreateIndex(*table, SpecOf(index)));
      changes_.push_back(fmt::format("index {} of {} added", index.name, schema.name));
    }
  }
  return Ok();
}

Status Upgrade::AddIdentifiers(UserInterface& user) {
  user.ShowStatus(CheckingAthletes());
  TRY(AddIdentifiersTo("Athlete", "athGUID_strg"));
  user.ShowStatus(CheckingTeams());
  return AddIdentifiersTo("Team", "TeamGUID_strg");
}

Status Upgrade::AddIdentifiersTo(std::string_view table_name, std::string_view field) {
  TRY_ASSIGN(jet::Table * table, file_.FindTable(table_name));
  const int column = table->Column(field);
  if (column < 0) return Ok();
  TRY_ASSIGN(const auto rows, RowsWithoutText(*table, column));
  if (rows.empty()) return Ok();
  TRY_ASSIGN(jet::Transaction * write, Write());
  for (const jet::RowId row : rows) {
    const jet::FieldValue identifier{column, NewIdentifier(session_.random_bits)};
    TRY(write->Update(*table, row, {&identifier, 1}));
  }
  changes_.push_back(fmt::format("identifiers added to {}: {}", table_name, rows.size()));
  return Ok();
}

Status Upgrade::SetScoringDefaults() {
  TRY_ASSIGN(jet::Table * table, file_.FindTable("Meet"));
  jet::TableScan scan = table->Scan();
  TRY_ASSIGN(const bool found, scan.Next());
  if (!found) return Ok();
  const jet::Record& row = scan.record();
  const int last_plus_one = table->Column("xccPenaltyPts_LastPlusOne");
  const bool counts_penalty = last_plus_one >= 0 && row.Boolean(last_plus_one);
  std::vector<jet::FieldValue> values;
  for (const ScoringDefault& setting : kScoringDefaults) {
    const int column = table->Column(setting.field);
    if (column < 0 || row.Long(column) != 0 || (setting.field == kPenaltyPoints && counts_penalty)) continue;
    jet::FieldValue& value = values.emplace_back();
    value.column = column;
    value.value = setting.number;
    changes_.push_back(fmt::format("setting {} set to {}", setting.field, setting.number));
  }
  TRY(row.status());
  if (values.empty()) return Ok();
  TRY_ASSIGN(jet::Transaction * write, Write());
  return write->Update(*table, row.id(), values);
}

Status Upgrade::Commit() {
  return write_ ? write_->Commit() : Ok();
}

}  // namespace tarvex::database
