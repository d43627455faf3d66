// The long commands of a meet day on the large demo meet: 200 events, 20,000 entries. Prints time, peak
// memory of the whole process and bytes read and written. Absolute times mean nothing on a shared machine;
// memory and bytes do.
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include "base/platform.h"
#include "bench/harness.h"
#include "database/open.h"
#include "demo/demo_meet.h"
#include "running/score_event.h"
#include "seeding/seed_event.h"

namespace tarvex::bench {
namespace {

// Answers every question with Yes.
class YesUser : public UserInterface {
 public:
  void Tell(const Notice&) override {}
  std::optional<Answer> Ask(const Notice&, Buttons) override { return Answer::Yes; }
  std::optional<std::string> AskText(const Notice&, std::string_view proposed) override {
    return std::string(proposed);
  }
  void ShowStatus(const Notice&) override {}
  void ShowProgress(int, int) override {}
};

void Check(const Outcome& outcome, const char* what) {
  Require(IsDone(outcome), what);
}

// Opens the meet anew, runs the work once and prints what it took.
template <class Work>
void Measure(const char* name, const std::string& path, Work work) {
  YesUser user;
  const platform::Usage before = platform::ProcessUsage();
  const double elapsed = Milliseconds([&] {
    database::Session session;
    session.now = 46158;
    database::Opened opened = database::OpenMeet(platform::Files(), path, session, user);
    Check(opened.outcome, "open");
    const auto events = setup::LoadEvents(*opened.meet);
    Require(events.ok(), "events");
    work(*opened.meet, *events, user);
  });
  const platform::Usage after = platform::ProcessUsage();
  std::printf("%-16s %9.1f ms   peak %6.1f MB   read %8.2f MB   written %8.2f MB\n", name, elapsed,
              static_cast<double>(after.peak_memory) / 1e6,
              static_cast<double>(after.bytes_read - before.bytes_read) / 1e6,
              static_cast<double>(after.bytes_written - before.bytes_written) / 1e6);
}

// One of the two in a process of its own, so that the peak is its own.
int Run(const std::string& which, const std::string& path) {
  if (which == "seed_all") {
    Measure("seed_all", path, [](database::Meet& meet, const auto& events, UserInterface& user) {
      seeding::SeedOptions options;
      options.prompt_if_reseed = false;
      options.draw = 7;
      const auto run = seeding::SeedEvents(meet, events, options, user);
      Check(run.outcome, "seed");
      Require(run.seeded.size() >= 150, "too few events were seeded");
    });
  } else if (which == "score_all") {
    Measure("score_all", path, [](database::Meet& meet, const auto& events, UserInterface& user) {
      const auto chosen = running::EventsToScore(events);
      Require(chosen.size() >= 150, "too few events are done");
      Check(running::ScoreEvents(meet, chosen, true, user), "score");
    });
  }
  return 0;
}

int Main(int argc, char** argv) {
  if (argc == 3) return Run(argv[1], argv[2]);
  const ScratchFolder folder;
  YesUser user;
  for (const auto& [which, stage] :
       {std::pair{"seed_all", demo::Stage::Entered}, std::pair{"score_all", demo::Stage::Scored}}) {
    const std::string path = folder.File(std::string(which) + ".mdb");
    demo::DemoOptions options;
    options.size = demo::Size::Large;
    options.stage = stage;
    Check(demo::MakeDemoMeet(platform::Files(), path, options, user), "demo");
    const std::string command = std::string("\"") + argv[0] + "\" " + which + " \"" + path + "\"";
    std::fflush(stdout);
    Require(std::system(command.c_str()) == 0, which);
  }
  return 0;
}

}  // namespace
}  // namespace tarvex::bench

int main(int argc, char** argv) {
  return tarvex::bench::Main(argc, argv);
}
