#include <gtest/gtest.h>

#include <set>

#include "base/text.h"
#include "demo/discipline.h"
#include "demo/names.h"
#include "demo/schedule.h"

namespace tarvex::demo {
namespace {

size_t Letters(std::string_view text) {
  size_t letters = 0;
  for (; !text.empty(); ++letters) text.remove_prefix(FirstCharacter(text).value().bytes);
  return letters;
}

TEST(Names, FitTheirFieldsAndComeFromManyCultures) {
  Chance chance(1);
  bool accents = false, hyphens = false, apostrophes = false;
  std::set<PersonName> different;
  for (int i = 0; i < 5000; ++i) {
    const PersonName name = InventPerson(i % 2 == 0 ? 'M' : 'F', chance);
    different.insert(name);
    for (const std::string& part : {name.first, name.last}) {
      EXPECT_GE(Letters(part), 2u) << part;
      EXPECT_LE(Letters(part), kLongestName) << part;
      accents |= Letters(part) < part.size();
    }
    hyphens |= name.last.find('-') != std::string::npos;
    apostrophes |= name.last.find('\'') != std::string::npos;
  }
  EXPECT_TRUE(accents && hyphens && apostrophes);
  EXPECT_GT(different.size(), 2000u);
}

TEST(Towns, AllDifferAndSoDoTheirAbbreviations) {
  Chance chance(1);
  std::set<std::string> names, abbreviations;
  for (const Town& town : InventTowns(kMostTowns, chance)) {
    EXPECT_LE(town.name.size(), 12u) << town.name;
    EXPECT_EQ(town.abbr.size(), 4u) << town.name;
    EXPECT_EQ(town.abbr, Upper(town.abbr));
    names.insert(town.name);
    abbreviations.insert(town.abbr);
  }
  EXPECT_EQ(names.size(), 250u);
  EXPECT_EQ(abbreviations.size(), 250u);
}

// A better athlete is better at every age, and children are behind the grown.
TEST(TypicalMark, FollowsAbilityAndAge) {
  for (const Discipline& discipline : Disciplines()) {
    const int better = discipline.is_field() ? 1 : -1;
    for (const char sex : {'F', 'M'}) {
      if (discipline.sex != 'X' && discipline.sex != sex) continue;
      SCOPED_TRACE(testing::Message() << discipline.kind << discipline.distance << sex);
      int before = TypicalMark(discipline, sex, 12, -2500);
      EXPECT_GT(before, 0);
      for (const int ability : {-1000, 0, 1000, 2500}) {
        const int mark = TypicalMark(discipline, sex, 12, ability);
        EXPECT_GT(mark * better, before * better) << ability;
        before = mark;
        EXPECT_GT(TypicalMark(discipline, sex, 22, ability) * better, mark * better) << ability;
      }
    }
  }
}

TEST(ScheduleMeet, KeepsEveryPlaceToOneEventAtATime) {
  // Three heats of three minutes on the track, then one; 16 to a flight of 40 minutes. Slots of five minutes.
  std::vector<PlannedEvent> events(4);
  const auto find = [](char kind, int distance) {
    for (const Discipline& discipline : Disciplines()) {
      if (discipline.kind == kind && discipline.distance == distance) return &discipline;
    }
    return static_cast<const Discipline*>(nullptr);
  };
  events[0].discipline = events[1].discipline = find('A', 400);
  events[2].discipline = events[3].discipline = find('R', 0);
  for (PlannedEvent& event : events) event.row.num_finlanes = event.discipline->is_field() ? 16 : 8;
  const auto sessions = ScheduleMeet(events, {20, 8, 17, 5});
  ASSERT_EQ(sessions.size(), 1u);
  EXPECT_EQ(sessions[0].name, "Saturday Morning");
  std::vector<std::pair<size_t, int>> starts;  // minutes after nine
  for (const ScheduledEvent& event : sessions[0].events)
    starts.push_back({event.event, event.start_s / 60 - 540});
  EXPECT_EQ(starts, (std::vector<std::pair<size_t, int>>{{0, 0}, {2, 0}, {1, 10}, {3, 80}}));
}

TEST(ScheduleMeet, GoesOnTheNextDayWhenTheEveningComes) {
  const Discipline long_race{'B', 10000, 1, 'X', "S", {}, {}, {}, 400};
  std::vector<PlannedEvent> events(3);
  for (PlannedEvent& event : events) {
    event.discipline = &long_race;
    event.row.num_finlanes = 16;
  }
  const auto sessions = ScheduleMeet(events, {1, 1, 1});
  ASSERT_EQ(sessions.size(), 3u);
  EXPECT_EQ(sessions[2].day, 3);
  EXPECT_EQ(sessions[2].name, "Monday Morning");
}

}  // namespace
}  // namespace tarvex::demo
