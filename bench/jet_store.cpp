#include "base/platform.h"
#include "bench/harness.h"
#include "bench/store.h"
#include "database/schema.h"
#include "jet/database.h"

namespace tarvex::bench {
namespace {

void Check(const Status& status) {
  Require(status.ok(), status.detail);
}

class JetStore final : public Store {
 public:
  const char* name() const override { return "tarvex"; }

  void Create(const std::string& path) override {
    auto file = jet::Database::Create(platform::Files(), path, 45000);
    Check(file.status());
    file_ = std::move(*file);
    auto write = file_->Begin({"create", "bench"}, 45000);
    Check(write.status());
    const auto spec = database::SpecOf(*database::FindSchemaTable("Entry"), database::Made::AtCreation);
    Check((*write)->CreateTable(spec).status());
    Check((*write)->Commit());
    Bind();
  }

  void Open(const std::string& path) override {
    auto file = jet::Database::Open(platform::Files(), path, OpenMode::ReadWrite);
    Check(file.status());
    file_ = std::move(*file);
    Bind();
  }

  void Close() override { file_.reset(); }

  void Insert(const std::vector<EntryRow>& rows) override {
    auto write = file_->Begin({"insert", "bench"}, 45000);
    Check(write.status());
    for (const EntryRow& r : rows) {
      const jet::FieldValue fields[] = {
          {c_[0], r.event_ptr},       {c_[1], r.ath_no},           {c_[2], r.seed_place},
          {c_[3], r.div_no},          {c_[4], r.team_age},         {c_[5], r.actual_seed},
          {c_[6], r.converted_seed},  {c_[7], r.fin_time},         {c_[8], r.pre_time},
          {c_[9], r.ev_score},        {c_[10], r.hand_time},       {c_[11], r.alt_stat},
          {c_[12], r.bonus_event},    {c_[13], r.pre_hand},        {c_[14], r.fin_hand},
          {c_[15], r.actseed_course}, {c_[16], r.convseed_course}, {c_[17], r.dec_stat},
          {c_[18], r.fin_course},     {c_[19], r.pre_course},      {c_[20], r.fin_wind},
          {c_[21], r.fin_note},       {c_[22], r.entry_note},      {c_[23], r.pre_heat},
          {c_[24], r.pre_lane},       {c_[25], r.fin_heat},        {c_[26], r.fin_lane},
          {c_[27], r.fin_heatplace},  {c_[28], r.fin_place},       {c_[29], r.fin_ptsplace},
      };
      Check((*write)->Insert(*table_, fields).status());
    }
    Check((*write)->Commit());
  }

  Answer ReadEvent(int event_ptr) override {
    Answer answer;
    const jet::Value key = int32_t{event_ptr};
    auto range = table_->Range(by_event_, std::span(&key, 1), std::span(&key, 1));
    Check(range.status());
    while (!range->AtEnd()) {
      const auto record = table_->Get(range->row());
      Check(record.status());
      ++answer.rows;
      answer.sum += record->Long(c_[1]) + record->Long(c_[25]) + record->Long(c_[26]) + record->Long(c_[28]) +
                    record->Single(c_[6]) + record->Single(c_[7]) + record->Boolean(c_[10]) +
                    static_cast<double>(record->Text(c_[18]).size() + record->Text(c_[20]).size() +
                                        record->Text(c_[21]).size());
      Check(record->status());
      Check(range->Next());
    }
    return answer;
  }

  void UpdateMarks(const std::vector<EntryRow>& rows, float change) override {
    auto write = file_->Begin({"update", "bench"}, 45000);
    Check(write.status());
    for (const EntryRow& r : rows) {
      const jet::Value key[] = {int32_t{r.ath_no}, int32_t{r.event_ptr}};
      const auto row = table_->FindFirst(by_athlete_event_, key);
      Check(row.status());
      const jet::FieldValue field = {c_[7], r.fin_time + change};
      Check((*write)->Update(*table_, *row, std::span(&field, 1)));
    }
    Check((*write)->Commit());
  }

  Answer Scan() override {
    Answer answer;
    jet::TableScan scan = table_->Scan();
    while (true) {
      const auto more = scan.Next();
      Check(more.status());
      if (!*more) return answer;
      ++answer.rows;
      answer.sum += scan.record().Single(c_[7]);
    }
  }

 private:
  void Bind() {
    auto table = file_->FindTable("Entry");
    Check(table.status());
    table_ = *table;
    c_.clear();
    for (const char* name :
         {"Event_ptr",     "Ath_no",     "Seed_place", "Div_no",         "Team_age",        "ActualSeed_time",
          "ConvSeed_time", "Fin_Time",   "Pre_Time",   "Ev_score",       "Hand_time",       "Alt_stat",
          "Bonus_event",   "Pre_hand",   "Fin_hand",   "ActSeed_course", "ConvSeed_course", "Dec_stat",
          "Fin_course",    "Pre_course", "Fin_wind",   "Fin_note",       "entry_note",      "Pre_heat",
          "Pre_lane",      "Fin_heat",   "Fin_lane",   "Fin_heatplace",  "Fin_place",       "Fin_ptsplace"}) {
      c_.push_back(table_->Column(name));
      Require(c_.back() >= 0, name);
    }
    by_event_ = table_->Index("entevtptr");
    by_athlete_event_ = table_->Index("entathnoevtptr");
    Require(by_event_ >= 0 && by_athlete_event_ >= 0, "indexes");
  }

  std::unique_ptr<jet::Database> file_;
  jet::Table* table_ = nullptr;
  std::vector<int> c_;
  int by_event_ = -1, by_athlete_event_ = -1;
};

}  // namespace

std::unique_ptr<Store> NewJetStore() {
  return std::make_unique<JetStore>();
}

}  // namespace tarvex::bench
