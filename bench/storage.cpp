// The storage engine beside SQLite (rollback journal, synchronous=FULL) on the entries of a large meet: 400
// events of 50 entries. Every event is one durable transaction. Absolute times mean nothing on a shared
// machine; the ratio within one run does.
#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>

#include "base/platform.h"
#include "bench/harness.h"
#include "bench/store.h"

namespace tarvex::bench {

std::vector<std::vector<EntryRow>> MakeEntries() {
  std::vector<std::vector<EntryRow>> events;
  uint32_t random = 12345;
  const auto next = [&](uint32_t below) {
    random = random * 1664525 + 1013904223;
    return static_cast<int>((random >> 8) % below);
  };
  for (int event = 1; event <= kEvents; ++event) {
    std::vector<EntryRow>& rows = events.emplace_back();
    const int stride = 1 + 2 * next(40);
    const int first = next(5000);
    for (int i = 0; i < kPerEvent; ++i) {
      EntryRow row{};
      row.event_ptr = event;
      row.ath_no = 1 + (first + i * stride) % 5000;
      row.seed_place = i + 1;
      row.div_no = next(3);
      row.team_age = 14 + next(5);
      row.actual_seed = 10.0f + static_cast<float>(next(4000)) / 100;
      row.converted_seed = row.actual_seed;
      row.fin_time = row.actual_seed + 0.25f;
      row.pre_time = row.actual_seed + 0.5f;
      row.ev_score = static_cast<float>(next(11));
      row.hand_time = next(2) == 1;
      row.fin_hand = row.hand_time;
      row.actseed_course = row.convseed_course = row.fin_course = row.pre_course = "M";
      row.dec_stat = "D";
      row.fin_wind = "+1.3";
      row.fin_note = "10.231";
      row.entry_note = "late entry";
      row.pre_heat = 1 + i / 8;
      row.pre_lane = 1 + i % 8;
      row.fin_heat = 1 + i / 8;
      row.fin_lane = 1 + i % 8;
      row.fin_heatplace = 1 + i % 8;
      row.fin_place = i + 1;
      row.fin_ptsplace = i + 1;
      rows.push_back(std::move(row));
    }
  }
  return events;
}

namespace {

constexpr const char* kPhases[] = {"load", "read_by_event", "update_marks", "scan"};

struct Measured {
  std::map<std::string, Timing> phases;
  std::map<std::string, Answer> answers;
  std::map<std::string, platform::Usage> io;
  uint64_t file_size = 0;
};

void Measure(Store& store, const std::string& path, const std::vector<std::vector<EntryRow>>& events,
             Measured& out) {
  const auto phase = [&](const char* name, const std::function<Answer()>& work) {
    const platform::Usage before = platform::ProcessUsage();
    Answer answer;
    out.phases[name].runs.push_back(Milliseconds([&] { answer = work(); }));
    const platform::Usage after = platform::ProcessUsage();
    out.io[name].bytes_read = after.bytes_read - before.bytes_read;
    out.io[name].bytes_written = after.bytes_written - before.bytes_written;
    out.answers[name] = answer;
  };
  store.Create(path);
  phase("load", [&] {
    for (const auto& rows : events) store.Insert(rows);
    return Answer{kEvents * kPerEvent, 0};
  });
  store.Close();
  store.Open(path);
  phase("read_by_event", [&] {
    Answer total;
    for (int event = 1; event <= kEvents; ++event) {
      const Answer one = store.ReadEvent(event);
      total.rows += one.rows;
      total.sum += one.sum;
    }
    return total;
  });
  store.Close();
  store.Open(path);
  phase("update_marks", [&] {
    for (const auto& rows : events) store.UpdateMarks(rows, 1.0f);
    return Answer{kEvents * kPerEvent, 0};
  });
  store.Close();
  store.Open(path);
  phase("scan", [&] { return store.Scan(); });
  store.Close();
  struct stat info {};
  if (stat(path.c_str(), &info) == 0) out.file_size = static_cast<uint64_t>(info.st_size);
}

int Main(int runs) {
  const auto events = MakeEntries();
  Measured jet, sqlite;
  // The first run warms up and is not counted; the engines take turns in going first.
  for (int run = 0; run <= runs; ++run) {
    const ScratchFolder folder;
    const auto a = NewJetStore();
    const auto b = NewSqliteStore();
    if (run % 2 == 0) Measure(*a, folder.File("meet.mdb"), events, jet);
    Measure(*b, folder.File("meet.sqlite"), events, sqlite);
    if (run % 2 == 1) Measure(*a, folder.File("meet.mdb"), events, jet);
    if (run > 0) continue;
    for (const char* phase : kPhases) {
      Require(jet.answers[phase] == sqlite.answers[phase], std::string(phase) + ": the engines disagree");
      jet.phases[phase].runs.clear();
      sqlite.phases[phase].runs.clear();
    }
  }
  std::printf("storage/%d: %d events of %d entries, median of %d runs (least .. greatest), milliseconds\n",
              kEvents * kPerEvent, kEvents, kPerEvent, runs);
  std::printf("%-14s %28s %28s %7s %22s %22s\n", "phase", "tarvex", "sqlite", "ratio", "tarvex read/written",
              "sqlite read/written");
  for (const char* phase : kPhases) {
    const Timing &a = jet.phases[phase], &b = sqlite.phases[phase];
    std::printf("%-14s %9.1f (%7.1f..%7.1f) %9.1f (%7.1f..%7.1f) %7.2f %9.1f/%8.1f MB %9.1f/%8.1f MB\n",
                phase, a.Median(), a.Least(), a.Greatest(), b.Median(), b.Least(), b.Greatest(),
                a.Median() / b.Median(), static_cast<double>(jet.io[phase].bytes_read) / 1e6,
                static_cast<double>(jet.io[phase].bytes_written) / 1e6,
                static_cast<double>(sqlite.io[phase].bytes_read) / 1e6,
                static_cast<double>(sqlite.io[phase].bytes_written) / 1e6);
  }
  std::printf("file size      %26.1f MB %25.1f MB\n", static_cast<double>(jet.file_size) / 1e6,
              static_cast<double>(sqlite.file_size) / 1e6);
  return 0;
}

}  // namespace
}  // namespace tarvex::bench

int main(int argc, char** argv) {
  return tarvex::bench::Main(argc > 1 ? std::atoi(argv[1]) : 5);
}
