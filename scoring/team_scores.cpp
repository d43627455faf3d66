#include "scoring/team_scores.h"

#include <set>
#include <unordered_map>

#include "database/rows.h"
#include "scoring/points_table.h"
#include "setup/event_store.h"
#include "setup/names.h"
#include "setup/roster_store.h"

namespace tarvex::scoring {
namespace {

using database::Binding;
using database::BoundFields;
using database::Meet;

// An entry or relay as far as its points go.
struct PointsRow {
  int id = 0;
  int event_ptr = 0;
  int team_no = 0;
  char rel_sex = ' ';
  int div_no = 0;
  float ev_score = 0;
  float jdev_score = 0;
};
const std::vector<Binding<PointsRow>> kEntryFields = {
    {"Ath_no", &PointsRow::id},
    {"Event_ptr", &PointsRow::event_ptr},
    {"Div_no", &PointsRow::div_no},
    {"Ev_score", &PointsRow::ev_score},
    {"JDEv_score", &PointsRow::jdev_score},
};
const std::vector<Binding<PointsRow>> kRelayFields = {
    {"Relay_no", &PointsRow::id},           {"Event_ptr", &PointsRow::event_ptr},
    {"Team_no", &PointsRow::team_no},       {"Rel_sex", &PointsRow::rel_sex},
    {"Div_no", &PointsRow::div_no},         {"Ev_score", &PointsRow::ev_score},
    {"JDEv_score", &PointsRow::jdev_score},
};

class Loader {
 public:
  explicit Loader(const Meet& meet) : meet_(meet) {}

  Status Load() {
    TRY_ASSIGN(roster_, setup::LoadRoster(meet_));
    TRY_ASSIGN(const auto events, setup::LoadEvents(meet_));
    for (const auto& stored : events) events_.emplace(stored.row.event_ptr, stored.row);
    TRY(AddResults("Entry", kEntryFields, false));
    return AddResults("Relay", kRelayFields, true);
  }

  const std::vector<TeamResult>& results() const { return results_; }
  const setup::Roster& roster() const { return roster_; }

 private:
  int DivisionOf(int event_div, int team_div, int entry_div) const {
    // Points are read from the table of a division only when the meet asks for it; standings always are its
    // own.
    return PointsDivision({meet_.settings().Meet_meettype, true}, event_div, team_div, entry_div);
  }

  Status AddResults(std::string_view name, const std::vector<Binding<PointsRow>>& bindings, bool is_relay) {
    TRY_ASSIGN(const jet::Table* table, meet_.Table(name));
    TRY_ASSIGN(const auto fields, BoundFields<PointsRow>::Of(*table, bindings));
    jet::TableScan scan = table->Scan();
    while (true) {
      TRY_ASSIGN(const bool more, scan.Next());
      if (!more) return Ok();
      const PointsRow row = fields.Load(scan.record());
      TRY(scan.record().status());
      const auto event = events_.find(row.event_ptr);
      const setup::Athlete* athlete = is_relay ? nullptr : roster_.athlete(row.id);
      if (event == events_.end() || (!is_relay && !athlete)) continue;
      TeamResult result;
      result.relay = is_relay;
      result.team_no = is_relay ? row.team_no : athlete->team_no;
      result.sex = is_relay ? row.rel_sex : athlete->sex;
      result.event_gender = event->second.event_gender;
      result.event_no = event->second.event_no;
      result.event_ltr = event->second.event_ltr;
      result.event_type = event->second.event_type;
      const setup::Team* team = roster_.team(result.team_no);
      result.division = DivisionOf(event->second.div_no, team ? team->division : 0, row.div_no);
      result.ev_score = row.ev_score;
      result.jdev_score = row.jdev_score;
      if (IsScored(result)) results_.push_back(std::move(result));
    }
  }

  const Meet& meet_;
  setup::Roster roster_;
  std::unordered_map<int, setup::Event> events_;
  std::vector<TeamResult> results_;
};

}  // namespace

Expected<MeetPoints> MeetPoints::Load(const Meet& meet) {
  Loader loader(meet);
  TRY(loader.Load());
  TRY_ASSIGN(const setup::NameStyle style, setup::LoadNameStyle(meet));
  MeetPoints points;
  points.results_ = loader.results();
  points.by_event_gender_ = meet.settings().useeventsex_teamscore;
  for (const auto& [number, team] : loader.roster().teams) {
    points.teams_.push_back({number, setup::TeamName(team, style), team.no_points});
    points.abbreviations_[number] = setup::TeamAbbr(team, style);
  }
  return points;
}

std::vector<TeamScoreLine> MeetPoints::Standings(const TeamScoresRequest& request) const {
  TotalRules rules;
  rules.by_event_gender = by_event_gender_;
  if (request.thru_event) {
    rules.thru_event_no = request.thru_event->event_no;
    rules.thru_event_ltr = request.thru_event->event_ltr;
  }
  rules.division = request.division;
  std::vector<TeamScoreLine> lines;
  for (TeamTotal& total : TeamTotals(results_, teams_, rules)) {
    if (request.group && total.group != *request.group) continue;
    const auto abbreviation = abbreviations_.find(total.team_no);
    lines.push_back({total, abbreviation == abbreviations_.end() ? "" : abbreviation->second});
  }
  return lines;
}

std::vector<int> MeetPoints::Divisions() const {
  std::set<int> divisions;
  for (const TeamResult& result : results_) divisions.insert(result.division);
  if (divisions.size() == 1 && *divisions.begin() == 0) return {};
  return {divisions.begin(), divisions.end()};
}

Expected<std::vector<TeamScoreLine>> LoadTeamScores(const Meet& meet, const TeamScoresRequest& request) {
  TRY_ASSIGN(const MeetPoints points, MeetPoints::Load(meet));
  return points.Standings(request);
}

}  // namespace tarvex::scoring
