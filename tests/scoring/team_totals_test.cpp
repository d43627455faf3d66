#include "scoring/team_totals.h"

#include <gtest/gtest.h>

#include "scoring/points_text.h"

namespace tarvex::scoring {
namespace {

const ScoringTeam kTeams[] = {
    {1, "Adams", false}, {2, "Baker", false}, {3, "Unattached", true}, {4, "Clark", false}};

TeamResult Individual(int team, char sex, float points, float judges = 0) {
  TeamResult result;
  result.team_no = team;
  result.sex = result.event_gender = sex;
  result.event_no = 1;
  result.ev_score = points;
  result.jdev_score = judges;
  return result;
}

TeamResult Relay(int team, char sex, float points) {
  TeamResult result = Individual(team, sex, points);
  result.relay = true;
  return result;
}

// "M 1 Adams 18" for every line of a standing.
std::vector<std::string> Standing(const std::vector<TeamResult>& results, const TotalRules& rules = {}) {
  std::vector<std::string> lines;
  for (const TeamTotal& total : TeamTotals(results, kTeams, rules)) {
    lines.push_back(std::string(1, "MFC"[static_cast<int>(total.group)]) + " " + std::to_string(total.rank) +
                    " " + total.name + " " + PointsText(total.points));
  }
  return lines;
}

using Lines = std::vector<std::string>;

TEST(TeamTotals, AddToTheSexAndToCombined) {
  EXPECT_EQ(Standing({Individual(1, 'M', 10), Individual(1, 'F', 8), Individual(2, 'M', 8)}),
            (Lines{"M 1 Adams 10", "M 2 Baker 8", "F 1 Adams 8", "C 1 Adams 18", "C 2 Baker 8"}));
}

TEST(TeamTotals, LeaveOutTeamsThatScoreNoPointsAndUnknownOnes) {
  EXPECT_EQ(Standing({Individual(3, 'M', 10), Individual(99, 'M', 8)}), Lines{});
}

TEST(TeamTotals, CountNegativePointsOfAthletesButNotOfRelays) {
  EXPECT_EQ(Standing({Individual(1, 'M', -2), Relay(2, 'M', -2)}), (Lines{"M 1 Adams -2", "C 1 Adams -2"}));
}

TEST(TeamTotals, TakeTheJudgesPoints) {
  EXPECT_EQ(Standing({Individual(1, 'M', 10, 7), Individual(2, 'M', 8, -1)}),
            (Lines{"M 1 Adams 7", "M 2 Baker 0", "C 1 Adams 7", "C 2 Baker 0"}));
}

TEST(TeamTotals, AddThirdsUpToTheWhole) {
  const float third = 3.3333333F;
  EXPECT_EQ(
      Standing({Individual(2, 'F', third), Individual(2, 'F', third), Individual(2, 'F', third),
                Individual(1, 'F', 10), Individual(4, 'F', 1)}),
      (Lines{"F 1 Adams 10", "F 1 Baker 10", "F 3 Clark 1", "C 1 Adams 10", "C 1 Baker 10", "C 3 Clark 1"}));
}

TEST(TeamTotals, GiveAMixedRelayToCombinedOnly) {
  EXPECT_EQ(Standing({Relay(1, 'X', 10)}), (Lines{"C 1 Adams 10"}));
}

TEST(TeamTotals, GoByTheEventOnRequest) {
  TeamResult woman_in_mens_event = Individual(1, 'F', 10);
  woman_in_mens_event.event_gender = 'M';
  EXPECT_EQ(Standing({woman_in_mens_event}), (Lines{"F 1 Adams 10", "C 1 Adams 10"}));
  TotalRules by_event;
  by_event.by_event_gender = true;
  EXPECT_EQ(Standing({woman_in_mens_event}, by_event), (Lines{"M 1 Adams 10", "C 1 Adams 10"}));
}

TEST(TeamTotals, StopAtTheEventAskedForAndSkipRacesScoredByPlace) {
  TeamResult five_a = Individual(1, 'M', 1);
  five_a.event_no = 5;
  five_a.event_ltr = "A";
  TeamResult five_b = five_a;
  five_b.event_ltr = "B";
  five_b.ev_score = 2;
  TeamResult cross_country = Individual(1, 'M', 4);
  cross_country.event_type = 'C';
  TotalRules thru;
  thru.thru_event_no = 5;
  thru.thru_event_ltr = "A";
  EXPECT_EQ(Standing({five_a, five_b, cross_country}, thru), (Lines{"M 1 Adams 1", "C 1 Adams 1"}));
  EXPECT_EQ(Standing({five_a, five_b, cross_country}), (Lines{"M 1 Adams 3", "C 1 Adams 3"}));
}

}  // namespace
}  // namespace tarvex::scoring
