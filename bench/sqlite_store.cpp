#include <sqlite3.h>

#include "bench/harness.h"
#include "bench/store.h"
#include "database/schema.h"

namespace tarvex::bench {
namespace {

class SqliteStore final : public Store {
 public:
  const char* name() const override { return "sqlite"; }

  void Create(const std::string& path) override {
    Open(path);
    Run(Definition());
    for (const char* index :
         {"CREATE INDEX entevtptr ON Entry(event_ptr)", "CREATE INDEX entathno ON Entry(ath_no)",
          "CREATE INDEX entathnoevtptr ON Entry(ath_no, event_ptr)",
          "CREATE INDEX entevtptrseed ON Entry(event_ptr, ConvSeed_time)"}) {
      Run(index);
    }
    Close();
    Open(path);
  }

  void Open(const std::string& path) override {
    Check(sqlite3_open(path.c_str(), &db_));
    Run("PRAGMA journal_mode=DELETE");
    Run("PRAGMA synchronous=FULL");
    // The same room for pages as the other engine has.
    Run("PRAGMA cache_size=-16384");
  }

  void Close() override {
    for (sqlite3_stmt** statement : {&insert_, &read_, &update_, &scan_}) {
      sqlite3_finalize(*statement);
      *statement = nullptr;
    }
    Check(sqlite3_close(db_));
    db_ = nullptr;
  }

  void Insert(const std::vector<EntryRow>& rows) override {
    Prepare(
        insert_,
        "INSERT INTO "
        "Entry(Event_ptr,Ath_no,Seed_place,Div_no,Team_age,ActualSeed_time,ConvSeed_time,Fin_Time,"
        "Pre_Time,Ev_score,Hand_time,Alt_stat,Bonus_event,Pre_hand,Fin_hand,ActSeed_course,ConvSeed_course,"
        "Dec_stat,Fin_course,Pre_course,Fin_wind,Fin_note,entry_note,Pre_heat,Pre_lane,Fin_heat,Fin_lane,"
        "Fin_heatplace,Fin_place,Fin_ptsplace) "
        "VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    Run("BEGIN IMMEDIATE");
    for (const EntryRow& r : rows) {
      int i = 0;
      for (const int number : {r.event_ptr, r.ath_no, r.seed_place, r.div_no, r.team_age}) {
        sqlite3_bind_int(insert_, ++i, number);
      }
      for (const float number : {r.actual_seed, r.converted_seed, r.fin_time, r.pre_time, r.ev_score}) {
        sqlite3_bind_double(insert_, ++i, number);
      }
      for (const bool flag : {r.hand_time, r.alt_stat, r.bonus_event, r.pre_hand, r.fin_hand}) {
        sqlite3_bind_int(insert_, ++i, flag);
      }
      for (const std::string* text : {&r.actseed_course, &r.convseed_course, &r.dec_stat, &r.fin_course,
                                      &r.pre_course, &r.fin_wind, &r.fin_note, &r.entry_note}) {
        sqlite3_bind_text(insert_, ++i, text->data(), static_cast<int>(text->size()), SQLITE_STATIC);
      }
      for (const int number :
           {r.pre_heat, r.pre_lane, r.fin_heat, r.fin_lane, r.fin_heatplace, r.fin_place, r.fin_ptsplace}) {
        sqlite3_bind_int(insert_, ++i, number);
      }
      Require(sqlite3_step(insert_) == SQLITE_DONE, "insert");
      sqlite3_reset(insert_);
    }
    Run("COMMIT");
  }

  Answer ReadEvent(int event_ptr) override {
    Prepare(
        read_,
        "SELECT "
        "Ath_no,Fin_heat,Fin_lane,Fin_place,ConvSeed_time,Fin_Time,Hand_time,Fin_course,Fin_wind,Fin_note "
        "FROM Entry WHERE event_ptr=?");
    Answer answer;
    sqlite3_bind_int(read_, 1, event_ptr);
    while (sqlite3_step(read_) == SQLITE_ROW) {
      ++answer.rows;
      answer.sum += sqlite3_column_int(read_, 0) + sqlite3_column_int(read_, 1) +
                    sqlite3_column_int(read_, 2) + sqlite3_column_int(read_, 3) +
                    static_cast<float>(sqlite3_column_double(read_, 4)) +
                    static_cast<float>(sqlite3_column_double(read_, 5)) + sqlite3_column_int(read_, 6) +
                    static_cast<double>(Text(7).size() + Text(8).size() + Text(9).size());
    }
    sqlite3_reset(read_);
    return answer;
  }

  void UpdateMarks(const std::vector<EntryRow>& rows, float change) override {
    Prepare(update_, "UPDATE Entry SET Fin_Time=? WHERE ath_no=? AND event_ptr=?");
    Run("BEGIN IMMEDIATE");
    for (const EntryRow& r : rows) {
      sqlite3_bind_double(update_, 1, r.fin_time + change);
      sqlite3_bind_int(update_, 2, r.ath_no);
      sqlite3_bind_int(update_, 3, r.event_ptr);
      Require(sqlite3_step(update_) == SQLITE_DONE && sqlite3_changes(db_) == 1, "update");
      sqlite3_reset(update_);
    }
    Run("COMMIT");
  }

  Answer Scan() override {
    Prepare(scan_, "SELECT Fin_Time FROM Entry");
    Answer answer;
    while (sqlite3_step(scan_) == SQLITE_ROW) {
      ++answer.rows;
      answer.sum += static_cast<float>(sqlite3_column_double(scan_, 0));
    }
    sqlite3_reset(scan_);
    return answer;
  }

 private:
  static std::string Definition() {
    std::string sql = "CREATE TABLE Entry(";
    bool is_first = true;
    for (const database::SchemaField& field : database::FindSchemaTable("Entry")->fields) {
      const char* type = field.type.type == jet::ColumnType::Text     ? " TEXT"
                         : field.type.type == jet::ColumnType::Single ? " REAL"
                                                                      : " INTEGER";
      sql += (is_first ? "" : ",") + std::string(field.name) + type;
      is_first = false;
    }
    return sql + ")";
  }

  void Check(int code) { Require(code == SQLITE_OK, db_ ? sqlite3_errmsg(db_) : "sqlite"); }
  void Run(const std::string& sql) { Check(sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr)); }
  void Prepare(sqlite3_stmt*& statement, const char* sql) {
    if (!statement) Check(sqlite3_prepare_v3(db_, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr));
  }
  std::string Text(int column) {
    return std::string(reinterpret_cast<const char*>(sqlite3_column_text(read_, column)),
                       static_cast<size_t>(sqlite3_column_bytes(read_, column)));
  }

  sqlite3* db_ = nullptr;
  sqlite3_stmt *insert_ = nullptr, *read_ = nullptr, *update_ = nullptr, *scan_ = nullptr;
};

}  // namespace

std::unique_ptr<Store> NewSqliteStore() {
  return std::make_unique<SqliteStore>();
}

}  // namespace tarvex::bench
