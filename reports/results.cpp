#include "reports/results.h"

#include <fmt/ranges.h>

#include <algorithm>
#include <map>
#include <optional>

#include "base/decimal.h"
#include "reports/headings.h"
#include "reports/messages.h"
#include "reports/team_scores.h"
#include "running/groups.h"
#include "running/round_store.h"
#include "setup/event_kind.h"
#include "setup/event_name.h"
#include "setup/event_status.h"
#include "setup/roster_store.h"

namespace tarvex::reports {
namespace {

using running::RoundSheet;
using running::SheetHeat;
using running::SheetLine;

bool HasResult(const SheetLine& line) {
  return line.mark > 0 || line.stat != ' ' || line.scratched;
}
bool HasValidMark(const SheetLine& line) {
  return line.mark > 0 && (line.stat == ' ' || line.stat == 'X') && !line.scratched;
}

// Placed, marked only, without a valid mark, scratched.
int Standing(const SheetLine& line) {
  if (line.scratched) return 3;
  if (line.effective_place() > 0) return 0;
  return HasValidMark(line) ? 1 : 2;
}

std::vector<SheetLine> ListedLines(const RoundSheet& sheet) {
  std::vector<SheetLine> lines = sheet.ByPlace();
  std::erase_if(lines, [](const SheetLine& line) { return !HasResult(line); });
  std::stable_sort(lines.begin(), lines.end(),
                   [](const SheetLine& a, const SheetLine& b) { return Standing(a) < Standing(b); });
  return lines;
}

int MissingResults(const RoundSheet& sheet) {
  int missing = 0;
  for (const SheetHeat& heat : sheet.heats) {
    missing += static_cast<int>(std::count_if(heat.lanes.begin(), heat.lanes.end(),
                                              [](const SheetLine& line) { return !HasResult(line); }));
  }
  return missing;
}

// What the rows of one list have in common.
struct ListStyle {
  YearStyle years;
  bool has_several_heats = false;
  std::map<int, std::string> heat_winds;
  std::string unit;
};

std::string UnitOf(const RoundSheet& sheet) {
  if (setup::IsRunningEvent(sheet.event)) return "s";
  if (!sheet.is_field) return "points";
  return sheet.event.res_meas == 'E' ? "in" : "m";
}

ListStyle StyleOf(const RoundSheet& sheet, const std::vector<SheetLine>& lines, bool suppress_age) {
  ListStyle style;
  style.years.suppress_age = suppress_age;
  style.years.by_school_year =
      std::any_of(lines.begin(), lines.end(), [](const SheetLine& line) { return !line.schl_yr.empty(); });
  style.has_several_heats = sheet.heats.size() > 1;
  for (const SheetHeat& heat : sheet.heats) style.heat_winds[heat.heat] = heat.wind;
  style.unit = UnitOf(sheet);
  return style;
}

// One race has one wind, which stands in its heading; otherwise each mark has its own.
bool IsWindInHeading(const RoundSheet& sheet) {
  return !sheet.is_field && sheet.heats.size() == 1;
}

std::vector<Column> ColumnsOf(const RoundSheet& sheet, const ListStyle& style) {
  return {
      {PlaceColumn(), "place", Align::Right, 4},
      {sheet.is_field ? FlightColumn() : HeatColumn(), "heat", Align::Right, style.has_several_heats ? 3 : 0},
      {"", "lane", Align::Right, 0},
      {"", "heatplace", Align::Right, 0},
      {NumberColumn(), "comp_no", Align::Right, 6},
      {sheet.is_relay ? TeamColumn() : NameColumn(), "name", Align::Left, 30},
      {style.years.Heading(), "", Align::Right, 4},
      {"", "schl_yr", Align::Left, 0},
      {"", "age", Align::Right, 0},
      {"", "team_abbr", Align::Left, 0},
      {TeamColumn(), "team_name", Align::Left, sheet.is_relay ? 0 : 26},
      {SeedColumn(), "seed_mark", Align::Right, 12},
      {ResultColumn(), "mark", Align::Right, 12},
      {"", "mark_value", Align::Right, 0},
      {"", "mark_unit", Align::Left, 0},
      {"", "stat", Align::Left, 0},
      {WindColumn(), "wind", Align::Right, IsWindInHeading(sheet) ? 0 : 5},
      {PointsColumn(), "points", Align::Right, 7},
      {"", "runners", Align::Left, 0},
      {"", "note", Align::Left, 0},
  };
}

std::string WindOf(const SheetLine& line, const ListStyle& style) {
  if (!line.wind.empty()) return line.wind;
  const auto found = style.heat_winds.find(line.heat);
  return found == style.heat_winds.end() ? "" : found->second;
}

Row RowOf(const SheetLine& line, const ListStyle& style) {
  const bool has_mark = HasValidMark(line);
  const std::string wind = WindOf(line, style);
  const char stat = line.scratched ? 'R' : line.stat;
  const std::string effective_heatplace =
      NumberOrBlank(line.jdheatplace > 0 ? line.jdheatplace : line.heatplace);
  Row row;
  row.cells = {NumberOrBlank(line.effective_place()),
               NumberOrBlank(line.heat),
               line.lane_text,
               effective_heatplace,
               NumberOrBlank(line.comp_no),
               line.name,
               style.years.Cell(line.schl_yr, line.age),
               line.schl_yr,
               style.years.suppress_age ? "" : NumberOrBlank(line.age),
               line.team_abbr,
               line.team_name,
               line.seed_text,
               line.mark_text + (has_mark && IsWindAssisted(wind) ? "w" : ""),
               has_mark ? ShortText(line.mark) : "",
               has_mark ? style.unit : "",
               stat == ' ' ? "" : std::string(1, stat),
               wind,
               line.points_text,
               fmt::format("{}", fmt::join(line.runners, "; ")),
               line.note};
  row.details = NumberedRunners(line.runners);
  AddLine(row.details, line.note);
  row.is_faint = line.scratched;
  return row;
}

// The rows of one group of the event, or all.
Part MakePart(const RoundSheet& sheet, const ListStyle& style, std::string group) {
  Part part;
  part.heading = group;
  part.columns = ColumnsOf(sheet, style);
  part.context = EventContext(sheet);
  part.context.push_back({"group", std::move(group)});
  return part;
}

std::vector<Part> PartsOf(const RoundSheet& sheet, const ListStyle& style, const ResultGroups& groups,
                          const std::vector<SheetLine>& lines) {
  std::vector<Part> parts;
  for (const std::string& name : groups.names) parts.push_back(MakePart(sheet, style, name));
  parts.push_back(MakePart(sheet, style, ""));  // those of no group
  for (const SheetLine& line : lines) {
    const auto group = groups.of_id.find(line.id);
    const size_t position = group == groups.of_id.end() ? groups.names.size() : group->second;
    parts[position].rows.push_back(RowOf(line, style));
  }
  std::erase_if(parts, [](const Part& part) { return part.rows.empty(); });
  for (Part& part : parts) HideEmptyColumns(part);
  return parts;
}

// Empty where the event is placed as one field.
Expected<ResultGroups> LoadGroups(const database::Meet& meet, const setup::StoredEvent& event,
                                  setup::Round round, const setup::Roster& roster) {
  const int meet_type = meet.settings().Meet_meettype;
  if (!event.row.multi_age && meet_type != 3 && meet_type != 4) return ResultGroups{};
  TRY_ASSIGN(const running::RoundData data, running::LoadRound(meet, event, round));
  TRY_ASSIGN(const std::vector<running::Result> results, running::ResultsOf(meet, data, roster));
  std::map<running::Group, std::vector<int>> members;
  for (const running::Result& result : results) members[result.group].push_back(result.id);
  ResultGroups groups;
  for (const auto& [group, ids] : members) {
    TRY_ASSIGN(std::string name, setup::DivisionName(meet, group.division));
    if (group.age_group > 0 && static_cast<size_t>(group.age_group) <= data.age_groups.size()) {
      const setup::AgeGroup& ages = data.age_groups[static_cast<size_t>(group.age_group) - 1];
      name += (name.empty() ? "" : "  ") + setup::AgeText(ages.low_age, ages.high_age);
    }
    if (name.empty()) continue;
    for (const int id : ids) groups.of_id[id] = groups.names.size();
    groups.names.push_back(std::move(name));
  }
  return groups;
}

// The standing after a scored event, of the teams of its gender.
void AddStanding(const database::Meet& meet, const scoring::MeetPoints& points, const RoundSheet& sheet,
                 Section& section) {
  const bool is_scored = sheet.event.event_stat == setup::kScored && sheet.round == setup::Round::Finals;
  if (!is_scored) return;
  scoring::TeamScoresRequest request;
  request.group = GroupOfGender(sheet.event.event_gender);
  if (meet.settings().thrucurrentevt_teamscore) {
    request.thru_event = setup::EventNumber{sheet.event.event_no, sheet.event.event_ltr};
  }
  for (Part& part : TeamScoreParts(points.Standings(request))) {
    part.heading = TeamScoresTitle(request) + " - " + part.heading;
    part.is_aside = true;
    section.parts.push_back(std::move(part));
  }
}

}  // namespace

bool IsWindAssisted(std::string_view wind) {
  std::string number(wind);
  std::replace(number.begin(), number.end(), ',', '.');
  const std::optional<Decimal> reading = Decimal::Parse(number);
  return reading && *reading > Decimal(2);
}

bool HasResults(const RoundSheet& sheet) {
  return std::any_of(sheet.heats.begin(), sheet.heats.end(), [](const SheetHeat& heat) {
    return std::any_of(heat.lanes.begin(), heat.lanes.end(),
                       [](const SheetLine& line) { return line.mark > 0 || line.stat != ' '; });
  });
}

Section ResultsSection(const RoundSheet& sheet, const ResultGroups& groups, bool suppress_age) {
  Section section = EventSection(sheet);
  if (!HasResults(sheet)) {
    section.notes.push_back(sheet.heats.empty() ? NotSeededNote() : NoResultsNote());
    return section;
  }
  if (sheet.event.event_type2 == 'J') section.notes.push_back(JumpOffNote());
  if (IsWindInHeading(sheet) && !sheet.heats.front().wind.empty()) {
    section.notes.push_back(WindText(sheet.heats.front().wind));
  }
  if (const int missing = MissingResults(sheet); missing > 0)
    section.notes.push_back(ResultsMissingNote(missing));
  const std::vector<SheetLine> lines = ListedLines(sheet);
  section.parts = PartsOf(sheet, StyleOf(sheet, lines, suppress_age), groups, lines);
  return section;
}

Expected<Report> BuildResults(const database::Meet& meet, const EventChoice& choice) {
  Report report = StartReport(ResultsTitle(), meet.settings());
  report.data_keys = {"event_no", "event_ltr", "event_name", "round", "group"};
  TRY_ASSIGN(const auto events, ChosenEvents(meet, choice));
  TRY_ASSIGN(const setup::Roster roster, setup::LoadRoster(meet));
  std::optional<scoring::MeetPoints> points;
  if (meet.settings().Scores_afterevt) {
    TRY_ASSIGN(points, scoring::MeetPoints::Load(meet));
  }
  for (const setup::StoredEvent& event : events) {
    const std::optional<setup::Round> round = ChosenRound(event.row, choice);
    if (!round) continue;
    TRY_ASSIGN(const RoundSheet sheet, running::LoadSheet(meet, event, *round, roster));
    if (!choice.is_named() && !HasResults(sheet)) continue;
    TRY_ASSIGN(const ResultGroups groups, LoadGroups(meet, event, *round, roster));
    Section section = ResultsSection(sheet, groups, meet.settings().suppress_age);
    section.starts_page = choice.separate_pages && !report.sections.empty();
    if (points) AddStanding(meet, *points, sheet, section);
    report.sections.push_back(std::move(section));
  }
  if (report.sections.empty()) report.notes.push_back(NothingToShowNote());
  return report;
}

}  // namespace tarvex::reports
