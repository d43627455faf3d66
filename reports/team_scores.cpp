#include "reports/team_scores.h"

#include "reports/headings.h"
#include "reports/messages.h"
#include "scoring/messages.h"
#include "scoring/points_text.h"
#include "setup/event_store.h"

namespace tarvex::reports {
namespace {

using scoring::Group;

std::string HeadingOf(Group group) {
  switch (group) {
    case Group::Male:
      return MaleHeading();
    case Group::Female:
      return FemaleHeading();
    case Group::Combined:
      return CombinedHeading();
  }
  return "";
}

std::string LetterOf(Group group) {
  return group == Group::Male ? "M" : group == Group::Female ? "F" : "C";
}

Part StandingOf(Group group) {
  Part part;
  part.heading = HeadingOf(group);
  part.context = {{"gender", LetterOf(group)}};
  part.columns = {{PlaceColumn(), "place", Align::Right, 4},
                  {"", "team_abbr", Align::Left, 0},
                  {TeamColumn(), "team_name", Align::Left, 40},
                  {PointsColumn(), "points", Align::Right, 8}};
  return part;
}

}  // namespace

std::string TeamScoresTitle(const scoring::TeamScoresRequest& request) {
  if (!request.thru_event) return scoring::TeamScoresAllEvents().text;
  const setup::EventNumber& thru = *request.thru_event;
  return scoring::TeamScoresThruEvent(std::to_string(thru.event_no) + thru.event_ltr).text;
}

Group GroupOfGender(char event_gender) {
  return event_gender == 'M' ? Group::Male : event_gender == 'F' ? Group::Female : Group::Combined;
}

std::vector<Part> TeamScoreParts(std::span<const scoring::TeamScoreLine> lines) {
  std::vector<Part> parts;
  for (const Group group : {Group::Male, Group::Female, Group::Combined}) {
    Part part = StandingOf(group);
    for (const scoring::TeamScoreLine& line : lines) {
      if (line.total.group != group) continue;
      part.rows.push_back({{std::to_string(line.total.rank), line.team_abbr, line.total.name,
                            scoring::PointsText(line.total.points)},
                           {},
                           false});
    }
    if (!part.rows.empty()) parts.push_back(std::move(part));
  }
  return parts;
}

Expected<Report> BuildTeamScores(const database::Meet& meet, const scoring::TeamScoresRequest& request) {
  TRY_ASSIGN(const scoring::MeetPoints points, scoring::MeetPoints::Load(meet));
  const auto lines = points.Standings(request);
  Report report =
      StartReport(lines.empty() ? scoring::TeamScores().text : TeamScoresTitle(request), meet.settings());
  report.data_keys = {"gender", "place", "team_abbr", "team_name", "points"};
  if (lines.empty()) {
    report.notes.push_back(scoring::NoScoresFound().text);
    return report;
  }
  const std::vector<int> divisions = points.Divisions();
  if (divisions.empty()) {
    Section section;
    section.parts = TeamScoreParts(lines);
    report.sections.push_back(std::move(section));
    return report;
  }
  report.data_keys.insert(report.data_keys.begin(), "division");
  for (const int division : divisions) {
    scoring::TeamScoresRequest of_division = request;
    of_division.division = division;
    Section section;
    TRY_ASSIGN(section.heading, setup::DivisionName(meet, division));
    section.parts = TeamScoreParts(points.Standings(of_division));
    for (Part& part : section.parts) part.context.insert(part.context.begin(), {"division", section.heading});
    if (!section.parts.empty()) report.sections.push_back(std::move(section));
  }
  return report;
}

}  // namespace tarvex::reports
