#include "running/round_sheet.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "marks/format.h"
#include "running/alleys.h"
#include "scoring/points_text.h"
#include "setup/event_kind.h"
#include "setup/lane_text.h"
#include "setup/names.h"

namespace tarvex::running {
namespace {

using database::Meet;

// The runners of each relay of the event, by leg.
using RunnersByRelay = std::map<int, std::vector<std::string>>;

Expected<RunnersByRelay> LoadRunners(const Meet& meet, int event_ptr, setup::Round round,
                                     const setup::Roster& roster) {
  RunnersByRelay runners;
  TRY_ASSIGN(const auto table, setup::RelayNames(meet));
  TRY_ASSIGN(auto rows, table.By("relnamevtptr", event_ptr));
  TRY_ASSIGN(const setup::NameStyle style, setup::LoadNameStyle(meet));
  std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) {
    return std::tie(a.row.relay_no, a.row.pos_no) < std::tie(b.row.relay_no, b.row.pos_no);
  });
  for (const auto& stored : rows) {
    if (stored.row.event_round != Letter(round)) continue;
    if (const setup::Athlete* athlete = roster.athlete(stored.row.ath_no)) {
      runners[stored.row.relay_no].push_back(setup::AthleteName(*athlete, style));
    }
  }
  return runners;
}

std::string SeedText(const RoundRow& row, const setup::Event& event, const marks::MarkSettings& settings) {
  const char status = row.convseed_time > 0 ? ' ' : 'N';
  std::string text;
  if (setup::IsFieldEvent(event)) {
    text =
        marks::FormatMark(row.convseed_time, status, 'F', event.res_meas, event.event_stroke, {}, settings);
  } else {
    text = marks::FormatTime(row.convseed_time, status, false, settings);
  }
  return marks::SeedExhibitionPrefix(row.exh == 'X' && row.convseed_time > 0, settings) + text;
}

// A scratched entry is shown as that, whatever was measured; one without a result shows nothing.
std::string MarkText(const RoundRow& row, const setup::Event& event, const marks::MarkSettings& settings) {
  if (row.scratched) return "SCR";
  if (row.mark <= 0 && row.stat == ' ') return "";
  marks::DisplayFlags flags;
  flags.precision = marks::ResultPrecision(event.event_type, event.event_dist, event.event_stroke, settings);
  flags.exhibition = row.exh == 'X';
  std::string text = marks::FormatMark(row.mark, row.stat, event.trk_field, event.res_meas,
                                       event.event_stroke, flags, settings);
  if (row.hand && row.mark > 0 && event.trk_field != 'F') text += "h";
  return text;
}

}  // namespace

std::vector<SheetLine> RoundSheet::ByPlace() const {
  std::vector<SheetLine> lines;
  for (const SheetHeat& heat : heats) lines.insert(lines.end(), heat.lanes.begin(), heat.lanes.end());
  const auto key = [](const SheetLine& line) {
    const int effective = line.effective_place();
    const bool is_empty = line.mark <= 0 && line.stat == ' ';
    return std::tuple(effective == 0, effective, line.place, line.scratched, is_empty, line.heat, line.lane,
                      line.id);
  };
  std::stable_sort(lines.begin(), lines.end(),
                   [&](const SheetLine& a, const SheetLine& b) { return key(a) < key(b); });
  return lines;
}

Expected<RoundSheet> LoadSheet(const Meet& meet, const setup::StoredEvent& event, setup::Round round,
                               const setup::Roster& roster) {
  RoundSheet sheet;
  sheet.event = event.row;
  sheet.round = round;
  sheet.is_field = setup::IsFieldEvent(event.row);
  TRY_ASSIGN(sheet.name, setup::NameOf(meet, event.row));
  TRY_ASSIGN(const RoundData data, LoadRound(meet, event, round));
  sheet.is_relay = data.is_relay();
  TRY_ASSIGN(const setup::NameStyle style, setup::LoadNameStyle(meet));
  TRY_ASSIGN(const auto alleys, LoadAlleyNames(meet, event.row.event_ptr));
  TRY_ASSIGN(const auto winds, LoadWinds(meet, event.row.event_ptr, round));
  RunnersByRelay runners;
  if (sheet.is_relay) {
    TRY_ASSIGN(runners, LoadRunners(meet, event.row.event_ptr, round, roster));
  }
  const marks::MarkSettings settings = meet.mark_settings();
  std::map<int, SheetHeat> heats;
  for (const RoundRow& row : data.rows) {
    if (row.heat <= 0) continue;
    const setup::Athlete* athlete = sheet.is_relay ? nullptr : roster.athlete(row.id);
    const setup::Team* team = sheet.is_relay ? roster.team(row.team_no) : roster.team_of(athlete);
    SheetLine line;
    line.heat = row.heat;
    line.lane = row.lane;
    line.lane_text =
        sheet.is_field ? std::to_string(row.lane) : setup::LaneText(row.lane, event.row.std_lanes, alleys);
    line.comp_no = athlete ? athlete->comp_no : row.relay_compno;
    line.id = row.id;
    if (athlete) line.name = setup::AthleteName(*athlete, style);
    if (sheet.is_relay && team) line.name = setup::NameOfRelay(*team, std::string(1, row.team_ltr), style);
    line.team_abbr = team ? setup::TeamAbbr(*team, style) : "";
    line.team_name = team ? setup::TeamName(*team, style) : "";
    line.schl_yr = athlete ? athlete->schl_yr : "";
    line.age = athlete ? athlete->age : row.age;
    line.seed_text = SeedText(row, event.row, settings);
    line.mark = row.mark;
    line.mark_text = MarkText(row, event.row, settings);
    line.stat = row.stat;
    line.scratched = row.scratched;
    line.place = row.place;
    line.heatplace = row.heatplace;
    line.jdplace = row.jdplace;
    line.jdheatplace = row.jdheatplace;
    line.points = row.ev_score;
    line.points_text = row.ev_score != 0 ? scoring::PointsText(row.ev_score) : "";
    line.wind = row.wind;
    line.note = row.note;
    if (const auto found = runners.find(row.id); found != runners.end()) line.runners = found->second;
    SheetHeat& heat = heats[row.heat];
    heat.heat = row.heat;
    heat.lanes.push_back(std::move(line));
  }
  for (auto& [number, heat] : heats) {
    std::sort(heat.lanes.begin(), heat.lanes.end(), [](const SheetLine& a, const SheetLine& b) {
      return std::tie(a.lane, a.id) < std::tie(b.lane, b.id);
    });
    for (const HeatWind& wind : winds) {
      if (wind.heat == number) heat.wind = wind.wind;
    }
    sheet.heats.push_back(std::move(heat));
  }
  return sheet;
}

}  // namespace tarvex::running
