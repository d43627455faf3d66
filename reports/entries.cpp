#include "reports/entries.h"

#include <algorithm>
#include <unordered_map>

#include "base/decimal.h"
#include "reports/headings.h"
#include "reports/messages.h"
#include "seeding/seed_order.h"
#include "setup/event_kind.h"
#include "setup/event_name.h"
#include "setup/import_rows.h"

namespace tarvex::reports {
namespace {

using setup::ImportColumn;

std::string Key(ImportColumn column) {
  return std::string(setup::NameOf(column));
}
ImportColumn Leg(int leg) {
  return static_cast<ImportColumn>(static_cast<int>(ImportColumn::Leg1) + leg);
}

// Positions in `lines`, best seed first.
std::vector<size_t> SeedOrder(const EventEntries& entries, const EntryListStyle& style) {
  std::vector<seeding::Seed> seeds;
  std::unordered_map<int, size_t> position;
  for (size_t i = 0; i < entries.lines.size(); ++i) {
    const EntryLine& line = entries.lines[i];
    seeding::Seed seed;
    seed.id = line.id;
    seed.mark = line.mark;
    seed.exhibition = line.exhibition;
    seeds.push_back(std::move(seed));
    position[line.id] = i;
  }
  const bool greater_is_better = !setup::IsRunningEvent(entries.event);
  std::vector<size_t> order;
  for (const seeding::Seed& seed :
       seeding::BestFirst(std::move(seeds), {greater_is_better, style.exhibition_last})) {
    order.push_back(position.at(seed.id));
  }
  return order;
}

std::vector<Column> ColumnsOf(bool is_relay, const YearStyle& years) {
  std::vector<Column> columns = {
      {"", "", Align::Right, 4},
      {NumberColumn(), Key(ImportColumn::CompNo), Align::Right, 6},
      {is_relay ? TeamColumn() : NameColumn(), "", Align::Left, 30},
      {years.Heading(), "", Align::Right, 4},
      {TeamColumn(), Key(ImportColumn::TeamName), Align::Left, is_relay ? 0 : 26},
      {SeedColumn(), "", Align::Right, 12},
  };
  for (const ImportColumn column :
       {ImportColumn::LastName, ImportColumn::FirstName, ImportColumn::AthSex, ImportColumn::BirthDate,
        ImportColumn::Age, ImportColumn::SchlYr, ImportColumn::TeamAbbr, ImportColumn::Division,
        ImportColumn::SeedMark, ImportColumn::SeedUnit, ImportColumn::Exhibition, ImportColumn::RelayLtr}) {
    columns.push_back({"", Key(column), Align::Left, 0});
  }
  for (int leg = 0; leg < setup::kMostLegs; ++leg) columns.push_back({"", Key(Leg(leg)), Align::Left, 0});
  return columns;
}

Row RowOf(const EntryLine& line, int rank, const YearStyle& years) {
  // A birth date says more than an age, and that of a relay follows from its runners.
  const bool has_age = line.birth_date.empty() && line.relay_ltr.empty();
  Row row;
  row.cells = {NumberOrBlank(rank),
               line.relay_ltr.empty() ? NumberOrBlank(line.comp_no) : "",
               line.name,
               years.Cell(line.schl_yr, line.age),
               line.team_name,
               line.seed_text,
               line.last_name,
               line.first_name,
               line.sex,
               line.birth_date,
               has_age ? NumberOrBlank(line.age) : "",
               line.schl_yr,
               line.team_abbr,
               line.division,
               line.typed_seed,
               line.seed_unit,
               line.exhibition ? "yes" : "no",
               line.relay_ltr};
  row.cells.insert(row.cells.end(), line.legs.begin(), line.legs.end());
  row.details = NumberedRunners(line.runners);
  row.is_faint = line.scratched;
  return row;
}

std::vector<DataField> ContextOf(const setup::Event& event) {
  return {{Key(ImportColumn::EventNo), setup::EventLabel(event)},
          {Key(ImportColumn::EventSex), std::string(1, event.event_gender)},
          {Key(ImportColumn::Distance), event.event_dist > 0 ? ShortText(event.event_dist) : ""},
          {Key(ImportColumn::Kind), std::string(1, event.event_stroke)},
          {Key(ImportColumn::Rounds), std::to_string(event.event_rounds)}};
}

// The columns of a file of entries, in the order in which their description lists them.
std::vector<std::string> ImportKeys() {
  std::vector<std::string> keys;
  for (int column = 0; column < setup::kImportColumnCount; ++column) {
    keys.push_back(Key(static_cast<ImportColumn>(column)));
  }
  return keys;
}

}  // namespace

Section EntriesSection(const EventEntries& entries, const EntryListStyle& style) {
  Section section = EventSection(entries.event, entries.name, setup::Round::Finals);
  section.subheading.clear();
  const YearStyle years{std::any_of(entries.lines.begin(), entries.lines.end(),
                                    [](const EntryLine& line) { return !line.schl_yr.empty(); }),
                        style.suppress_age};
  Part entered;
  entered.columns = ColumnsOf(entries.is_relay, years);
  entered.context = ContextOf(entries.event);
  Part scratched = entered;
  scratched.heading = ScratchedHeading();
  scratched.is_aside = true;
  int rank = 0;
  for (const size_t position : SeedOrder(entries, style)) {
    const EntryLine& line = entries.lines[position];
    if (line.scratched) {
      scratched.rows.push_back(RowOf(line, 0, years));
    } else {
      entered.rows.push_back(RowOf(line, ++rank, years));
    }
  }
  if (rank == 0 && scratched.rows.empty()) section.notes.push_back(NoEntriesNote());
  std::string count = EntryCountNote(rank, entries.is_relay);
  if (!scratched.rows.empty()) count += ", " + ScratchedCountNote(static_cast<int>(scratched.rows.size()));
  if (!entries.lines.empty()) section.notes.push_back(std::move(count));
  for (Part* part : {&entered, &scratched}) {
    if (part->rows.empty()) continue;
    HideEmptyColumns(*part);
    section.parts.push_back(std::move(*part));
  }
  return section;
}

Expected<Report> BuildEntries(const database::Meet& meet, const EventChoice& choice) {
  Report report = StartReport(EntriesTitle(), meet.settings());
  report.data_keys = ImportKeys();
  TRY_ASSIGN(const auto events, ChosenEvents(meet, choice));
  TRY_ASSIGN(const setup::Roster roster, setup::LoadRoster(meet));
  for (const setup::StoredEvent& event : events) {
    TRY_ASSIGN(const EventEntries entries, LoadEventEntries(meet, event, roster));
    if (entries.lines.empty() && !choice.is_named()) continue;
    report.sections.push_back(
        EntriesSection(entries, {meet.settings().suppress_age, meet.settings().seed_exhlast}));
    report.sections.back().starts_page = choice.separate_pages && report.sections.size() > 1;
  }
  if (report.sections.empty()) report.notes.push_back(NothingToShowNote());
  return report;
}

}  // namespace tarvex::reports
