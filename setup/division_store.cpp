#include "setup/division_store.h"

#include <algorithm>

#include "database/date.h"
#include "marks/settings.h"

namespace tarvex::setup {
namespace {

using database::Binding;

template <class Member>
Binding<DivisionRow> Field(std::string_view name, Member Division::*member) {
  return {name, static_cast<Member DivisionRow::*>(member)};
}

}  // namespace

std::span<const Binding<DivisionRow>> DivisionFields() {
  static const std::vector<Binding<DivisionRow>> fields = {
      Field("Div_no", &Division::div_no),
      Field("Div_abbr", &Division::div_abbr),
      Field("Div_name", &Division::div_name),
      Field("low_age", &Division::low_age),
      Field("high_age", &Division::high_age),
      Field("low_yeardate", &Division::low_yeardate),
      Field("high_yeardate", &Division::high_yeardate),
      {"beg_date", &DivisionRow::beg_date},
      {"end_date", &DivisionRow::end_date},
      Field("max_entries", &Division::max_entries),
  };
  return fields;
}

Expected<DivisionTable> Divisions(const database::Meet& meet) {
  TRY_ASSIGN(jet::Table * table, meet.Table("Divisions"));
  TRY_ASSIGN(auto fields, database::BoundFields<DivisionRow>::Of(*table, DivisionFields()));
  return DivisionTable{table, std::move(fields)};
}

Expected<std::vector<StoredDivision>> LoadDivisions(const database::Meet& meet) {
  TRY_ASSIGN(const DivisionTable table, Divisions(meet));
  TRY_ASSIGN(auto rows, database::LoadAll(*table.table, table.fields));
  std::sort(rows.begin(), rows.end(),
            [](const StoredDivision& a, const StoredDivision& b) { return a.row.div_no < b.row.div_no; });
  return rows;
}

Expected<std::vector<DatedDivision>> LoadDatedDivisions(const database::Meet& meet) {
  TRY_ASSIGN(const auto rows, LoadDivisions(meet));
  std::vector<DatedDivision> dated;
  for (const StoredDivision& stored : rows)
    dated.push_back({stored.row, stored.row.beg_date, stored.row.end_date});
  return dated;
}

void SetBirthDates(DivisionRow& division, const database::MeetSettings& settings) {
  division.beg_date = division.end_date = 0;
  if (settings.Meet_start == 0) return;
  const auto day = [&](double given) { return database::DateOf(given != 0 ? given : settings.Meet_start); };
  const BirthDates dates =
      BirthRange(division, {day(settings.Meet_start), day(settings.Calc_date), day(settings.Meet_end)});
  division.beg_date = database::DaysOf(dates.oldest);
  division.end_date = database::DaysOf(dates.youngest);
}

MeetDefaults DefaultsOf(const database::MeetSettings& settings) {
  return {.meet_type = marks::MeetTypeLetter(settings.Meet_kind),
          .meet_class = settings.Meet_class,
          .num_lanes = settings.meet_numlanes,
          .course = settings.Meet_course == 2 ? 'E' : 'M'};
}

}  // namespace tarvex::setup
