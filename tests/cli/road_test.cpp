#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <sstream>

#include "base/csv.h"
#include "tests/cli/small_meet.h"

namespace tarvex::cli {
namespace {

// The road of a meet from its creation to its team scores. Every stage leaves a sound file, which Done()
// looks at.
class Road : public SmallMeetTest {
 protected:
  // One line a lane: "heat/lane number [seed] mark place/heatplace points".
  static std::string Sheet(const json& sheet) {
    std::ostringstream text;
    for (const json& heat : sheet["heats"]) {
      for (const json& lane : heat["lanes"]) {
        text << heat["heat"] << "/" << lane["lane_text"].get<std::string>() << " " << lane["comp_no"] << " ["
             << lane["seed_text"].get<std::string>() << "] " << lane["mark_text"].get<std::string>() << " "
             << lane["place"] << "/" << lane["heatplace"] << " " << lane["points"] << "\n";
      }
    }
    return text.str();
  }
  static std::string Scores(const json& scores) {
    std::ostringstream text;
    for (const json& row : scores["rows"]) {
      text << row["gender"].get<std::string>() << row["place"] << " " << row["team_abbr"].get<std::string>()
           << " " << row["team_name"].get<std::string>() << " " << row["points"] << "\n";
    }
    return text.str();
  }
  static std::string Statuses(const json& events) {
    std::string text;
    for (const json& row : events["rows"]) {
      text += row["event_stat"].get<std::string>() + " " + row["status"].get<std::string>() + "\n";
    }
    return text;
  }
  void Score() const {
    Import(meet_);
    Seed(meet_);
    EnterResults(meet_);
    Done({"score", meet_, "--all"});
  }
};

TEST_F(Road, ImportCountsWhatItMade) {
  Done({"create", meet_});
  const json document = Done({"import", meet_, File("entries.csv", kSmallMeet)});
  EXPECT_EQ(FieldsOf(document), "athletes entries events messages relays rows teams");
  EXPECT_EQ(document["teams"], 3);
  EXPECT_EQ(document["athletes"], 12);  // ten in the dash and two who only run the relay
  EXPECT_EQ(document["events"], 3);
  EXPECT_EQ(document["entries"], 13);
  EXPECT_EQ(document["relays"], 3);
  ASSERT_EQ(document["rows"].size(), 16U);
  EXPECT_EQ(document["rows"][0], json({{"line", 2}, {"fate", "added"}, {"reason", ""}}));
}

TEST_F(Road, EventsAreListedWithTheirEntries) {
  Import(meet_);
  const json rows = Done({"events", meet_})["rows"];
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(FieldsOf(rows[0]), "entries event_ltr event_no event_rounds event_stat name status");
  EXPECT_EQ(rows[0]["event_no"], 1);
  EXPECT_EQ(rows[0]["event_ltr"], "");
  EXPECT_EQ(rows[0]["name"], "Boys 100 Meter Dash");  // a new meet is one of a US high school
  EXPECT_EQ(rows[0]["event_rounds"], 1);
  EXPECT_EQ(rows[0]["status"], "Unseeded");
  EXPECT_EQ(rows[0]["entries"], 10);
  EXPECT_EQ(rows[1]["name"], "Boys Long Jump");
  EXPECT_EQ(rows[2]["name"], "Boys 4x100 Meter Relay");
  EXPECT_EQ(rows[2]["entries"], 3);
}

// Ten in eight lanes are two sections of five, the faster first, in lanes 4 5 3 6 2 by seed.
TEST_F(Road, StartListHasTheBestInTheMiddle) {
  Import(meet_);
  Seed(meet_);
  const json sheet = Done({"start-list", meet_, "1"});
  EXPECT_EQ(FieldsOf(sheet), "event_ltr event_no heats messages name round");
  EXPECT_EQ(sheet["round"], "F");
  EXPECT_EQ(FieldsOf(sheet["heats"][0]), "heat lanes wind");
  EXPECT_EQ(FieldsOf(sheet["heats"][0]["lanes"][0]),
            "ath_no comp_no heatplace jdheatplace jdplace lane lane_text mark mark_text name place points "
            "seed_text stat team_abbr");
  EXPECT_EQ(Sheet(sheet),
            "1/2 22 [10.80]  0/0 0\n1/3 31 [10.65]  0/0 0\n1/4 11 [10.50]  0/0 0\n1/5 21 [10.60]  0/0 0\n"
            "1/6 12 [10.70]  0/0 0\n"
            "2/2 34 [NT]  0/0 0\n2/3 23 [11.00]  0/0 0\n2/4 13 [10.90]  0/0 0\n2/5 32 [10.95]  0/0 0\n"
            "2/6 33 [11.20]  0/0 0\n");
  const json relay = Done({"start-list", meet_, "3"})["heats"][0]["lanes"];
  ASSERT_EQ(relay.size(), 3U);
  EXPECT_EQ(relay[1]["name"], "Canada A");
  EXPECT_EQ(relay[1]["lane"], 4);
  EXPECT_EQ(FieldsOf(relay[1]),
            "comp_no heatplace jdheatplace jdplace lane lane_text mark mark_text name place points relay_no "
            "seed_text stat team_abbr");
}

TEST_F(Road, SameDrawSeedsAlike) {
  Import(meet_);
  Done({"settings", meet_, "timedfinal_randrule=B"});  // lanes are drawn
  Seed(meet_);
  const std::string first = Sheet(Done({"start-list", meet_, "1"}));
  Done({"seed", meet_, "1", "--draw-seed", "8", "--no-prompt"});
  EXPECT_NE(Sheet(Done({"start-list", meet_, "1"})), first);
  Done({"seed", meet_, "1", "--draw-seed", "7", "--no-prompt"});
  EXPECT_EQ(Sheet(Done({"start-list", meet_, "1"})), first);
}

// The hand time counts with 0.24 s more: 10.74 (NFHS).
TEST_F(Road, ResultsArePlacedOverallAndInTheirHeats) {
  Import(meet_);
  Seed(meet_);
  EnterResults(meet_);
  const json dash = Done({"results", meet_, "1"});
  EXPECT_EQ(Sheet(dash),
            "1/2 22 [10.80] 10.74h 4/4 0\n1/3 31 [10.65] 10.60 3/3 0\n1/4 11 [10.50] 10.45 1/1 0\n"
            "1/5 21 [10.60] 10.45 1/1 0\n1/6 12 [10.70] DNF 0/0 0\n"
            "2/2 34 [NT] DNS 0/0 0\n2/3 23 [11.00] DQ 0/0 0\n2/4 13 [10.90] 10.80 5/1 0\n"
            "2/5 32 [10.95] 10.90 6/2 0\n2/6 33 [11.20] 11.15 7/3 0\n");
  EXPECT_EQ(dash["heats"][0]["wind"], "+1.2");
  EXPECT_EQ(dash["heats"][1]["wind"], "-0.3");
  const json ernst = dash["heats"][0]["lanes"][0];
  EXPECT_EQ(ernst["name"], "Ernst, Émil");
  EXPECT_EQ(ernst["mark"], 10.74);
  EXPECT_EQ(dash["heats"][0]["lanes"][4]["stat"], "D");
  EXPECT_EQ(Statuses(Done({"events", meet_})), "A Finals Done\nA Finals Done\nA Finals Done\n");
}

TEST_F(Road, EventIsNotDoneWhileSomebodyHasNoResult) {
  Import(meet_);
  Seed(meet_);
  Done({"results", meet_, "1", "--enter", File("one.csv", "comp_no,mark\n11,10.45\n")});
  EXPECT_EQ(Done({"events", meet_})["rows"][0]["status"], "Finals Seeded");
  const json lanes = Done({"results", meet_, "1"})["heats"][0]["lanes"];
  EXPECT_EQ(lanes[2]["place"], 1);
  // A blank mark changes nothing, a wind is stored all the same.
  Done({"results", meet_, "1", "--enter", File("wind.csv", "comp_no,mark,wind\n11,,-2.0\n")});
  const json heat = Done({"results", meet_, "1"})["heats"][0];
  EXPECT_EQ(heat["lanes"][2]["mark"], 10.45);
  EXPECT_EQ(heat["wind"], "-2.0");
}

// 10 8 6 5 4 3 2 1 points; the two who tie for the first place share 10 + 8.
TEST_F(Road, TiedPlacesShareTheirPoints) {
  Import(meet_);
  Seed(meet_);
  EnterResults(meet_);
  const json document = Done({"score", meet_, "--all"});
  ASSERT_EQ(document["messages"].size(), 2U);
  EXPECT_EQ(document["messages"][0]["text"], "Event 1:");  // one of several
  EXPECT_EQ(document["messages"][1]["number"], 9362);
  EXPECT_EQ(document["messages"][1]["text"],
            "There is a tie.\nIf you wish to break the tie, use the JD button, and then score again.");
  EXPECT_EQ(Sheet(Done({"results", meet_, "1"})),
            "1/2 22 [10.80] 10.74h 4/4 5\n1/3 31 [10.65] 10.60 3/3 6\n1/4 11 [10.50] 10.45 1/1 9\n"
            "1/5 21 [10.60] 10.45 1/1 9\n1/6 12 [10.70] DNF 0/0 0\n"
            "2/2 34 [NT] DNS 0/0 0\n2/3 23 [11.00] DQ 0/0 0\n2/4 13 [10.90] 10.80 5/1 4\n"
            "2/5 32 [10.95] 10.90 6/2 3\n2/6 33 [11.20] 11.15 7/3 2\n");
  EXPECT_EQ(Statuses(Done({"events", meet_})), "S Scored\nS Scored\nS Scored\n");
}

// Canada 9 + 4, 10 in the jump, 10 in the relay; Germany 9 + 5 and 8; Italy 6 + 3 + 2 and 8 in the relay.
TEST_F(Road, TeamScoresAddUp) {
  Score();
  const json scores = Done({"scores", meet_});
  EXPECT_EQ(FieldsOf(scores["rows"][0]), "gender place points team_abbr team_name");
  EXPECT_EQ(Scores(scores),
            "M1 CAN Canada 33\nM2 GER Germany 22\nM3 ITA Italy 19\n"
            "C1 CAN Canada 33\nC2 GER Germany 22\nC3 ITA Italy 19\n");
  EXPECT_EQ(Scores(Done({"scores", meet_, "--gender", "M", "--thru", "1"})),
            "M1 GER Germany 14\nM2 CAN Canada 13\nM3 ITA Italy 11\n");
  EXPECT_EQ(Scores(Done({"scores", meet_, "--gender", "F"})), "");
}

TEST_F(Road, JudgesBreakTheTieAndTheNextScoringFollows) {
  Score();
  const json judged = Done({"jd", meet_, "1", "--set", "21", "place=1", "--set", "11", "place=2"});
  EXPECT_EQ(judged["heats"][0]["lanes"][3]["jdplace"], 1);
  EXPECT_EQ(judged["heats"][0]["lanes"][2]["jdplace"], 2);
  EXPECT_EQ(judged["heats"][0]["lanes"][2]["place"], 1);  // as measured
  EXPECT_EQ(Done({"score", meet_, "1"})["messages"], json::array());
  EXPECT_EQ(Scores(Done({"scores", meet_, "--gender", "M"})),
            "M1 CAN Canada 32\nM2 GER Germany 23\nM3 ITA Italy 19\n");
  Done({"jd", meet_, "1", "--reset"});
  Done({"score", meet_, "1"});
  EXPECT_EQ(Scores(Done({"scores", meet_, "--gender", "M"})),
            "M1 CAN Canada 33\nM2 GER Germany 22\nM3 ITA Italy 19\n");
}

TEST_F(Road, ReportsHoldTheResultsInEveryFormat) {
  Score();
  const CommandRun text = Run({"report", meet_, "results", "1"});
  EXPECT_EQ(text.code, 0) << text.err;
  EXPECT_NE(text.out.find("Event 1  Boys 100 Meter Dash"), std::string::npos) << text.out;
  EXPECT_NE(text.out.find("Ernst, Émil"), std::string::npos);
  EXPECT_EQ(text.out.find("Long Jump"), std::string::npos);

  const CommandRun csv = Run({"report", meet_, "results", "--format", "csv"});
  const CsvText read = ReadCsv(csv.out);
  ASSERT_TRUE(read.faults.empty());
  ASSERT_EQ(read.rows.size(), 16U);
  EXPECT_EQ(read.rows[0].Cell(*read.Column("mark")), "10.45");
  EXPECT_EQ(read.rows[0].Cell(*read.Column("points")), "9");
  EXPECT_EQ(read.rows[10].Cell(*read.Column("name")), "Adams, Al");
  EXPECT_EQ(read.rows[10].Cell(*read.Column("wind")), "2.4");

  const std::string page = Path("results.html");
  EXPECT_EQ(Run({"report", meet_, "results", "--format", "html", "-o", page}).code, 0);
  const std::string html = FileText(page);
  EXPECT_TRUE(html.starts_with("<!DOCTYPE html>"));
  EXPECT_TRUE(html.ends_with("</html>\n"));
  EXPECT_NE(html.find("Ernst, Émil"), std::string::npos);
  for (const char* kind : {"start-list", "team-scores", "entries", "meet-program"}) {
    for (const char* format : {"text", "html", "csv"}) {
      const CommandRun run = Run({"report", meet_, kind, "--format", format});
      EXPECT_EQ(run.code, 0) << kind << format << run.err;
      EXPECT_NE(run.out.find("Canada"), std::string::npos) << kind << format;
    }
  }
}

TEST_F(Road, PurgeStepsBackFromResultsToSeedingToEntries) {
  Score();
  Done({"purge", meet_, "1", "--results"});
  EXPECT_EQ(Done({"events", meet_})["rows"][0]["status"], "Finals Seeded");
  EXPECT_EQ(Done({"results", meet_, "1"})["heats"][0]["wind"], "");
  EXPECT_EQ(Scores(Done({"scores", meet_, "--gender", "M"})),
            "M1 CAN Canada 20\nM2 GER Germany 8\nM2 ITA Italy 8\n");
  Done({"purge", meet_, "1"});
  EXPECT_EQ(Done({"events", meet_})["rows"][0]["status"], "Unseeded");
  EXPECT_EQ(Done({"start-list", meet_, "1"})["heats"], json::array());
}

TEST_F(Road, ReseedAsksFirst) {
  Import(meet_);
  Seed(meet_);
  const std::string before = FileText(meet_);
  const CommandRun run = Run({"seed", meet_, "1", "--draw-seed", "8"});
  EXPECT_EQ(run.code, 3);
  EXPECT_TRUE(run.err.starts_with("Finals have already been seeded...\nProceed and re-seed ?\n")) << run.err;
  EXPECT_EQ(FileText(meet_), before);
  EXPECT_EQ(Run({"--answer", "yes", "seed", meet_, "1"}).code, 0);
  EXPECT_EQ(Run({"seed", meet_, "1", "--no-prompt"}).code, 0);
}

TEST_F(Road, DumpShowsEveryFieldInItsOwnType) {
  Score();
  const json athletes = Rows(meet_, "Athlete");
  ASSERT_EQ(athletes.size(), 12U);
  EXPECT_EQ(athletes[0]["birth_date"], "2006-03-09");
  EXPECT_EQ(athletes[1]["birth_date"], nullptr);
  EXPECT_EQ(athletes[0]["comp_no"], 11);
  EXPECT_EQ(athletes[0]["logical_1"], false);
  EXPECT_EQ(Rows(meet_, "ENTRY")[0]["fin_time"], 10.45);
  const json names = Run({"--json", "dump", meet_}).Document()["rows"];
  EXPECT_NE(std::find(names.begin(), names.end(), "Windreading"), names.end());
}

// Whether an independent reader's cell shows the value.
bool Agrees(const json& value, std::string_view cell) {
  if (value.is_null()) return cell.empty();
  if (value.is_boolean()) return cell == (value.get<bool>() ? "1" : "0");
  if (value.is_string()) return cell == value.get<std::string>();
  char* end = nullptr;
  const double number = std::strtod(std::string(cell).c_str(), &end);
  return !cell.empty() && std::abs(number - value.get<double>()) <= 1e-6 * std::max(1.0, std::abs(number));
}

TEST_F(Road, AnIndependentReaderSeesTheSameRows) {
  if (std::system("command -v mdb-export >/dev/null 2>&1") != 0)
    GTEST_SKIP() << "mdb-export is not installed";
  Score();
  for (const char* table : {"Entry", "Event", "Athlete", "Team", "Relay", "RelayNames", "Windreading"}) {
    const std::string csv = Path(std::string(table) + ".csv");
    const std::string command =
        "mdb-export -D %Y-%m-%d -T %Y-%m-%d '" + meet_ + "' " + table + " > '" + csv + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    const std::string text = FileText(csv);
    const CsvText read = ReadCsv(text);
    const json rows = Rows(meet_, table);
    ASSERT_EQ(read.rows.size(), rows.size()) << table;
    EXPECT_GT(rows.size(), 0U) << table;
    for (size_t r = 0; r < rows.size(); ++r) {
      EXPECT_EQ(read.header.size(), rows[r].size()) << table;
      for (const auto& [field, value] : rows[r].items()) {
        const auto column = read.Column(field);
        ASSERT_TRUE(column) << field;
        EXPECT_TRUE(Agrees(value, read.rows[r].Cell(*column)))
            << table << " row " << r << " " << field << ": " << value << " and "
            << read.rows[r].Cell(*column);
      }
    }
  }
}

// Real names, accents and marks. In each event the first on the list does as in the entry and nobody else
// starts, so each team has ten points for each of those.
TEST_F(Road, SampleMeetRunsToItsTeamScores) {
  const char* folder = std::getenv("TARVEX_SAMPLE_MEET");
  if (!folder) GTEST_SKIP() << "TARVEX_SAMPLE_MEET names no folder with entries.csv";
  const std::string entries = std::string(folder) + "/entries.csv";
  Done({"create", meet_});
  const json imported = Done({"import", meet_, entries});
  EXPECT_EQ(imported["events"], 18);
  EXPECT_EQ(imported["rows"].size(), 219U);
  EXPECT_EQ(imported["entries"].get<int>() + imported["relays"].get<int>(), 219);
  const std::string before = FileText(meet_);
  Done({"import", meet_, entries});
  EXPECT_EQ(FileText(meet_), before);
  Seed(meet_);
  std::map<std::string, double> expected;
  size_t listed = 0;
  for (int event = 1; event <= 18; ++event) {
    const std::string number = std::to_string(event);
    std::string results = "heat,lane,mark\n";
    bool is_first = true;
    const json sheet = Done({"start-list", meet_, number});
    for (const json& heat : sheet["heats"]) {
      for (const json& lane : heat["lanes"]) {
        const std::string mark = is_first ? lane["seed_text"].get<std::string>() : "NS";
        results += heat["heat"].dump() + "," + lane["lane_text"].get<std::string>() + "," + mark + "\n";
        if (is_first) expected[lane["team_abbr"]] += 10;
        is_first = false;
        ++listed;
      }
    }
    Done({"results", meet_, number, "--enter", File("results.csv", results)});
  }
  EXPECT_EQ(listed, 219U);
  Done({"score", meet_, "--all"});
  std::map<std::string, double> scored;
  const json scores = Done({"scores", meet_, "--gender", "C"});
  for (const json& row : scores["rows"]) scored[row["team_abbr"]] = row["points"];
  EXPECT_EQ(scored, expected);
}

}  // namespace
}  // namespace tarvex::cli
