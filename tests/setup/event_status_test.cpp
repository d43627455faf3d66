#include "setup/event_status.h"

#include <gtest/gtest.h>

#include <string_view>

#include "setup/rounds.h"

namespace tarvex::setup {
namespace {

struct StatusCase {
  char code;
  int rounds;
  std::string_view long_text, short_text, seeding_text;
};

constexpr StatusCase kStatusCases[] = {
    {'U', 1, "Unseeded", "Unseeded", "Un-Seeded"},
    {'1', 1, "Finals Seeded", "F - Seeded", "Seeded"},
    {'A', 1, "Finals Done", "F - Done", "Done"},
    {'1', 2, "Prelims Seeded", "P - Seeded", "Seeded"},
    {'A', 2, "Prelims Done", "P - Done", "Un-Seeded"},
    {'2', 2, "Finals Seeded", "F - Seeded", "Seeded"},
    {'2', 3, "Semis Seeded", "S - Seeded", "Seeded"},
    {'2', 4, "Qtrs Seeded", "Q - Seeded", "Seeded"},
    {'B', 4, "Qtrs Done", "Q - Done", "Un-Seeded"},
    {'3', 3, "Finals Seeded", "F - Seeded", "Seeded"},
    {'3', 4, "Semis Seeded", "S - Seeded", "Seeded"},
    {'D', 4, "Finals Done", "F - Done", "Done"},
    {'S', 2, "Scored", "Scored", "Scored"},
    {'2', 1, "Unknown", "Unknown", "Un-Seeded"},
    {'?', 2, "Unknown", "Unknown", "Un-Seeded"},
};

TEST(EventStatus, NamesTheRoundByTheNumberOfRounds) {
  for (const StatusCase& c : kStatusCases) {
    EXPECT_EQ(LongStatus(c.code, c.rounds), c.long_text) << c.code << c.rounds;
    EXPECT_EQ(ShortStatus(c.code, c.rounds), c.short_text) << c.code << c.rounds;
    EXPECT_EQ(SeedingStatus(c.code, c.rounds), c.seeding_text) << c.code << c.rounds;
  }
}

// The statuses in which round 1, 2, 3, 4 counts as seeded.
TEST(IsRoundSeeded, LastsThroughEverythingLater) {
  struct Case {
    int number, rounds;
    std::string_view codes;
  };
  constexpr Case kCases[] = {{1, 4, "1A2B3C4DS"}, {2, 4, "2B3C4DS"}, {2, 3, "2B3CS"},
                             {3, 4, "3C4DS"},     {4, 4, "4DS"},     {1, 1, "1AS"}};
  for (const Case& c : kCases) {
    std::string seeded;
    for (const char code : std::string_view("U1A2B3C4DS")) {
      if (IsRoundSeeded(code, c.number, c.rounds)) seeded += code;
    }
    EXPECT_EQ(seeded, c.codes) << c.number << " of " << c.rounds;
  }
}

TEST(RoundToSeed, GoesOnAfterADoneRoundAndNeverPastTheLast) {
  EXPECT_EQ(RoundToSeed('U', 1), 1);
  EXPECT_EQ(RoundToSeed('1', 1), 1);
  EXPECT_EQ(RoundToSeed('A', 1), std::nullopt);
  EXPECT_EQ(RoundToSeed('A', 3), 2);
  EXPECT_EQ(RoundToSeed('2', 3), 2);
  EXPECT_EQ(RoundToSeed('C', 3), std::nullopt);
  EXPECT_EQ(RoundToSeed('S', 2), std::nullopt);
}

TEST(EventStatus, StepsBackWhenResultsOrSeedingArePurged) {
  EXPECT_EQ(WithoutResults('S', 1), '1');
  EXPECT_EQ(WithoutResults('B', 3), '2');
  EXPECT_EQ(WithoutSeeding('1', 1), 'U');
  EXPECT_EQ(WithoutSeeding('2', 3), 'A');
  EXPECT_EQ(WithoutSeeding('U', 1), 'U');
}

TEST(Rounds, AreNumberedFromTheFirstToTheFinal) {
  EXPECT_EQ(RoundByNumber(1, 1), Round::Finals);
  EXPECT_EQ(RoundByNumber(1, 2), Round::Prelims);
  EXPECT_EQ(RoundByNumber(2, 3), Round::Semis);
  EXPECT_EQ(RoundByNumber(2, 4), Round::Quarters);
  EXPECT_EQ(RoundByNumber(2, 1), std::nullopt);
  EXPECT_EQ(RoundNumber(Round::Finals, 3), 3);
  EXPECT_EQ(RoundNumber(Round::Quarters, 3), 0);
}

TEST(FinalsText, CountsTheSections) {
  Event event;
  event.event_stroke = 'A';
  EXPECT_EQ(FinalsText(event), "Timed Finals");
  event.event_rounds = 2;
  EXPECT_EQ(FinalsText(event), "1 Final");
  event.finals_setup = 'C';
  event.heats_infinal = 4;
  EXPECT_EQ(FinalsText(event), "4 Finals");
  event.finals_setup = 'E';
  EXPECT_EQ(FinalsText(event), "Unknown");
  event.trk_field = 'F';
  event.event_rounds = 1;
  EXPECT_EQ(FinalsText(event), "Finals Only");
  event.event_stroke = '2';
  EXPECT_EQ(FinalsText(event), "NA");
}

}  // namespace
}  // namespace tarvex::setup
