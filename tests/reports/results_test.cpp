#include "reports/results.h"

#include <gtest/gtest.h>

#include "tests/reports/sheets.h"

namespace tarvex::reports {
namespace {

running::SheetLine Scratched(running::SheetLine line) {
  line.scratched = true;
  line.mark_text = "SCR";
  return line;
}

TEST(ResultsSection, ListsAllHeatsByPlaceAndThoseWithoutBehind) {
  const running::SheetLine exhibition = Placed(Line(7, 1, 7, "Exhibited", "Summit"), 0, 12.1f, "X12.10");
  const running::RoundSheet sheet = Sheet({
      {1,
       "",
       {Scratched(Line(1, 1, 1, "Scratched", "Summit")),
        WithStatus(Line(2, 1, 2, "Disqualified", "Summit"), 'Q', "DQ"),
        Placed(Line(3, 1, 3, "Tied too", "Summit"), 2, 12.5f, "12.50"), exhibition}},
      {2,
       "",
       {Placed(Line(4, 2, 3, "Winner", "Summit"), 1, 12.3f, "12.30"),
        Placed(Line(5, 2, 4, "Tied", "Summit"), 2, 12.5f, "12.50"),
        Placed(Line(6, 2, 5, "Fourth", "Summit"), 4, 12.6f, "12.60")}},
  });
  const Part part = ResultsSection(sheet, {}, false).parts.at(0);
  EXPECT_EQ(Cells(part, "name"),
            (Texts{"Winner", "Tied too", "Tied", "Fourth", "Exhibited", "Disqualified", "Scratched"}));
  EXPECT_EQ(Cells(part, "place"), (Texts{"1", "2", "2", "4", "", "", ""}));
  EXPECT_EQ(Cells(part, "mark"), (Texts{"12.30", "12.50", "12.50", "12.60", "X12.10", "DQ", "SCR"}));
  EXPECT_EQ(Cells(part, "mark_value"), (Texts{"12.3", "12.5", "12.5", "12.6", "12.1", "", ""}));
  EXPECT_EQ(Cells(part, "stat"), (Texts{"", "", "", "", "", "Q", "R"}));
  EXPECT_TRUE(IsDrawn(part, "heat"));
  EXPECT_FALSE(IsDrawn(part, "points"));  // nobody has any
}

TEST(ResultsSection, PutsTheJudgesPlaceInEffect) {
  running::SheetLine broken = Placed(Line(1, 1, 1, "Second", "Summit"), 1, 12.3f, "12.30");
  broken.jdplace = 2;
  const Section section = ResultsSection(
      Sheet({{1, "", {broken, Placed(Line(2, 1, 2, "First", "Summit"), 1, 12.3f, "12.30")}}}), {}, false);
  EXPECT_EQ(Cells(section.parts.at(0), "name"), (Texts{"First", "Second"}));
  EXPECT_EQ(Cells(section.parts.at(0), "place"), (Texts{"1", "2"}));
}

TEST(ResultsSection, CountsWhoHasNoResultYet) {
  const Section section = ResultsSection(Sheet({{1,
                                                 "",
                                                 {Placed(Line(1, 1, 1, "Done", "Summit"), 1, 12.3f, "12.30"),
                                                  Line(2, 1, 2, "Not yet", "Summit")}}}),
                                         {}, false);
  EXPECT_EQ(section.notes, Texts{"Still without a result: 1"});
  EXPECT_EQ(Cells(section.parts.at(0), "name"), Texts{"Done"});
}

TEST(ResultsSection, SaysWhyThereIsNoList) {
  EXPECT_EQ(ResultsSection(Sheet({}), {}, false).notes, Texts{"Not seeded yet."});
  const running::RoundSheet scratched_only =
      Sheet({{1, "", {Scratched(Line(1, 1, 1, "Scratched", "Summit"))}}});
  EXPECT_EQ(ResultsSection(scratched_only, {}, false).notes, Texts{"No results yet."});
  EXPECT_TRUE(ResultsSection(scratched_only, {}, false).parts.empty());
}

struct WindCase {
  const char* wind;
  bool is_assisted;
};

// More than 2.0 m/s, not 2.0 itself.
constexpr WindCase kWindCases[] = {{"+2.0", false}, {"2.1", true},  {"+2.1", true}, {"+2,1", true},
                                   {"-3.4", false}, {"NWI", false}, {"", false},    {"10", true}};

TEST(IsWindAssisted, BeginsAboveTwoMetresASecond) {
  for (const WindCase& c : kWindCases) EXPECT_EQ(IsWindAssisted(c.wind), c.is_assisted) << c.wind;
}

TEST(ResultsSection, ShowsTheWindOfOneRaceAboveTheListAndOfSeveralBesideTheMarks) {
  const running::SheetLine fast = Placed(Line(1, 1, 1, "Ann Hay", "Summit"), 1, 12.3f, "12.30");
  const Section one = ResultsSection(Sheet({{1, "+2.4", {fast}}}), {}, false);
  EXPECT_EQ(one.notes, Texts{"Wind: +2.4"});
  EXPECT_FALSE(IsDrawn(one.parts.at(0), "wind"));
  EXPECT_EQ(Cells(one.parts.at(0), "wind"), Texts{"+2.4"});
  EXPECT_EQ(Cells(one.parts.at(0), "mark"), Texts{"12.30w"});

  const running::SheetLine slow = Placed(Line(2, 2, 1, "Eva Roe", "Summit"), 2, 12.9f, "12.90");
  const Section two = ResultsSection(Sheet({{1, "+2.4", {fast}}, {2, "-0.1", {slow}}}), {}, false);
  EXPECT_TRUE(two.notes.empty());
  EXPECT_TRUE(IsDrawn(two.parts.at(0), "wind"));
  EXPECT_EQ(Cells(two.parts.at(0), "mark"), (Texts{"12.30w", "12.90"}));
}

TEST(ResultsSection, TellsOfAJumpOffAndTheUnitOfFieldMarks) {
  running::RoundSheet sheet =
      Sheet({{1, "", {Placed(Line(1, 1, 1, "Ann Hay", "Summit"), 1, 1.75f, "1.75")}}});
  sheet.is_field = true;
  sheet.event.trk_field = 'F';
  sheet.event.event_stroke = 'K';
  sheet.event.event_type2 = 'J';
  EXPECT_EQ(ResultsSection(sheet, {}, false).notes, Texts{"Jump Off"});
  EXPECT_EQ(Cells(ResultsSection(sheet, {}, false).parts.at(0), "mark_unit"), Texts{"m"});
  sheet.event.res_meas = 'E';
  EXPECT_EQ(Cells(ResultsSection(sheet, {}, false).parts.at(0), "mark_unit"), Texts{"in"});
}

TEST(ResultsSection, ListsGroupsThatArePlacedApartOneAfterTheOther) {
  const running::RoundSheet sheet =
      Sheet({{1,
              "",
              {Placed(Line(1, 1, 1, "Older", "Summit"), 1, 12.3f, "12.30"),
               Placed(Line(2, 1, 2, "Younger", "Summit"), 1, 12.8f, "12.80"),
               Placed(Line(3, 1, 3, "Of no group", "Summit"), 0, 12.9f, "12.90")}}});
  const ResultGroups groups{{"11-12", "13-14", "15-16"}, {{1, 1}, {2, 0}}};
  const Section section = ResultsSection(sheet, groups, false);
  ASSERT_EQ(section.parts.size(), 3u);
  EXPECT_EQ(section.parts[0].heading, "11-12");
  EXPECT_EQ(Cells(section.parts[0], "name"), Texts{"Younger"});
  EXPECT_EQ(Cells(section.parts[1], "name"), Texts{"Older"});
  EXPECT_EQ(section.parts[2].heading, "");
  EXPECT_EQ(Cells(section.parts[2], "name"), Texts{"Of no group"});
}

}  // namespace
}  // namespace tarvex::reports
