#pragma once

#include <memory>
#include <string>
#include <vector>

namespace tarvex::bench {

inline constexpr int kEvents = 400;
inline constexpr int kPerEvent = 50;

// One entry with thirty fields set.
struct EntryRow {
  int event_ptr, ath_no, seed_place, div_no, team_age;
  float actual_seed, converted_seed, fin_time, pre_time, ev_score;
  bool hand_time, alt_stat, bonus_event, pre_hand, fin_hand;
  std::string actseed_course, convseed_course, dec_stat, fin_course, pre_course, fin_wind, fin_note,
      entry_note;
  int pre_heat, pre_lane, fin_heat, fin_lane, fin_heatplace, fin_place, fin_ptsplace;
};

// The rows of every event; the athletes of an event are spread over the whole meet.
std::vector<std::vector<EntryRow>> MakeEntries();

// What reading came to, so that both engines can be held to the same answer.
struct Answer {
  int rows = 0;
  double sum = 0;
  bool operator==(const Answer&) const = default;
};

// An engine with the table Entry of the meet database and its four indexes. Every transaction is durable when
// it returns. The program ends on any failure.
class Store {
 public:
  virtual ~Store() = default;
  virtual const char* name() const = 0;
  // Makes the file, or opens it with nothing in memory.
  virtual void Create(const std::string& path) = 0;
  virtual void Open(const std::string& path) = 0;
  virtual void Close() = 0;
  // One transaction.
  virtual void Insert(const std::vector<EntryRow>& rows) = 0;
  // Ten fields of each row of an event, found by the index on events.
  virtual Answer ReadEvent(int event_ptr) = 0;
  // One transaction: sets Fin_Time of each (athlete, event), found by the index on both.
  virtual void UpdateMarks(const std::vector<EntryRow>& rows, float change) = 0;
  // Fin_Time of all rows.
  virtual Answer Scan() = 0;
};

std::unique_ptr<Store> NewJetStore();
std::unique_ptr<Store> NewSqliteStore();

}  // namespace tarvex::bench
