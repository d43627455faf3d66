#include "setup/edit_division.h"

#include <charconv>

#include "setup/division_store.h"
#include "setup/messages.h"

namespace tarvex::setup {
namespace {

using database::Meet;

std::optional<int> NumberOf(std::string_view typed) {
  typed = Trim(typed);
  int number = 0;
  const auto [stop, error] = std::from_chars(typed.data(), typed.data() + typed.size(), number);
  const bool whole = error == std::errc() && stop == typed.data() + typed.size();
  return whole && number > 0 ? std::optional(number) : std::nullopt;
}

// The division's code as it stands with records and time standards.
Status RewriteCode(jet::Transaction& write, const Meet& meet, std::string_view old_code,
                   const std::string& code) {
  for (const std::string_view name : {"RecordsbyEvent", "TimeStd"}) {
    TRY_ASSIGN(jet::Table * table, meet.Table(name));
    const int column = table->Column("Div_abbr");
    if (column < 0) continue;
    std::vector<jet::RowId> rows;
    jet::TableScan scan = table->Scan();
    while (true) {
      TRY_ASSIGN(const bool more, scan.Next());
      if (!more) break;
      if (SameText(scan.record().Text(column), old_code)) rows.push_back(scan.record().id());
    }
    const jet::FieldValue value{column, code};
    for (const jet::RowId row : rows) TRY(write.Update(*table, row, std::span(&value, 1)));
  }
  return Ok();
}

std::vector<Division> Others(const std::vector<StoredDivision>& divisions, int div_no) {
  std::vector<Division> others;
  for (const StoredDivision& stored : divisions) {
    if (stored.row.div_no != div_no) others.push_back(stored.row);
  }
  return others;
}

Outcome Store(Meet& meet, const std::vector<StoredDivision>& divisions, const StoredDivision* stored,
              int div_no, std::span<const FieldText> fields) {
  if (const auto fixed = FirstGiven(fields, {"Div_no"})) return Refusal{FieldNotEditable(*fixed)};
  const auto table = Divisions(meet);
  if (!table.ok()) return table.status();
  auto values = database::ParseFields(*table->table, fields);
  if (const Refusal* refusal = std::get_if<Refusal>(&values)) return *refusal;
  DivisionRow division = stored ? stored->row : DivisionRow{};
  division.div_no = div_no;
  const auto& parsed = std::get<std::vector<jet::FieldValue>>(values);
  ApplyFields(*table->table, DivisionFields(), division, parsed);
  const DivisionRow given = division;
  const bool recalculate = !stored || IsGiven(fields, "low_age") || IsGiven(fields, "high_age") ||
                           IsGiven(fields, "low_yeardate") || IsGiven(fields, "high_yeardate");
  if (const auto failed = CheckDivision(division, Others(divisions, div_no))) return Refusal{*failed};
  if (division.low_age < 0) return Refusal{FieldInvalid("low_age")};
  if (recalculate) SetBirthDates(division, meet.settings());
  if (IsGiven(fields, "beg_date")) division.beg_date = given.beg_date;
  if (IsGiven(fields, "end_date")) division.end_date = given.end_date;
  return InOneTransaction(meet, "division", [&](jet::Transaction& write) -> Status {
    if (!stored) return InsertRow(write, *table->table, table->fields, division, {}).status();
    if (stored->row.div_abbr != division.div_abbr) {
      TRY(RewriteCode(write, meet, stored->row.div_abbr, division.div_abbr));
    }
    return UpdateRow(write, *table->table, table->fields, *stored, division, {});
  });
}

Outcome Delete(Meet& meet, const StoredDivision& stored, UserInterface& user) {
  const Expected<bool> used = HasRows(meet, "Event", "Div_no", stored.row.div_no);
  if (!used.ok()) return used.status();
  if (*used) return Refusal{DivisionInUse()};
  const auto table = Divisions(meet);
  if (!table.ok()) return table.status();
  const std::optional<Answer> answer = user.Ask(DeleteDivision(stored.row.div_abbr), Buttons::YesNo);
  if (!answer) return Unanswered{};
  if (*answer != Answer::Yes) return Refusal{NothingChanged()};
  return InOneTransaction(meet, "division",
                          [&](jet::Transaction& write) { return write.Delete(*table->table, stored.id); });
}

}  // namespace

Outcome EditDivision(Meet& meet, Edit edit, std::string_view number, std::span<const FieldText> fields,
                     UserInterface& user) {
  const std::optional<int> div_no = NumberOf(number);
  if (!div_no) return Refusal{UnreadableKey(number)};
  const auto divisions = LoadDivisions(meet);
  if (!divisions.ok()) return divisions.status();
  const auto stored = std::find_if(divisions->begin(), divisions->end(), [&](const StoredDivision& division) {
    return division.row.div_no == *div_no;
  });
  const bool exists = stored != divisions->end();
  if (edit == Edit::Add) {
    if (exists) return Refusal{ExistsAlready(number)};
    return Store(meet, *divisions, nullptr, *div_no, fields);
  }
  if (!exists) return Refusal{NotFound(number)};
  return edit == Edit::Delete ? Delete(meet, *stored, user)
                              : Store(meet, *divisions, &*stored, *div_no, fields);
}

}  // namespace tarvex::setup
