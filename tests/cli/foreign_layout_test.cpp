#include <algorithm>
#include <map>
#include <stdexcept>

#include "base/platform.h"
#include "database/schema.h"
#include "jet/database.h"
#include "tests/cli/small_meet.h"

namespace tarvex::cli {
namespace {

using jet::FieldValue;
using jet::RowId;
using jet::Table;
using jet::Transaction;

constexpr double kSomeDay = 45422;

template <class T>
T Must(Expected<T> result) {
  if (!result.ok()) throw std::runtime_error(result.status().detail);
  return std::move(result).value();
}
void Must(const Status& status) {
  if (!status.ok()) throw std::runtime_error(status.detail);
}

std::vector<std::vector<jet::Value>> AllRows(const Table& table) {
  std::vector<std::vector<jet::Value>> rows;
  jet::TableScan scan = table.Scan();
  while (Must(scan.Next())) {
    auto& row = rows.emplace_back();
    for (size_t i = 0; i < table.def().columns.size(); ++i)
      row.push_back(Must(scan.record().Get(static_cast<int>(i))));
  }
  return rows;
}

// Writes a meet anew in the way of a program that made and changed its file otherwise: the tables in another
// order, their pages between those of tables that are emptied again, rows from the last to the first, and
// rows that outgrew the page they were put on.
class Rewriter {
 public:
  Rewriter(const std::string& from, const std::string& to)
      : from_(Must(jet::Database::Open(platform::Files(), from, OpenMode::Read))),
        to_(Must(jet::Database::Create(platform::Files(), to, kSomeDay))) {}

  void Write() {
    InTransaction([&](Transaction& write) { Scatter(write, 1000); });
    const auto schema = database::Schema();
    for (size_t i = schema.size(); i-- > 0;) {
      const auto spec = database::SpecOf(schema[i], database::Made::AtFirstOpening);
      InTransaction([&](Transaction& write) {
        Must(write.CreateTable(spec));
        if (i % 5 == 0) Scatter(write, static_cast<int>(i));
      });
    }
    InTransaction([&](Transaction& write) {
      for (const database::SchemaTable& table : schema) CopyShort(write, std::string(table.name));
    });
    InTransaction([&](Transaction& write) { Clear(write); });
    InTransaction([&](Transaction& write) {
      for (const auto& [name, rows] : grown_) Grow(write, name, rows);
    });
    InTransaction([&](Transaction& write) {
      for (const auto& [table, id] : fillers_) Must(write.Delete(*table, id));
    });
  }
  // How many rows of a table are elsewhere than where they were put first.
  int moved(const std::string& table) { return moved_[table]; }

 private:
  struct Copied {
    RowId id;
    std::vector<FieldValue> fields;
  };

  template <class Work>
  void InTransaction(Work work) {
    const auto write = Must(to_->Begin({"rewrite", ""}, kSomeDay));
    work(*write);
    Must(write->Commit());
  }

  // A table of pages that come free later, and then half full.
  void Scatter(Transaction& write, int number) {
    Table* junk =
        Must(write.CreateTable({"Junk" + std::to_string(number),
                                {{"No", jet::ColumnType::Long}, {"Text", jet::ColumnType::Text, 255}},
                                {{"PrimaryKey", {"No"}, true}}}));
    for (int i = 0; i < 60; ++i) {
      const FieldValue fields[] = {{0, i * 7919 % 1000}, {1, std::string(200, 'x')}};
      Must(write.Insert(*junk, fields));
    }
    junk_.push_back(junk);
  }

  void Clear(Transaction& write) {
    for (Table* junk : junk_) {
      std::vector<RowId> ids;
      jet::TableScan scan = junk->Scan();
      while (Must(scan.Next())) ids.push_back(scan.record().id());
      for (size_t i = 0; i < ids.size(); ++i) {
        if (i % 9 != 0) Must(write.Delete(*junk, ids[i]));
      }
    }
  }

  // Rows from the last to the first with what their indexes need only, so that they grow later.
  void CopyShort(Transaction& write, const std::string& name) {
    const auto found = from_->FindTable(name);
    if (!found.ok()) return;
    Table& target = *Must(to_->FindTable(name));
    auto rows = AllRows(**found);
    std::reverse(rows.begin(), rows.end());
    for (const auto& row : rows) {
      Copied copied;
      std::vector<FieldValue> first;
      for (size_t i = 0; i < row.size(); ++i) {
        const jet::Column& column = target.def().columns[i];
        copied.fields.push_back({static_cast<int>(i), row[i]});
        if (column.is_counter() || IsUniqueKey(target, column)) first.push_back(copied.fields.back());
      }
      copied.id = Must(write.Insert(target, first)).row;
      if (first.empty()) Crowd(write, target);
      grown_[name].push_back(std::move(copied));
    }
  }

  // Rows that take the room into which the one before them would grow.
  void Crowd(Transaction& write, Table& table) {
    for (int i = 0; i < 20; ++i) fillers_.emplace_back(&table, Must(write.Insert(table, {})).row);
  }

  static bool IsUniqueKey(const Table& table, const jet::Column& column) {
    const database::SchemaTable* schema = database::FindSchemaTable(table.name());
    for (const database::SchemaIndex& index : schema->indexes) {
      if (!index.is_primary) continue;
      for (const std::string_view field : index.fields) {
        if (!field.empty() && &table.def().columns[static_cast<size_t>(table.Column(field))] == &column)
          return true;
      }
    }
    return false;
  }

  // Every text as long as its field takes; a row that moved for it stays away when the texts are short again.
  static std::vector<FieldValue> Longest(const Table& table) {
    std::vector<FieldValue> fields;
    const auto& columns = table.def().columns;
    for (size_t i = 0; i < columns.size(); ++i) {
      if (columns[i].type != jet::ColumnType::Text || IsUniqueKey(table, columns[i])) continue;
      fields.push_back({static_cast<int>(i), std::string(static_cast<size_t>(columns[i].length / 2), 'x')});
    }
    return fields;
  }

  void Grow(Transaction& write, const std::string& name, const std::vector<Copied>& rows) {
    Table& table = *Must(to_->FindTable(name));
    for (const Copied& row : rows) {
      Must(write.Update(table, row.id, Longest(table)));
      Must(write.Update(table, row.id, row.fields));
    }
    for (const Copied& row : rows) moved_[name] += IsElsewhere(table, row.id);
  }
  static bool IsElsewhere(const Table& table, RowId id) {
    const auto page = Must(table.pager().Read(id.page));
    const std::span<const uint8_t> bytes = page.span();
    const size_t slot = 14 + 2 * static_cast<size_t>(id.slot);
    return (bytes[slot + 1] & 0xC0) == 0x40;  // the state of a row whose bytes are on another page
  }

  std::unique_ptr<jet::Database> from_, to_;
  std::vector<Table*> junk_;
  std::vector<std::pair<Table*, RowId>> fillers_;
  std::map<std::string, std::vector<Copied>> grown_;
  std::map<std::string, int> moved_;
};

class ForeignLayout : public SmallMeetTest {
 protected:
  void SetUp() override {
    Import(meet_);
    try {
      Rewriter rewriter(meet_, foreign_);
      rewriter.Write();
      moved_entries_ = rewriter.moved("Entry");
    } catch (const std::runtime_error& error) {
      FAIL() << error.what();
    }
    ASSERT_EQ(ErrorsIn(foreign_), "");
  }

  // The rows of a table in an order of their own, without identifiers, which are drawn.
  static json Sorted(const std::string& path, const std::string& table) {
    json rows = Rows(path, table);
    for (json& row : rows) {
      row.erase("athguid_strg");
      row.erase("teamguid_strg");
    }
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  const std::string foreign_ = Path("foreign.mdb");
  int moved_entries_ = 0;
};

TEST_F(ForeignLayout, IsReallyAnotherLayout) {
  EXPECT_GT(moved_entries_, 6);  // of 13
  EXPECT_NE(Run({"dump", foreign_}).out, Run({"dump", meet_}).out);
  EXPECT_NE(Rows(foreign_, "Athlete"), Rows(meet_, "Athlete"));
  EXPECT_EQ(Sorted(foreign_, "Athlete"), Sorted(meet_, "Athlete"));
}

TEST_F(ForeignLayout, IsCurrentAndHoldsTheSameMeet) {
  EXPECT_EQ(Done({"open", foreign_})["changes"], json::array());
  const std::string before = FileText(foreign_);
  EXPECT_EQ(Done({"events", foreign_}), Done({"events", meet_}));
  Done({"import", foreign_, Path("entries.csv")});
  EXPECT_EQ(FileText(foreign_), before);
}

TEST_F(ForeignLayout, RunsTheSameRoadToTheSameScores) {
  const std::string late =
      File("late.csv",
           "event_no,event_sex,kind,last_name,first_name,ath_sex,team_abbr,team_name,seed_mark\n"
           "2,M,,Moor,Max,M,FRA,France,6.50\n4,M,Shot Put,Moor,Max,M,FRA,France,14.00\n");
  for (const std::string& path : {meet_, foreign_}) {
    Done({"import", path, late});
    Seed(path);
    EnterResults(path);
    Done({"jd", path, "1", "--set", "21", "place=1", "--set", "11", "place=2"});
    Done({"score", path, "--all"});
  }
  for (const char* event : {"1", "2", "3", "4"}) {
    EXPECT_EQ(Done({"start-list", foreign_, event}), Done({"start-list", meet_, event})) << event;
    EXPECT_EQ(Done({"results", foreign_, event}), Done({"results", meet_, event})) << event;
  }
  const json scores = Done({"scores", foreign_});
  EXPECT_EQ(scores, Done({"scores", meet_}));
  ASSERT_GT(scores["rows"].size(), 0U);
  // Canada: 8 and 4 in the dash, 10 in the relay; the jump has somebody without a result and is not done.
  EXPECT_EQ(scores["rows"][0]["points"], 22);
  for (const char* table : {"Athlete", "Team", "Entry", "Event", "Relay", "RelayNames", "Windreading"})
    EXPECT_EQ(Sorted(foreign_, table), Sorted(meet_, table)) << table;
  for (const char* kind : {"results", "team-scores", "entries", "meet-program"})
    EXPECT_EQ(Run({"report", foreign_, kind}).out, Run({"report", meet_, kind}).out) << kind;
}

}  // namespace
}  // namespace tarvex::cli
