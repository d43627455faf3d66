#include "reports/start_list.h"

#include <gtest/gtest.h>

#include "tests/reports/sheets.h"

namespace tarvex::reports {
namespace {

TEST(StartListSection, HasAPartForEachHeatInLaneOrder) {
  const running::RoundSheet sheet =
      Sheet({{1, "", {Line(1, 1, 3, "Ann Hay", "Northgate"), Line(2, 1, 4, "Eva Roe", "Summit")}},
             {2, "+0.4", {Line(3, 2, 4, "Ida Fox", "Summit")}}});
  const Section section = StartListSection(sheet, false);
  EXPECT_EQ(section.heading, "Event 12  Girls 100 Meter Dash");
  EXPECT_EQ(section.subheading, "");
  ASSERT_EQ(section.parts.size(), 2u);
  EXPECT_EQ(section.parts[0].heading, "Heat 1 of 2");
  EXPECT_EQ(section.parts[1].heading, "Heat 2 of 2   Wind: +0.4");
  EXPECT_EQ(Cells(section.parts[0], "lane"), (Texts{"3", "4"}));
  EXPECT_EQ(Cells(section.parts[0], "team_name"), (Texts{"Northgate", "Summit"}));
  EXPECT_EQ(Cells(section.parts[1], "comp_no"), Texts{"103"});
}

TEST(StartListSection, NamesTheRoundOfAnEventWithSeveral) {
  running::RoundSheet sheet = Sheet({{1, "", {Line(1, 1, 3, "Ann Hay", "Northgate")}}});
  sheet.event.event_rounds = 2;
  sheet.event.event_ltr = "B";
  sheet.round = setup::Round::Prelims;
  const Section section = StartListSection(sheet, false);
  EXPECT_EQ(section.heading, "Event 12B  Girls 100 Meter Dash");
  EXPECT_EQ(section.subheading, "Prelims");
}

TEST(StartListSection, CallsTheGroupsOfAFieldEventFlights) {
  running::RoundSheet sheet = Sheet({{1, "", {Line(1, 1, 1, "Ann Hay", "Northgate")}}});
  sheet.is_field = true;
  const Part part = StartListSection(sheet, false).parts.at(0);
  EXPECT_EQ(part.heading, "Flight 1 of 1");
  EXPECT_EQ(part.columns[0].heading, "Pos");
}

TEST(StartListSection, SaysThatARoundWithoutHeatsIsNotSeeded) {
  const Section section = StartListSection(Sheet({}), false);
  EXPECT_EQ(section.notes, Texts{"Not seeded yet."});
  EXPECT_TRUE(section.parts.empty());
}

TEST(StartListSection, ShowsTheSchoolYearOrElseTheAge) {
  running::SheetLine line = Line(1, 1, 3, "Ann Hay", "Northgate");
  line.age = 16;
  const auto year_cell = [&](bool suppress_age) {
    const Part part = StartListSection(Sheet({{1, "", {line}}}), suppress_age).parts.at(0);
    return part.columns[3].width == 0 ? "hidden" : part.columns[3].heading + " " + part.rows[0].cells[3];
  };
  EXPECT_EQ(year_cell(false), "Age 16");
  EXPECT_EQ(year_cell(true), "hidden");
  line.schl_yr = "11";
  EXPECT_EQ(year_cell(true), "Yr 11");
}

TEST(StartListSection, PutsTheRunnersBelowTheirRelay) {
  running::SheetLine line = Line(1, 1, 3, "Northgate A", "Northgate");
  line.runners = {"Ann Hay", "Eva Roe"};
  running::RoundSheet sheet = Sheet({{1, "", {line}}});
  sheet.is_relay = true;
  const Part part = StartListSection(sheet, false).parts.at(0);
  EXPECT_EQ(part.rows[0].details, (Texts{"1) Ann Hay", "2) Eva Roe"}));
  EXPECT_EQ(Cells(part, "runners"), Texts{"Ann Hay; Eva Roe"});
  EXPECT_FALSE(IsDrawn(part, "team_name"));  // the relay's name says it
}

TEST(StartListSection, LeavesNobodyWithASeedWhoIsScratched) {
  running::SheetLine line = Line(1, 1, 3, "Ann Hay", "Northgate");
  line.scratched = true;
  const Part part = StartListSection(Sheet({{1, "", {line}}}), false).parts.at(0);
  EXPECT_EQ(Cells(part, "seed_mark"), Texts{"SCR"});
  EXPECT_TRUE(part.rows[0].is_faint);
}

}  // namespace
}  // namespace tarvex::reports
