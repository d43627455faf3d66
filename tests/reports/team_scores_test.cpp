#include "reports/team_scores.h"

#include <gtest/gtest.h>

#include "tests/reports/sheets.h"

namespace tarvex::reports {
namespace {

using scoring::Group;

scoring::TeamScoreLine Score(Group group, int rank, std::string name, Decimal points) {
  scoring::TeamScoreLine line;
  line.total.group = group;
  line.total.rank = rank;
  line.total.name = std::move(name);
  line.total.points = points;
  return line;
}

TEST(TeamScoreParts, HasAStandingForEachGroupThatScored) {
  const std::vector<scoring::TeamScoreLine> lines = {
      Score(Group::Female, 1, "Summit", Decimal::Of(315, 1)),
      Score(Group::Female, 1, "Vale", Decimal::Of(315, 1)), Score(Group::Female, 3, "Northgate", Decimal(8)),
      Score(Group::Combined, 1, "Summit", Decimal::Of(3333, 2))};
  const std::vector<Part> parts = TeamScoreParts(lines);
  ASSERT_EQ(parts.size(), 2u);
  EXPECT_EQ(parts[0].heading, "Female");
  EXPECT_EQ(Cells(parts[0], "place"), (Texts{"1", "1", "3"}));
  EXPECT_EQ(Cells(parts[0], "points"), (Texts{"31.5", "31.5", "8"}));
  EXPECT_EQ(parts[1].heading, "Combined");
  EXPECT_EQ(Cells(parts[1], "points"), Texts{"33.33"});
}

TEST(TeamScoresTitle, NamesTheLastEvent) {
  scoring::TeamScoresRequest request;
  EXPECT_EQ(TeamScoresTitle(request), "Team Scores for All Completed Events");
  request.thru_event = setup::EventNumber{12, "A"};
  EXPECT_EQ(TeamScoresTitle(request), "Team Scores thru Event 12A");
}

}  // namespace
}  // namespace tarvex::reports
