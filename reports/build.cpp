#include "reports/build.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "reports/entries.h"
#include "reports/results.h"
#include "reports/start_list.h"
#include "reports/team_scores.h"

namespace tarvex::reports {
namespace {

constexpr std::array<std::pair<std::string_view, Kind>, 5> kKinds = {{
    {"start-list", Kind::StartList},
    {"results", Kind::Results},
    {"team-scores", Kind::TeamScores},
    {"entries", Kind::Entries},
    {"meet-program", Kind::MeetProgram},
}};

scoring::TeamScoresRequest ThruLast(const EventChoice& choice) {
  scoring::TeamScoresRequest request;
  if (!choice.is_named()) return request;
  const auto last =
      std::max_element(choice.events.begin(), choice.events.end(), [](const auto& a, const auto& b) {
        return std::tie(a.row.event_no, a.row.event_ltr) < std::tie(b.row.event_no, b.row.event_ltr);
      });
  request.thru_event = setup::EventNumber{last->row.event_no, last->row.event_ltr};
  return request;
}

}  // namespace

std::optional<Kind> KindFromName(std::string_view name) {
  for (const auto& [known, kind] : kKinds) {
    if (known == name) return kind;
  }
  return std::nullopt;
}

Expected<Report> BuildReport(const database::Meet& meet, Kind kind, const EventChoice& choice) {
  switch (kind) {
    case Kind::StartList:
      return BuildStartLists(meet, choice);
    case Kind::Results:
      return BuildResults(meet, choice);
    case Kind::TeamScores:
      return BuildTeamScores(meet, ThruLast(choice));
    case Kind::Entries:
      return BuildEntries(meet, choice);
    case Kind::MeetProgram:
      return BuildMeetProgram(meet, choice);
  }
  return Status{Fault::Invalid, "no such kind of report"};
}

}  // namespace tarvex::reports
