#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/csv.h"
#include "print/csv.h"
#include "print/html.h"
#include "print/text.h"

namespace tarvex::print {
namespace {

using reports::Part;
using reports::Report;
using reports::Section;

// One event of two heats with a relay's runners, accents, and every character that HTML or CSV treats
// specially; then a standing that is for people only.
Report Sample() {
  Part first;
  first.heading = "Heat 1 of 2";
  first.columns = {{"Ln", "lane", Align::Right, 4},
                   {"Name", "name", Align::Left, 30},
                   {"", "team_abbr", Align::Left, 0},
                   {"Seed", "seed_mark", Align::Right, 12},
                   {"Yr", "", Align::Right, 4}};
  first.context = {{"event_no", "12"}, {"heat", "1"}};
  first.rows = {{{"3", "Zoë Müller", "NOR", "12.30", "11"}, {}, false},
                {{"10", "O'Hara, \"Al\" <A&B>", "SUM", "NT", "9"}, {"1) Ann Hay", "2) Eva Roe"}, true}};
  Part second = first;
  second.heading = "Heat 2 of 2";
  second.context[1].value = "2";
  second.rows = {{{"4", "Li"}, {}, false}};
  Part standing;
  standing.columns = {{"Team", "team_name", Align::Left, 20}};
  standing.rows = {{{"Summit"}, {}, false}};
  standing.is_aside = true;
  Report report;
  report.title = "Start Lists";
  report.meet_name = {"Spring & Summer Games"};
  report.data_keys = {"event_no", "event_ltr"};
  report.sections.push_back(
      {"Event 12  Girls 100 Meter Dash", "Prelims", {}, {first, second, standing}, false});
  report.sections.push_back({"Event 13  Girls <Mixed>", "", {"Not seeded yet."}, {}, true});
  return report;
}

TEST(ToText, AlignsByCharactersAndAlikeInAllTablesOfASection) {
  EXPECT_EQ(ToText(Sample()),
            "Spring & Summer Games\n"
            "\n"
            "Start Lists\n"
            "===========\n"
            "\n"
            "Event 12  Girls 100 Meter Dash  Prelims\n"
            "---------------------------------------\n"
            "  Heat 1 of 2\n"
            "  Ln  Name                 Seed  Yr\n"
            "   3  Zoë Müller          12.30  11\n"
            "  10  O'Hara, \"Al\" <A&B>     NT   9\n"
            "            1) Ann Hay  2) Eva Roe\n"
            "\n"
            "  Heat 2 of 2\n"
            "  Ln  Name                 Seed  Yr\n"
            "   4  Li\n"
            "\n"
            "  Team\n"
            "  Summit\n"
            "\fEvent 13  Girls <Mixed>\n"
            "-----------------------\n"
            "  Not seeded yet.\n");
}

TEST(ToText, BreaksLongDetailsAndKeepsRowsOnOneLine) {
  Report report = Sample();
  reports::Row& row = report.sections[0].parts[0].rows[0];
  row.cells[1] = "Two\nlines";
  row.details = {std::string(50, 'a'), std::string(50, 'b')};
  const std::string text = ToText(report);
  EXPECT_NE(text.find("Two lines"), std::string::npos);
  const std::string indent(12, ' ');
  EXPECT_NE(text.find("\n" + indent + std::string(50, 'a') + "\n" + indent + std::string(50, 'b') + "\n"),
            std::string::npos);
}

TEST(ToCsv, IsOneTableWithWhatTheHeadingsSay) {
  EXPECT_EQ(ToCsv(Sample()),
            "event_no,event_ltr,heat,lane,name,team_abbr,seed_mark\r\n"
            "12,,1,3,Zoë Müller,NOR,12.30\r\n"
            "12,,1,10,\"O'Hara, \"\"Al\"\" <A&B>\",SUM,NT\r\n"
            "12,,2,4,Li,,\r\n");
}

TEST(ToCsv, HasItsHeaderEvenWithoutRows) {
  Report report;
  report.data_keys = {"gender", "place"};
  EXPECT_EQ(ToCsv(report), "gender,place\r\n");
}

// The names of the tags that are open where the page ends, or the tag that closes another than the last
// opened one. Also looks for an unescaped "<" or "&" in text.
std::string WhatIsNotWellFormed(std::string_view html) {
  const std::set<std::string, std::less<>> kVoid = {"meta", "col", "!DOCTYPE"};
  std::vector<std::string> open;
  for (size_t at = html.find('<'); at != std::string_view::npos; at = html.find('<', at)) {
    const size_t end = html.find('>', at);
    if (end == std::string_view::npos) return "a tag without end";
    std::string_view tag = html.substr(at + 1, end - at - 1);
    if (tag.find('<') != std::string_view::npos) return "a stray <";
    at = end;
    const bool closes = tag.starts_with('/');
    if (closes) tag.remove_prefix(1);
    const std::string name(tag.substr(0, tag.find(' ')));
    if (kVoid.contains(name)) continue;
    if (!closes) {
      open.push_back(name);
    } else if (open.empty() || open.back() != name) {
      return "closed out of order: " + name;
    } else {
      open.pop_back();
    }
  }
  for (size_t at = html.find('&'); at != std::string_view::npos; at = html.find('&', at + 1)) {
    const size_t end = html.find(';', at);
    if (end == std::string_view::npos || end - at > 6) return "a stray &";
  }
  return open.empty() ? "" : "left open: " + open.back();
}

TEST(ToHtml, IsWellFormedWhateverTheTextsHold) {
  Report report = Sample();
  report.sections.push_back({"</section>", "<b>", {"<script>alert(1)</script>"}, {}, false});
  const std::string html = ToHtml(report);
  EXPECT_EQ(WhatIsNotWellFormed(html), "");
  EXPECT_EQ(html.find("<script"), std::string::npos);
  EXPECT_NE(html.find("O&#39;Hara, &quot;Al&quot; &lt;A&amp;B&gt;"), std::string::npos);
}

TEST(ToHtml, NamesRowsAndColumns) {
  const std::string html = ToHtml(Sample());
  EXPECT_NE(html.find("<caption>Heat 1 of 2</caption>"), std::string::npos);
  EXPECT_NE(html.find("<th scope=\"col\" class=\"r\">Seed</th>"), std::string::npos);
  EXPECT_NE(html.find("<th scope=\"row\" class=\"wrap\">Zoë Müller</th>"), std::string::npos);
  EXPECT_EQ(html.find("NOR"), std::string::npos);  // data only
  EXPECT_NE(html.find("<section id=\"s2\" class=\"page\">"), std::string::npos);
}

TEST(Escaped, ReplacesControlCharacters) {
  EXPECT_EQ(Escaped(std::string("a\x01"
                                "b\n",
                                4)),
            "a b ");
}

}  // namespace
}  // namespace tarvex::print
