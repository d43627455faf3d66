#include "reports/entries.h"

#include <gtest/gtest.h>

#include "tests/reports/sheets.h"

namespace tarvex::reports {
namespace {

EntryLine Entered(int id, std::string last_name, float mark) {
  EntryLine line;
  line.id = id;
  line.name = line.last_name = std::move(last_name);
  line.mark = mark;
  return line;
}

TEST(EntriesSection, GoesFromTheBestSeedToThoseWithout) {
  EventEntries entries;
  entries.event.event_no = 3;
  entries.event.event_stroke = 'A';
  entries.name = "Boys 100 Meter Dash";
  entries.lines = {Entered(1, "None", 0), Entered(2, "Slow", 12.5f), Entered(3, "Fast", 11.5f)};
  const Section running = EntriesSection(entries, {});
  EXPECT_EQ(running.heading, "Event 3  Boys 100 Meter Dash");
  EXPECT_EQ(running.notes, Texts{"3 entries"});
  EXPECT_EQ(Cells(running.parts.at(0), "last_name"), (Texts{"Fast", "Slow", "None"}));

  entries.event.event_stroke = 'R';
  entries.event.trk_field = 'F';
  EXPECT_EQ(Cells(EntriesSection(entries, {}).parts.at(0), "last_name"), (Texts{"Slow", "Fast", "None"}));
}

TEST(EntriesSection, KeepsTheScratchedApartAndOutOfTheData) {
  EventEntries entries;
  entries.lines = {Entered(1, "Gone", 11.0f), Entered(2, "There", 12.5f)};
  entries.lines[0].scratched = true;
  const Section section = EntriesSection(entries, {});
  EXPECT_EQ(section.notes, Texts{"1 entry, 1 scratched"});
  ASSERT_EQ(section.parts.size(), 2u);
  EXPECT_FALSE(section.parts[0].is_aside);
  EXPECT_EQ(Cells(section.parts[0], "last_name"), Texts{"There"});
  EXPECT_EQ(section.parts[1].heading, "Scratched");
  EXPECT_TRUE(section.parts[1].is_aside);
}

TEST(EntriesSection, SaysThatThereAreNone) {
  const Section section = EntriesSection(EventEntries{}, {});
  EXPECT_EQ(section.notes, Texts{"No entries."});
  EXPECT_TRUE(section.parts.empty());
}

}  // namespace
}  // namespace tarvex::reports
