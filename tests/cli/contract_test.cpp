#include <sys/stat.h>
#include <unistd.h>

#include "base/platform.h"
#include "cli/command_line.h"
#include "jet/database.h"
#include "tests/cli/small_meet.h"

namespace tarvex::cli {
namespace {

using Words = std::vector<std::string>;

constexpr double kSomeDay = 45422;

class Contract : public SmallMeetTest {
 protected:
  void SetUp() override {
    Import(meet_);
    Seed(meet_);
    EnterResults(meet_);
    before_ = FileText(meet_);
  }

  // Runs a line of words, MEET standing for the meet database and HERE for the folder.
  CommandRun RunLine(const std::string& line) const {
    Words words;
    std::string word;
    for (const char c : line + " ") {
      if (c != ' ') {
        word += c;
        continue;
      }
      for (const auto& [name, value] : {std::pair("MEET", meet_), std::pair("HERE", folder_.string())}) {
        if (const size_t at = word.find(name); at != std::string::npos) word.replace(at, 4, value);
      }
      if (!word.empty()) words.push_back(word);
      word.clear();
    }
    return Run(words);
  }
  // The code and what is told; nothing may be written.
  void ExpectRefused(const std::string& line, int code, std::string_view text) const {
    const CommandRun run = RunLine(line);
    EXPECT_EQ(run.code, code) << line << "\n" << run.err;
    EXPECT_NE(run.err.find(text), std::string::npos) << line << "\n" << run.err;
    EXPECT_EQ(run.out, "") << line;
    EXPECT_TRUE(FileText(meet_) == before_) << line << " has written";
  }
  void ExpectUnchanged(const std::string& what) const {
    EXPECT_TRUE(FileText(meet_) == before_) << what << " has written";
  }

  std::string before_;
};

struct RefusedLine {
  const char* line;
  int code;
  const char* text;
};

constexpr RefusedLine kWrongUsages[] = {
    {"", kWrongUsage, "subcommand is required"},
    {"nonsense MEET", kWrongUsage, "Run with --help"},
    {"events", kWrongUsage, "MEET.mdb is required"},
    {"events MEET --bogus", kWrongUsage, "--bogus"},
    {"--answer maybe events MEET", kWrongUsage, "maybe"},
    {"seed MEET", kWrongUsage, "Name the events, or say --all."},
    {"score MEET", kWrongUsage, "Name the events, or say --all."},
    {"seed MEET 1 --round Z", kWrongUsage, "--round"},
    {"seed MEET 1 --draw-seed x", kWrongUsage, "--draw-seed"},
    {"start-list MEET", kWrongUsage, "EVENT is required"},
    {"scores MEET --gender Q", kWrongUsage, "--gender"},
    {"report MEET nonsense", kWrongUsage, "KIND"},
    {"report MEET results --format nonsense", kWrongUsage, "--format"},
    {"event MEET frob 1", kWrongUsage, "ACTION"},
    {"team MEET set CAN team_name", kWrongUsage, "Fields are given as FIELD=VALUE"},
    {"jd MEET 1 --set place=1", kWrongUsage, "--set KEY"},
    {"import MEET HERE/none.csv", kWrongUsage, "The input file cannot be read: "},
    {"import MEET HERE", kWrongUsage, "The input file cannot be read: "},
    {"results MEET 1 --enter HERE/none.csv", kWrongUsage, "The input file cannot be read: "},
    {"--settings HERE/none.ini events MEET", kWrongUsage, "The input file cannot be read: "},
};

TEST_F(Contract, WrongUsageIsTwo) {
  for (const RefusedLine& c : kWrongUsages) ExpectRefused(c.line, c.code, c.text);
}

constexpr RefusedLine kRefusals[] = {
    {"start-list MEET 99", kRefused, "There is no event 99."},
    {"results MEET 1Z", kRefused, "There is no event 1Z."},
    {"seed MEET 1 99", kRefused, "There is no event 99."},
    {"score MEET 99", kRefused, "There is no event 99."},
    {"purge MEET 99", kRefused, "There is no event 99."},
    {"report MEET results 99", kRefused, "There is no event 99."},
    {"start-list MEET abc", kRefused, "Invalid event number"},
    {"start-list MEET 0", kRefused, "Event number range is 1 to 999 !"},
    {"start-list MEET 1 --round P", kRefused, "The event has no round P."},
    {"settings MEET Nofield", kRefused, "There is no field Nofield in the table Meet"},
    {"settings MEET Nofield=3", kRefused, "There is no field Nofield in the table Meet"},
    {"settings MEET meet_numlanes=abc", kRefused, "meet_numlanes: please give a whole number"},
    {"dump MEET Nope", kRefused, "The file has no table Nope."},
    {"event MEET set 1 nofield=3", kRefused, "There is no field nofield in the table Event"},
    {"event MEET add 1 event_sex=M", kRefused, ""},
    {"event MEET delete 1", kRefused, "Entries have been entered in this event."},
    {"athlete MEET set 999 last_name=X", kRefused, "Not found: 999"},
    {"team MEET delete CAN", kRefused, "The team has athletes or relays."},
    {"entry MEET set 2:999 mark=7.00", kRefused, "Not found: "},
    {"scratch MEET 1 999", kRefused, "Not found: 999"},
    {"jd MEET 1 --set 999 place=1", kRefused, "999"},
    {"jd MEET 1 --set 11 place=99", kRefused, "JD Places must be a number from 0 to"},
    {"points MEET --default 2", kRefused, "Please select at least 3 places for scoring."},
    {"points MEET --set 1=x", kRefused, "Points are given as PLACE=INDIVIDUAL,RELAY,COMBINED"},
    {"seed MEET 1", kRefused, "is done. Purge its results before seeding it again."},
    {"create MEET", kRefused, "There is already a file "},
    {"create HERE/new.txt", kRefused, "new.txt, Invalid File Extension"},
    {"events HERE/entries.csv", kRefused, "entries.csv, Invalid File Extension"},
    {"open HERE/entries.csv", kRefused, "entries.csv, Invalid File Extension"},
    {"events A:/meet.mdb", kRefused, "Opening a Tarvex database from the A or B drive is not permitted !"},
    {"create b:\\meet.mdb", kRefused, "Opening a Tarvex database from the A or B drive is not permitted !"},
};

TEST_F(Contract, RefusalIsOne) {
  for (const RefusedLine& c : kRefusals) ExpectRefused(c.line, c.code, c.text);
  EXPECT_FALSE(std::filesystem::exists(Path("new.txt")));
}

TEST_F(Contract, MessagesStandInTheDocumentToo) {
  const CommandRun run = RunLine("--json start-list MEET 99");
  EXPECT_EQ(run.code, kRefused);
  const json document = run.Document();
  ASSERT_EQ(document["messages"].size(), 1U);
  EXPECT_EQ(FieldsOf(document["messages"][0]), "number text");
  EXPECT_EQ(document["messages"][0]["text"], "There is no event 99.");
}

constexpr const char* kQuestions[] = {
    "seed MEET 3",   // seeded already
    "purge MEET 1",  // has results
    "score MEET 2",  // not set up to score
    "division MEET delete 2",
    "import MEET HERE/fast.csv",
    "results MEET 1 --enter HERE/slow.csv",
};

class Questions : public Contract {
 protected:
  void SetUp() override {
    Contract::SetUp();
    Done({"purge", meet_, "3", "--results"});
    Done({"event", meet_, "set", "2", "score_event=no"});
    before_ = FileText(meet_);
    File("fast.csv",
         "event_no,last_name,first_name,ath_sex,team_abbr,seed_mark\n1,Fast,Al,M,CAN,5.00\n"
         "1,Faster,Bo,M,CAN,4.00\n");
    File("slow.csv", "comp_no,mark\n11,59:00.00\n");
  }
};

TEST_F(Questions, LeftUnansweredAreThreeAndNothingIsWritten) {
  for (const char* line : kQuestions) {
    ExpectRefused(line, kUnanswered, "The question above was left unanswered and nothing was written.");
    ExpectRefused("--answer ask " + std::string(line), kUnanswered, "?");
  }
}

TEST_F(Questions, NoLeavesEverythingAsItWas) {
  for (const char* line :
       {"seed MEET 3", "purge MEET 1", "import MEET HERE/fast.csv", "results MEET 1 --enter HERE/slow.csv"}) {
    ExpectRefused("--answer no " + std::string(line), kRefused, "?");
    // A box without Cancel takes it for No.
    ExpectRefused("--answer cancel " + std::string(line), kRefused, "?");
  }
  ExpectRefused("--answer cancel score MEET 2", kRefused, "Cancel = Do not list or score this event.");
}

TEST_F(Questions, YesGoesOn) {
  for (const char* line : {"seed MEET 3", "purge MEET 1", "score MEET 2", "import MEET HERE/fast.csv",
                           "division MEET delete 2"}) {
    const CommandRun run = RunLine("--answer yes " + std::string(line));
    EXPECT_EQ(run.code, kDone) << line << run.err;
    EXPECT_FALSE(FileText(meet_) == before_) << line;
    EXPECT_EQ(ErrorsIn(meet_), "") << line;
    before_ = FileText(meet_);
  }
}

// No to "Change event scoring to yes" lists the results without points.
TEST_F(Questions, NoToScoringListsTheEvent) {
  EXPECT_EQ(RunLine("--answer no score MEET 2").code, kDone);
  const json sheet = RunLine("--json results MEET 2").Document();
  for (const json& lane : sheet["heats"][0]["lanes"]) EXPECT_EQ(lane["points"], 0);
}

TEST_F(Questions, MarksOutOfRangeAreAskedAboutOnceForAllRows) {
  const CommandRun run = RunLine("--answer yes --json import MEET HERE/fast.csv");
  EXPECT_EQ(run.code, kDone) << run.err;
  int asked = 0;
  const json document = run.Document();
  for (const json& message : document["messages"]) {
    const std::string text = message["text"];
    if (text.find('?') == std::string::npos) continue;
    ++asked;
    EXPECT_TRUE(text.starts_with("Marks entered are out of range for their events: 2")) << text;
  }
  EXPECT_EQ(asked, 1);
}

TEST_F(Contract, RepliesMayBeGivenSeveralTimes) {
  EXPECT_EQ(RunLine("--reply 8 --reply 9 events MEET").code, kDone);
}

TEST_F(Contract, OptionThatStatesItsAnswerIsNotAsked) {
  EXPECT_EQ(RunLine("points MEET --default 8").code, kDone);
  Done({"purge", meet_, "3", "--results"});
  EXPECT_EQ(RunLine("seed MEET 3 --no-prompt").code, kDone);
}

// One run is done when one event is.
TEST_F(Contract, SkippedEventsAreToldAndTheOthersDone) {
  Done({"event", meet_, "add", "7", "event_gender=M", "event_stroke=A", "event_dist=200"});
  Done({"purge", meet_, "3", "--results"});
  const CommandRun seeded = RunLine("seed MEET 1 7 3 --no-prompt --draw-seed 3");
  EXPECT_EQ(seeded.code, kDone) << seeded.err;
  EXPECT_NE(seeded.err.find("Event 1 is done."), std::string::npos) << seeded.err;
  EXPECT_NE(seeded.err.find("Event 7 has no entries to seed."), std::string::npos) << seeded.err;
  EXPECT_NE(seeded.err.find("Number of events seeded = 1"), std::string::npos) << seeded.err;

  const CommandRun scored = RunLine("score MEET 1 3 7 2");
  EXPECT_EQ(scored.code, kDone) << scored.err;
  EXPECT_NE(scored.err.find("Event 7 has not been seeded."), std::string::npos) << scored.err;
  EXPECT_NE(scored.err.find("Event 3 has no results to score."), std::string::npos) << scored.err;
  const json document = RunLine("--json events MEET").Document();
  const json& rows = document["rows"];
  EXPECT_EQ(rows[0]["event_stat"], "S");
  EXPECT_EQ(rows[1]["event_stat"], "S");
  EXPECT_EQ(rows[2]["status"], "Finals Seeded");
  EXPECT_EQ(rows[3]["status"], "Unseeded");
}

TEST_F(Contract, PreviewAndDryRunWriteNothing) {
  Done({"purge", meet_, "1", "--results"});
  before_ = FileText(meet_);
  const json preview = RunLine("--json seed MEET 1 --preview --draw-seed 9").Document();
  EXPECT_EQ(preview["rows"].size(), 10U);
  ExpectUnchanged("seed --preview");
  File("more.csv", "event_no,last_name,first_name,ath_sex,team_abbr\n2,More,Moe,M,CAN\n");
  const json dry = RunLine("--json import MEET HERE/more.csv --dry-run").Document();
  EXPECT_EQ(dry["entries"], 1);
  EXPECT_EQ(dry["rows"][0]["fate"], "added");
  ExpectUnchanged("import --dry-run");
}

TEST_F(Contract, ImportingTwiceWritesNothing) {
  const CommandRun run = RunLine("--json import MEET HERE/entries.csv");
  EXPECT_EQ(run.code, kDone) << run.err;
  const json document = run.Document();
  for (const json& row : document["rows"]) EXPECT_EQ(row["fate"], "unchanged") << row;
  ExpectUnchanged("import");
}

// What is told of a faulty file, which the meet must not notice.
struct FaultyFile {
  const char* text;
  const char* told;
};

constexpr std::string_view kPlainRow = "2,Sound,Sam,M,CAN,6.20";

std::string UnderPlainHeader(std::initializer_list<std::string_view> rows) {
  std::string text = "event_no,last_name,first_name,ath_sex,team_abbr,seed_mark\n";
  for (const std::string_view row : rows) text.append(row).append("\n");
  return text;
}

constexpr FaultyFile kFaultyHeaders[] = {
    {"", "Nothing was imported."},
    {"event_no,last_name,team_abbr,shoe_size\n1,A,CAN,9\n", "Line 1: unknown column shoe_size"},
    {"event_no,last_name\n1,A\n", "Line 1: missing column team_abbr"},
    {"event_no,team_abbr\n1,CAN\n", "Line 1: missing column last_name"},
    {"last_name,team_abbr\nA,CAN\n", "Line 1: missing column event_no"},
    {"event_sex,last_name,team_abbr\nM,A,CAN\n", "Line 1: missing column kind"},
    {"event_no,last_name,LAST_NAME,team_abbr\n1,A,A,CAN\n", "line 1, column 3"},
};

// All in line 3, behind a sound row.
constexpr FaultyFile kFaultyRows[] = {
    {"2,Adams,Al,M,CAN,7.20,more", "line 3, column 7"},
    {"2,\"Adams,Al,M,CAN,7.20", "line 3, column 2 (last_name)"},
    {"2,\"Ad\"ams,Al,M,CAN,7.20", "line 3, column 2 (last_name)"},
    {"2,Ad\"ams,Al,M,CAN,7.20", "line 3, column 2 (last_name)"},
    {"2,Ad\xFF"
     "ams,Al,M,CAN,7.20",
     "line 3, column 2 (last_name)"},
    {"two,Adams,Al,M,CAN,7.20", "Line 3, column event_no: "},
    {"2,Adams,Al,Z,CAN,7.20", "Line 3, column ath_sex: cannot read the value Z"},
    {"2,Adams,Al,M,CAN,far", "Line 3, column seed_mark: "},
    {"2,Adams-Who-Is-Far-Too-Long,Al,M,CAN,7.20", "Line 3, column last_name: the text is too long"},
    {"2,Adams,Al-Who-Is-Also-Far-Too-Long,M,CAN,7.20", "Line 3, column first_name: the text is too long"},
    {"2,Adams,Al,M,CANADA-TEAM,7.20", "Line 3, column team_abbr: the text is too long"},
    {"2,,Al,M,CAN,7.20", "Line 3, column last_name: the value is missing"},
    {"2,Adams,Al,M,,7.20", "Line 3, column team_abbr: the value is missing"},
    {",Adams,Al,M,CAN,7.20", "Line 3, column "},
    {"2,New,Ann,F,CAN,5.20", "Line 3, column last_name: The sex does not fit the event"},
    {"3,New,Ned,M,CAN,", "Line 3, column "},
    {"55,New,Ned,M,CAN,", "Line 3, column "},
};

// With the columns of their own, all in line 2.
constexpr FaultyFile kFaultyOthers[] = {
    {"event_no,event_sex,distance,kind,last_name,team_abbr\n1,M,200,Dash,New,CAN\n",
     "Line 2, column distance: this is otherwise in event 1"},
    {"event_no,event_sex,distance,kind,last_name,team_abbr\n1,F,100,Dash,New,CAN\n",
     "Line 2, column event_sex: "},
    {"event_no,event_sex,distance,kind,last_name,team_abbr\n1,M,100,Hurdles,New,CAN\n",
     "Line 2, column kind: "},
    {"event_no,event_sex,distance,kind,last_name,team_abbr\n1,M,100,Waltz,New,CAN\n",
     "Line 2, column kind: Unknown event kind"},
    {"event_no,event_sex,distance,kind,last_name,team_abbr\n8,M,far,Dash,New,CAN\n",
     "Line 2, column distance: cannot read the value far"},
    {"event_no,event_sex,distance,kind,rounds,last_name,team_abbr\n8,M,100,Dash,5,New,CAN\n",
     "Line 2, column rounds: cannot read the value 5"},
    {"event_no,last_name,team_abbr,birth_date\n1,New,CAN,13/12/2005\n", "Line 2, column birth_date: "},
    {"event_no,last_name,team_abbr,birth_date\n1,New,CAN,2005-02-30\n", "Line 2, column birth_date: "},
    {"event_no,last_name,team_abbr,age\n1,New,CAN,200\n", "Line 2, column age: "},
    {"event_no,last_name,team_abbr,comp_no\n1,New,CAN,11\n",
     "Line 2, column comp_no: the competitor number belongs to Adams, Al"},
    {"event_no,last_name,team_abbr,comp_no\n1,New,CAN,-5\n", "Line 2, column comp_no: "},
    {"event_no,last_name,team_abbr,seed_mark,seed_unit\n2,New,CAN,7.00,Q\n", "Line 2, column seed_unit: "},
    {"event_no,last_name,team_abbr,exhibition\n2,New,CAN,perhaps\n", "Line 2, column exhibition: "},
    {"event_no,last_name,team_abbr,division\n2,New,CAN,ZZ\n",
     "Line 2, column division: there is no division ZZ"},
    {"event_no,last_name,team_abbr,team_name\n2,New,CAN,Chad\n",
     "Line 2, column team_name: this is otherwise for the team Canada"},
    {"event_no,last_name,team_abbr,relay_ltr\n3,,CAN,AB\n", "Line 2, column relay_ltr: "},
    {"event_no,last_name,team_abbr,relay_ltr\n3,New,CAN,B\n",
     "Line 2, column last_name: the row of a relay has no athlete's name"},
    {"event_no,last_name,team_abbr,relay_ltr\n2,,CAN,B\n",
     "Line 2, column relay_ltr: this is no relay event: 2"},
    {"event_no,last_name,team_abbr,leg_1\n2,New,CAN,11\n", "Line 2, column leg_1: only a relay has legs"},
    {"event_no,team_abbr,relay_ltr,leg_1\n3,CAN,B,999\n",
     "Line 2, column leg_1: nobody has the competitor number"},
    {"event_no,team_abbr,relay_ltr,leg_1\n3,CAN,B,21\n", "Line 2, column leg_1: "},
    {"event_no,team_abbr,relay_ltr,leg_1,leg_2\n3,FRA,A,\"Neu, Ned\",\"neu, ned\"\n",
     "Line 2, column leg_2: "},
};

class FaultyFiles : public Contract {
 protected:
  void ExpectFault(const std::string& text, std::string_view told) const {
    const std::string file = File("faulty.csv", text);
    for (const Words& words :
         {Words{"import", meet_, file}, Words{"--answer", "yes", "import", meet_, file}}) {
      const CommandRun run = Run(words);
      EXPECT_EQ(run.code, kRefused) << text << run.err;
      EXPECT_NE(run.err.find(told), std::string::npos) << text << "\n" << run.err;
      EXPECT_TRUE(FileText(meet_) == before_) << text << " was imported";
    }
  }
};

TEST_F(FaultyFiles, EveryFaultIsToldWithItsPlaceAndNothingIsImported) {
  for (const FaultyFile& c : kFaultyHeaders) ExpectFault(c.text, c.told);
  for (const FaultyFile& c : kFaultyRows) {
    ExpectFault(UnderPlainHeader({kPlainRow, c.text}), c.told);
  }
  for (const FaultyFile& c : kFaultyOthers) ExpectFault(c.text, c.told);
}

TEST_F(FaultyFiles, SameAthleteTwiceInAnEventIsAFault) {
  ExpectFault(UnderPlainHeader({"2,New,Ned,M,CAN,6.00", "2,new,NED,M,can,6.10"}), "Line 3, column ");
}

TEST_F(FaultyFiles, SkippedRowsAreListedAndTheOthersImported) {
  File("mixed.csv", UnderPlainHeader({"2,New,Ned,M,CAN,far", "2,Newer,Nat,M,CAN,6.00"}));
  const CommandRun run = RunLine("--json import MEET HERE/mixed.csv --skip-bad");
  EXPECT_EQ(run.code, kDone) << run.err;
  const json document = run.Document();
  ASSERT_EQ(document["rows"].size(), 2U);
  EXPECT_EQ(document["rows"][0]["line"], 2);
  EXPECT_EQ(document["rows"][0]["fate"], "fault");
  EXPECT_NE(document["rows"][0]["reason"], "");
  EXPECT_EQ(document["rows"][1]["fate"], "added");
  EXPECT_EQ(document["entries"], 1);

  before_ = FileText(meet_);
  File("bad.csv", UnderPlainHeader({"2,New,Ned,M,CAN,far"}));
  EXPECT_EQ(RunLine("import MEET HERE/bad.csv --skip-bad").code, kRefused);
  ExpectUnchanged("import --skip-bad");
}

TEST_F(FaultyFiles, SemicolonsAByteOrderMarkAndQuotesAreRead) {
  File("sheet.csv",
       "\xEF\xBB\xBFTEAM_ABBR;Last_Name;first_name;ath_sex;event_no;seed_mark\r\n"
       "can;\"O'Neil; \"\"Jr\"\"\";Zoë;M;2;6.50\r\n;;;;;\r\n");
  const CommandRun run = RunLine("--json import MEET HERE/sheet.csv");
  EXPECT_EQ(run.code, kDone) << run.err;
  EXPECT_EQ(run.Document()["teams"], 0);
  const json athletes = Rows(meet_, "Athlete");
  EXPECT_EQ(athletes.back()["last_name"], "O'Neil; \"Jr\"");
  EXPECT_EQ(athletes.back()["first_name"], "Zoë");
}

constexpr FaultyFile kFaultyResults[] = {
    {"", "The results cannot be read"},
    {"comp_no,mark,shoe\n11,10.45,9\n", "line 1, column shoe: "},
    {"mark\n10.45\n", "the results need the columns"},
    {"comp_no,mark\n11,10.45,1\n", "line 2, column"},
    {"comp_no,mark\n11,quick\n", "line 2, column mark: "},
    {"comp_no,mark\neleven,10.45\n", "line 2, column comp_no: this is not a number: eleven"},
    {"comp_no,mark\n999,10.45\n", "line 2: this matches nobody in the event"},
    {"heat,lane,mark\n1,8,10.45\n", "line 2: this matches nobody in the event"},
    {"heat,lane,mark\n1,2B,10.45\n", "line 2: "},
    {"last_name,first_name,team_abbr,mark\nAdams,Al,GER,10.45\n", "line 2: this matches nobody in the event"},
    {"comp_no,mark\n11,10.45\n12,10.60\n11,10.46\n", "line 4: this has a row already"},
    {"comp_no,mark,wind\n11,10.45,a-strong-breeze\n", "line 2, column wind: "},
    {"comp_no,mark,wind\n11,10.45,1.0\n12,10.55,1.1\n", "line 3, column wind: "},
    {"comp_no,mark\n32,10.95\n", "line 2: this entry is scratched"},
};

TEST_F(FaultyFiles, ResultsAreStoredWholeOrNotAtAll) {
  Done({"purge", meet_, "1", "--results"});
  Done({"scratch", meet_, "1", "32"});
  before_ = FileText(meet_);
  for (const FaultyFile& c : kFaultyResults) {
    const std::string file = File("faulty.csv", c.text);
    const CommandRun run = Run({"results", meet_, "1", "--enter", file});
    EXPECT_EQ(run.code, kRefused) << c.text << run.err;
    EXPECT_NE(run.err.find(c.told), std::string::npos) << c.text << "\n" << run.err;
    ExpectUnchanged(c.text);
  }
  Done({"purge", meet_, "1"});
  before_ = FileText(meet_);
  File("sound.csv", "comp_no,mark\n11,10.45\n");
  ExpectRefused("results MEET 1 --enter HERE/sound.csv", kRefused, "Event 1 has not been seeded.");
}

// Commands that open the meet, and those that take any file.
constexpr const char* kOpeningCommands[] = {"events FILE", "open FILE",     "seed FILE --all",
                                            "scores FILE", "settings FILE", "import FILE HERE/entries.csv"};
constexpr const char* kRawCommands[] = {"verify FILE", "dump FILE", "dump FILE Entry"};

class DamagedFiles : public Contract {
 protected:
  // Every command fails with this text and leaves the file as it is.
  void ExpectFails(const std::string& name, std::string_view text, bool raw_too) const {
    const std::string path = Path(name);
    const std::string bytes = FileText(path);
    std::vector<std::string> lines(std::begin(kOpeningCommands), std::end(kOpeningCommands));
    if (raw_too) lines.insert(lines.end(), std::begin(kRawCommands), std::end(kRawCommands));
    for (std::string line : lines) {
      line.replace(line.find("FILE"), 4, path);
      const CommandRun run = RunLine(line);
      EXPECT_EQ(run.code, kFailed) << line << run.err;
      EXPECT_NE(run.err.find(text), std::string::npos) << line << "\n" << run.err;
      EXPECT_TRUE(FileText(path) == bytes) << line << " has written";
    }
    EXPECT_FALSE(std::filesystem::exists(path + "-journal")) << name;
  }
};

TEST_F(DamagedFiles, FailWithFourAndStayAsTheyAre) {
  File("empty.mdb", "");
  File("cut.mdb", before_.substr(0, before_.size() / 2 + 100));
  File("pages-gone.mdb", before_.substr(0, 4096 * 3));
  File("text.mdb", std::string(8192, 'x'));
  File("zeros.mdb", std::string(8192, '\0'));
  ExpectFails("missing.mdb", "Error: ", true);
  EXPECT_FALSE(std::filesystem::exists(Path("missing.mdb")));
  for (const char* name : {"empty.mdb", "cut.mdb", "text.mdb", "zeros.mdb"})
    ExpectFails(name, "Error: ", true);
  ExpectFails("pages-gone.mdb", "", false);
  std::filesystem::create_directory(Path("folder.mdb"));
  ExpectFails("folder.mdb", "", true);
}

TEST_F(DamagedFiles, ForeignDatabaseIsNoMeetButCanBeLookedAt) {
  const std::string path = Path("foreign.mdb");
  {
    auto file = jet::Database::Create(platform::Files(), path, kSomeDay);
    ASSERT_TRUE(file.ok());
    auto write = (*file)->Begin({"test", ""}, kSomeDay);
    ASSERT_TRUE(write.ok());
    auto table = (*write)->CreateTable({"Stock", {{"Item", jet::ColumnType::Text, 20}}, {}});
    ASSERT_TRUE(table.ok());
    const jet::FieldValue item{0, std::string("nails")};
    ASSERT_TRUE((*write)->Insert(**table, std::span(&item, 1)).ok());
    ASSERT_TRUE((*write)->Commit().ok());
  }
  ExpectFails("foreign.mdb", path + " is not a KORVEL Track & Field TARVEX Database !", false);
  EXPECT_EQ(Run({"verify", path}).code, kDone);
  EXPECT_EQ(Run({"dump", path}).out, "Stock\n");
  EXPECT_EQ(Run({"dump", path, "stock"}).out, "Item\nnails\n");
  const json verified = Run({"--json", "verify", path}).Document();
  EXPECT_EQ(FieldsOf(verified), "faults messages sound");
  EXPECT_EQ(verified["sound"], true);
}

// One byte bent, page by page, until the check finds it; not every byte of a page says something.
TEST_F(DamagedFiles, VerifyIsOneWhenItFindsErrors) {
  int errors = 0;
  for (size_t page = before_.size() / 4096 - 1; page > 2 && errors == 0; --page) {
    std::string bent = before_;
    bent[page * 4096 + 1000] = static_cast<char>(~bent[page * 4096 + 1000]);
    const std::string path = File("bent.mdb", bent);
    const CommandRun run = Run({"--json", "verify", path});
    EXPECT_TRUE(run.code == kDone || run.code == kRefused || run.code == kFailed) << run.code;
    if (run.code == kRefused) {
      const json document = run.Document();
      EXPECT_EQ(document["sound"], false);
      EXPECT_EQ(FieldsOf(document["faults"][0]), "page severity text");
      EXPECT_EQ(Run({"verify", path}).out[0], 'E');
      ++errors;
    }
    EXPECT_TRUE(FileText(path) == bent);
  }
  EXPECT_EQ(errors, 1);
}

// Permissions do not bind the superuser, who therefore acts as somebody else meanwhile.
class AsOrdinaryUser {
 public:
  AsOrdinaryUser() {
    if (is_root_ && seteuid(kNobody) != 0) failed_ = true;
  }
  ~AsOrdinaryUser() {
    if (is_root_) failed_ |= seteuid(0) != 0;
  }
  bool failed() const { return failed_; }

 private:
  static constexpr uid_t kNobody = 65534;
  const bool is_root_ = geteuid() == 0;
  bool failed_ = false;
};

TEST_F(DamagedFiles, ReadOnlyFileCanBeLookedAtOnly) {
  ASSERT_EQ(chmod(folder_.c_str(), 0755), 0);
  ASSERT_EQ(chmod(meet_.c_str(), 0444), 0);
  ASSERT_EQ(chmod(Path("entries.csv").c_str(), 0444), 0);
  const AsOrdinaryUser user;
  if (user.failed()) GTEST_SKIP() << "cannot act as an ordinary user";
  ExpectFails("meet.mdb", "The database may be set to Read-Only.\nPermission denied\n" + meet_, false);
  EXPECT_EQ(Run({"verify", meet_}).code, kDone);
  EXPECT_EQ(Run({"dump", meet_, "Entry"}).code, kDone);
  ExpectUnchanged("reading");
}

TEST_F(DamagedFiles, FileInUseSaysByWhat) {
  {
    const auto held = platform::Files().Open(meet_, OpenMode::ReadWrite);
    ASSERT_TRUE(held.ok());
    ExpectFails("meet.mdb", meet_ + " Database already opened exclusively by another user.", false);
  }
  const auto read = platform::Files().Open(meet_, OpenMode::Read);
  ASSERT_TRUE(read.ok());
  ExpectFails("meet.mdb",
              meet_ + " Database cannot be opened exclusively because it is already opened by another user.",
              false);
  EXPECT_EQ(Run({"verify", meet_}).code, kDone);
}

TEST_F(Contract, OpeningPrintsWhatItChangedAndThenNothing) {
  const std::string path = Path("new.mdb");
  ASSERT_EQ(Run({"create", path}).code, kDone);
  const CommandRun run = Run({"--json", "open", path});
  EXPECT_EQ(run.code, kDone);
  EXPECT_EQ(FieldsOf(run.Document()), "changes messages");
  EXPECT_EQ(run.Document()["changes"], json::array());  // create opens it, too
  EXPECT_EQ(Run({"open", path}).out, "");
}

TEST_F(Contract, HelpIsDone) {
  EXPECT_NE(Run({"--help"}).out.find("start-list"), std::string::npos);
  for (const Words& words : {Words{"--help"}, Words{"seed", "--help"}, Words{"import", "-h"}}) {
    const CommandRun run = Run(words);
    EXPECT_EQ(run.code, kDone);
    EXPECT_NE(run.out.find(words.size() == 1 ? "--answer" : "MEET.mdb"), std::string::npos) << run.out;
    EXPECT_EQ(run.err, "");
  }
}

}  // namespace
}  // namespace tarvex::cli
