#include "reports/start_list.h"

#include <algorithm>

#include <fmt/ranges.h>

#include "reports/headings.h"
#include "reports/messages.h"
#include "setup/roster_store.h"

namespace tarvex::reports {
namespace {

using running::RoundSheet;
using running::SheetHeat;
using running::SheetLine;

YearStyle YearStyleOf(const RoundSheet& sheet, bool suppress_age) {
  YearStyle style;
  style.suppress_age = suppress_age;
  for (const SheetHeat& heat : sheet.heats) {
    style.by_school_year |= std::any_of(heat.lanes.begin(), heat.lanes.end(),
                                        [](const SheetLine& line) { return !line.schl_yr.empty(); });
  }
  return style;
}

// A relay goes by its team's name and letter, so that the team needs no column.
std::vector<Column> ColumnsOf(const RoundSheet& sheet, const YearStyle& years) {
  return {
      {sheet.is_field ? PositionColumn() : LaneColumn(), "lane", Align::Right, 4},
      {NumberColumn(), "comp_no", Align::Right, 6},
      {sheet.is_relay ? TeamColumn() : NameColumn(), "name", Align::Left, 30},
      {years.Heading(), "", Align::Right, 4},
      {"", "schl_yr", Align::Left, 0},
      {"", "age", Align::Right, 0},
      {"", "team_abbr", Align::Left, 0},
      {TeamColumn(), "team_name", Align::Left, sheet.is_relay ? 0 : 26},
      {SeedColumn(), "seed_mark", Align::Right, 12},
      {"", "runners", Align::Left, 0},
  };
}

Row RowOf(const SheetLine& line, const YearStyle& years) {
  Row row;
  row.cells = {line.lane_text,
               NumberOrBlank(line.comp_no),
               line.name,
               years.Cell(line.schl_yr, line.age),
               line.schl_yr,
               years.suppress_age ? "" : NumberOrBlank(line.age),
               line.team_abbr,
               line.team_name,
               line.scratched ? ScratchedWord() : line.seed_text,
               fmt::format("{}", fmt::join(line.runners, "; "))};
  row.details = NumberedRunners(line.runners);
  row.is_faint = line.scratched;
  return row;
}

Expected<Report> Build(const database::Meet& meet, const EventChoice& choice, std::string title) {
  Report report = StartReport(std::move(title), meet.settings());
  report.data_keys = {"event_no", "event_ltr", "event_name", "round", "heat"};
  TRY_ASSIGN(const auto events, ChosenEvents(meet, choice));
  TRY_ASSIGN(const setup::Roster roster, setup::LoadRoster(meet));
  for (const setup::StoredEvent& event : events) {
    const std::optional<setup::Round> round = ChosenRound(event.row, choice);
    if (!round) continue;
    TRY_ASSIGN(const RoundSheet sheet, running::LoadSheet(meet, event, *round, roster));
    if (sheet.heats.empty() && !choice.is_named()) continue;
    report.sections.push_back(StartListSection(sheet, meet.settings().suppress_age));
    report.sections.back().starts_page = choice.separate_pages && report.sections.size() > 1;
  }
  if (report.sections.empty()) report.notes.push_back(NothingToShowNote());
  return report;
}

}  // namespace

Section StartListSection(const RoundSheet& sheet, bool suppress_age) {
  Section section = EventSection(sheet);
  if (sheet.heats.empty()) section.notes.push_back(NotSeededNote());
  const YearStyle years = YearStyleOf(sheet, suppress_age);
  for (const SheetHeat& heat : sheet.heats) {
    Part part;
    part.heading = HeatHeading(sheet.is_field, heat.heat, sheet.heats.size());
    if (!heat.wind.empty()) part.heading += "   " + WindText(heat.wind);
    part.keep_together = true;
    part.columns = ColumnsOf(sheet, years);
    part.context = EventContext(sheet);
    part.context.push_back({"heat", std::to_string(heat.heat)});
    for (const SheetLine& line : heat.lanes) part.rows.push_back(RowOf(line, years));
    HideEmptyColumns(part);
    section.parts.push_back(std::move(part));
  }
  return section;
}

Expected<Report> BuildStartLists(const database::Meet& meet, const EventChoice& choice) {
  return Build(meet, choice, StartListsTitle());
}

Expected<Report> BuildMeetProgram(const database::Meet& meet, const EventChoice& choice) {
  return Build(meet, choice, MeetProgramTitle());
}

}  // namespace tarvex::reports
