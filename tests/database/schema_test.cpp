#include "database/schema.h"

#include <algorithm>
#include <cstdio>
#include <set>

#include "tests/database/test_meet.h"

namespace tarvex::database {
namespace {

using jet::ColumnType;

// Counted by hand, as they stand after the first opening but for the field of TimeStd that only an upgrade
// adds.
struct TableCount {
  std::string_view name;
  size_t fields, indexes;
  bool at_first_opening = false;
};
constexpr TableCount kCounts[] = {
    {"Agegroup", 2, 0},
    {"Athlete", 68, 5},
    {"CCNames", 7, 0, true},
    {"CCrank", 24, 9},
    {"CCTeamScores", 5, 1, true},
    {"CCtime", 7, 4},
    {"ChipID", 5, 5},
    {"Conversions", 7, 1},
    {"CustomAlleys", 3, 1},
    {"CustomLanes", 14, 1},
    {"Divisions", 10, 0},
    {"Dualteams", 3, 0},
    {"Entrymulti", 33, 3},
    {"Entry", 101, 4},
    {"Eventmulti", 23, 2},
    {"Event", 69, 1},
    {"VANTRELOPTIONS", 32, 0, true},
    {"Meet", 164, 0},
    {"MemorizedReports", 98, 1},
    {"Multiage", 4, 0},
    {"RecordsbyEvent", 17, 5},
    {"RecordTags", 7, 0},
    {"Regions", 6, 0},
    {"Relay", 96, 5},
    {"RelayNames", 7, 5},
    {"Scoring", 6, 1},
    {"SeriesHoriz", 8, 2},
    {"SeriesVertical", 7, 3},
    {"SeriesVertColumns", 44, 1},
    {"Session", 9, 1},
    {"Sessitem", 13, 3},
    {"Split", 7, 2},
    {"SplitCC", 7, 1, true},
    {"StdAlleys", 13, 1},
    {"StdLanes", 13, 1},
    {"TagNames", 6, 0},
    {"Team", 33, 3},
    {"TeamCoaches", 20, 2},
    {"TimeStd", 8, 1},
    {"Waterfall", 2, 1},
    {"Windreading", 5, 1},
};

struct FieldCase {
  std::string_view table, field;
  int position;
  ColumnType type;
  int characters;
};
constexpr FieldCase kFieldCases[] = {
    {"Meet", "win_tftvx", 0, ColumnType::Boolean, 0},
    {"Meet", "dualteam_lane", 130, ColumnType::Long, 0},
    {"Meet", "dualteam_lane1", 131, ColumnType::Long, 0},
    {"Meet", "dualteam_lane10", 140, ColumnType::Long, 0},
    {"Meet", "strict_evenoddfastestheatonly", 141, ColumnType::Boolean, 0},
    {"Meet", "Meet_country", 163, ColumnType::Text, 3},
    {"CCNames", "Team_ltr", 2, ColumnType::Text, 255},
    {"RelayNames", "Team_ltr", 2, ColumnType::Text, 255},
    {"MemorizedReports", "Mem_Name", 0, ColumnType::Text, 40},
    {"MemorizedReports", "Team_Abbr", 35, ColumnType::Text, 30},
    {"MemorizedReports", "Date_Time", 5, ColumnType::Boolean, 0},
    {"MemorizedReports", "Splits_Choice", 60, ColumnType::Integer, 0},
    {"MemorizedReports", "Incl_Splits", 97, ColumnType::Boolean, 0},
    {"SeriesVertColumns", "h40_dist", 43, ColumnType::Integer, 0},
    {"SeriesVertical", "Res_dist", 4, ColumnType::Integer, 0},
    {"SeriesHoriz", "Res_dist", 4, ColumnType::Single, 0},
    {"Windreading", "Mult_ptr", 1, ColumnType::Integer, 0},
    {"Athlete", "Fee10_pd", 57, ColumnType::Currency, 0},
    {"Athlete", "athGUID_strg", 67, ColumnType::Text, 36},
    {"Event", "CCracestart_date", 64, ColumnType::Date, 0},
    {"Entry", "Fin_note", 100, ColumnType::Text, 20},
};

constexpr std::string_view kCounters[] = {
    "Athlete.Ath_no",     "Event.Event_ptr",     "Eventmulti.Mult_ptr", "MemorizedReports.Mem_Ptr",
    "RecordTags.tag_ptr", "Relay.Relay_no",      "Session.Sess_ptr",    "TagNames.tag_ptr",
    "Team.Team_no",       "TeamCoaches.Coach_no"};

constexpr std::string_view kPrimaryIndexes[] = {"Athlete.athno",
                                                "Conversions.ConvEvtPtrLtr",
                                                "CustomAlleys.custalleyevtord",
                                                "CustomLanes.custlaneevtlane",
                                                "Event.eventptr",
                                                "Eventmulti.multiptr",
                                                "MemorizedReports.memptr",
                                                "Session.sessptr",
                                                "StdAlleys.stdalleyord",
                                                "StdLanes.stdlaneord",
                                                "Team.tmteamno",
                                                "TeamCoaches.Coachno"};

std::string IndexText(const jet::TableDef& def, const jet::LogicalIndex& name) {
  const jet::RealIndex& index = def.indexes[name.real];
  std::string text = name.name + ":";
  for (const jet::IndexColumn& column : index.columns) {
    text +=
        " " + def.columns[static_cast<size_t>(column.column)].name + (column.ascending ? "" : " descending");
  }
  return text + (name.kind == jet::LogicalIndex::Primary ? " primary" : "") +
         (index.is_unique() ? " unique" : "");
}

// What a program prints, or nothing when it is not installed.
std::optional<std::string> OutputOf(const std::string& command) {
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (!pipe) return std::nullopt;
  std::string text;
  char buffer[4096];
  while (const size_t n = fread(buffer, 1, sizeof buffer, pipe)) text.append(buffer, n);
  const int status = pclose(pipe);
  return status == 0 ? std::optional(text) : std::nullopt;
}

using SchemaTest = MeetFileTest;

TEST_F(SchemaTest, ANewFileHasTheTablesInTheirOrderAndTheRestAfterTheFirstOpening) {
  Create();
  {
    const auto file = jet::Database::Open(Files(), path_, OpenMode::Read);
    ASSERT_TRUE(file.ok());
    std::vector<std::string> expected;
    for (const TableCount& count : kCounts) {
      if (!count.at_first_opening) expected.emplace_back(count.name);
    }
    EXPECT_EQ((*file)->TableNames().value(), expected);
    EXPECT_LT((*file)->FindTable("ChipID").value()->Index("isused"), 0);
    EXPECT_LT((*file)->FindTable("TimeStd").value()->Column("Mult_ptr"), 0);
  }
  const Opened opened = Open();
  ASSERT_TRUE(opened.meet) << TextOf(opened.outcome);
  for (const TableCount& count : kCounts) {
    const auto table = opened.meet->Table(count.name);
    ASSERT_TRUE(table.ok()) << count.name;
    EXPECT_EQ((*table)->def().columns.size(), count.fields) << count.name;
    EXPECT_EQ((*table)->def().names.size(), count.indexes) << count.name;
  }
  EXPECT_EQ(opened.meet->file().TableNames()->size(), std::size(kCounts));
}

TEST_F(SchemaTest, FieldsHaveTheirPlacesTypesAndSizes) {
  const auto meet = CurrentMeet();
  for (const FieldCase& c : kFieldCases) {
    const jet::Table* table = meet->Table(c.table).value();
    ASSERT_EQ(table->Column(c.field), c.position) << c.table << "." << c.field;
    const jet::Column& column = table->def().columns[static_cast<size_t>(c.position)];
    EXPECT_EQ(column.name, c.field);
    EXPECT_EQ(column.type, c.type) << c.table << "." << c.field;
    if (c.characters > 0) {
      EXPECT_EQ(column.length, 2 * c.characters) << c.table << "." << c.field;
    }
  }
}

// The file holds what the layout says, field by field and index by index.
TEST_F(SchemaTest, TheFileAgreesWithTheLayout) {
  const auto meet = CurrentMeet();
  for (const SchemaTable& schema : Schema()) {
    const jet::TableDef& def = meet->Table(schema.name).value()->def();
    size_t at = 0;
    for (const SchemaField& field : schema.fields) {
      if (field.made == Made::AtFirstOpening) continue;
      ASSERT_LT(at, def.columns.size()) << schema.name;
      const jet::Column& column = def.columns[at++];
      EXPECT_EQ(column.name, field.name) << schema.name;
      EXPECT_EQ(column.type, field.type.type) << schema.name << "." << field.name;
      EXPECT_EQ(column.is_counter(), field.type.is_counter) << schema.name << "." << field.name;
      if (column.type == ColumnType::Text) {
        EXPECT_EQ(column.length, 2 * field.type.size) << field.name;
      }
    }
  }
}

TEST_F(SchemaTest, CountersAndPrimaryIndexesAreTheseAndNoOthers) {
  const auto meet = CurrentMeet();
  std::set<std::string> counters, primaries;
  const auto names = meet->file().TableNames();
  ASSERT_TRUE(names.ok());
  for (const std::string& name : *names) {
    const jet::TableDef& def = meet->Table(name).value()->def();
    for (const jet::Column& column : def.columns) {
      if (column.is_counter()) counters.insert(name + "." + column.name);
    }
    for (const jet::LogicalIndex& index : def.names) {
      const bool primary = index.kind == jet::LogicalIndex::Primary;
      EXPECT_EQ(def.indexes[index.real].is_unique(), primary) << index.name;
      if (primary) primaries.insert(name + "." + index.name);
    }
  }
  EXPECT_EQ(counters, std::set<std::string>(std::begin(kCounters), std::end(kCounters)));
  EXPECT_EQ(primaries, std::set<std::string>(std::begin(kPrimaryIndexes), std::end(kPrimaryIndexes)));
}

TEST_F(SchemaTest, IndexesCoverTheirFieldsInOrder) {
  const auto meet = CurrentMeet();
  const std::pair<std::string_view, std::vector<std::string>> kCases[] = {
      {"Athlete",
       {"athno: Ath_no primary unique", "athteam: Team_no", "athlastname: Last_name", "athcompno: Comp_no",
        "athsexcompno: Ath_Sex Comp_no"}},
      {"ChipID",
       {"athno: Ath_no", "compno: Comp_no", "Chipid1: Chip_id1", "Chipid2: Chip_id2", "isused: is_used"}},
      {"RecordsbyEvent",
       {"recordevt: event_ptr", "multnorecordevt: event_ptr Mult_ptr",
        "divbyevtmultptr: tag_ptr tag_gender event_ptr Mult_ptr low_age high_Age Div_abbr",
        "notdivbyevtmultptr: tag_ptr tag_gender event_ptr Mult_ptr low_age high_Age",
        "divbyevtusingbirthmultptr: tag_ptr tag_gender event_ptr Mult_ptr Div_abbr"}},
      {"CustomLanes", {"custlaneevtlane: event_ptr tot_lanes primary unique"}},
      {"SeriesVertical",
       {"vertevtptr: Event_ptr", "vertathno: Ath_no Event_ptr Mult_ptr Rnd_ltr Res_dist",
        "vertathnocol: Ath_no Event_ptr Mult_ptr Rnd_ltr Res_col"}},
  };
  for (const auto& [name, expected] : kCases) {
    const jet::TableDef& def = meet->Table(name).value()->def();
    std::vector<std::string> actual;
    for (const jet::LogicalIndex& index : def.names) actual.push_back(IndexText(def, index));
    std::vector<std::string> sorted = expected;
    std::sort(sorted.begin(), sorted.end());
    std::sort(actual.begin(), actual.end());
    EXPECT_EQ(actual, sorted) << name;
  }
}

TEST_F(SchemaTest, AnIndependentReaderSeesTheSame) {
  if (!OutputOf("command -v mdb-tables mdb-schema mdb-export")) GTEST_SKIP() << "mdbtools is not installed";
  CurrentMeet().reset();
  const auto tables = OutputOf("mdb-tables -1 " + path_);
  ASSERT_TRUE(tables);
  EXPECT_EQ(std::count(tables->begin(), tables->end(), '\n'), 41) << *tables;
  EXPECT_NE(tables->find("VANTRELOPTIONS\n"), std::string::npos);
  const auto schema = OutputOf("mdb-schema -T Athlete " + path_ + " access");
  ASSERT_TRUE(schema);
  for (const std::string_view line : {"[Ath_no]", "[athGUID_strg]", "Text (36)", "Currency"}) {
    EXPECT_NE(schema->find(line), std::string::npos) << *schema;
  }
  EXPECT_EQ(OutputOf("mdb-export " + path_ + " Regions"),
            "Reg_no,Reg_abbr,Reg_name,fem_size,male_size,combined_size\n"
            "1,\"NE\",\"Northeast\",0,0,0\n2,\"SE\",\"Southeast\",0,0,0\n"
            "3,\"NW\",\"Northwest\",0,0,0\n4,\"SW\",\"Southwest\",0,0,0\n");
}

}  // namespace
}  // namespace tarvex::database
