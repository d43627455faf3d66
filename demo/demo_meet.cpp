#include "demo/demo_meet.h"

#include <memory>

#include "database/create.h"
#include "database/date.h"
#include "database/open.h"
#include "database/settings_fields.h"
#include "demo/chance.h"
#include "demo/plan.h"
#include "demo/progress.h"
#include "demo/roster.h"
#include "demo/run_events.h"
#include "demo/schedule.h"
#include "demo/write_roster.h"
#include "jet/journal.h"
#include "running/score_event.h"
#include "seeding/seed_event.h"
#include "setup/division_store.h"
#include "setup/event_store.h"

namespace tarvex::demo {
namespace {

using database::Meet;

// A chance for each purpose, so that a meet that is seeded has the same people as one that is not. No two
// meets share an identifier.
constexpr uint64_t kRosterSeed = 20260516, kResultsSeed = 20260517, kIdentifierSeed = 20260518;
Chance ChanceFor(uint64_t purpose, Size size) {
  constexpr uint64_t kLargeMeet = 1000;
  return Chance(purpose + (size == Size::Large ? kLargeMeet : 0));
}
constexpr uint64_t kDraw = 7;

// How far each part takes the whole.
constexpr int kCreated = 5, kEntered = 40, kSeeded = 60, kRun = 85;

// At eight in the morning of the first day.
database::Session FixedSession(Size size) {
  database::Session session;
  session.now = kFirstMeetDay + 8.0 / 24;
  session.random_bits = [chance = std::make_shared<Chance>(ChanceFor(kIdentifierSeed, size))] {
    return chance->Bits();
  };
  return session;
}

std::vector<int> CountEntrants(const Roster& roster, size_t events) {
  std::vector<int> entrants(events);
  for (const MadeEntry& entry : roster.entries) ++entrants[entry.event];
  for (const MadeRelay& relay : roster.relays) ++entrants[relay.event];
  return entrants;
}

class Making {
 public:
  Making(Meet& meet, const DemoOptions& options, Progress& progress)
      : meet_(meet), options_(options), progress_(progress), plan_(PlanOf(options.size)) {}

  Outcome Do() {
    progress_.StartPart(options_.stage == Stage::Entered ? Progress::kWhole : kEntered);
    if (Outcome entered = Enter(); !IsDone(entered)) return entered;
    if (options_.stage == Stage::Entered) return Done{};
    progress_.StartPart(options_.stage == Stage::Seeded ? Progress::kWhole : kSeeded);
    if (Outcome seeded = Seed(); !IsDone(seeded)) return seeded;
    if (options_.stage == Stage::Seeded) return Done{};
    progress_.StartPart(kRun);
    Chance chance = ChanceFor(kResultsSeed, options_.size);
    if (Outcome run = RunEvents(meet_, events_, potentials_, chance, progress_); !IsDone(run)) return run;
    progress_.StartPart(Progress::kWhole);
    return Score();
  }

 private:
  Outcome Enter() {
    // New events take their lanes from the settings.
    if (Outcome changed = ChangeSettings(1); !IsDone(changed)) return changed;
    events_ = PlanEvents(plan_, setup::DefaultsOf(meet_.settings()));
    Chance chance = ChanceFor(kRosterSeed, options_.size);
    const Roster roster = InventRoster(plan_, events_, chance);
    const auto sessions = ScheduleMeet(events_, CountEntrants(roster, events_.size()));
    if (Outcome changed = ChangeSettings(sessions.back().day); !IsDone(changed)) return changed;
    auto potentials = WriteRoster(meet_, events_, sessions, roster, progress_);
    if (!potentials.ok()) return potentials.status();
    potentials_ = std::move(*potentials);
    return Done{};
  }

  Outcome ChangeSettings(int days) {
    const std::string first = database::IsoText(kFirstMeetDay);
    const std::string last = database::IsoText(kFirstMeetDay + days - 1);
    const std::vector<database::FieldText> changes = {
        {"Meet_name1", std::string(plan_.meet_name)},
        {"Meet_location", std::string(plan_.meet_location)},
        {"Meet_start", first},
        {"Meet_end", last},
        {"Calc_date", first},
        {"Meet_class", std::to_string(plan_.meet_class)},
        {"meet_numlanes", std::to_string(plan_.lanes)},
        {"use_compnumbers", "yes"},
        {"Enter_ages", plan_.is_school_meet ? "no" : "yes"},
        {"Enter_birthdate", "yes"},
        {"Enter_schoolyr", plan_.is_school_meet ? "yes" : "no"},
        {"enter_athstat", "yes"},
    };
    return database::ChangeSettings(meet_, changes);
  }

  Outcome Seed() {
    const auto events = setup::LoadEvents(meet_);
    if (!events.ok()) return events.status();
    seeding::SeedOptions options;
    options.draw = kDraw;
    return seeding::SeedEvents(meet_, *events, options, progress_).outcome;
  }

  Outcome Score() {
    const auto events = setup::LoadEvents(meet_);
    if (!events.ok()) return events.status();
    return running::ScoreEvents(meet_, running::EventsToScore(*events), true, progress_);
  }

  Meet& meet_;
  const DemoOptions& options_;
  Progress& progress_;
  Plan plan_;
  std::vector<PlannedEvent> events_;
  std::vector<Potentials> potentials_;
};

Outcome Fill(FileSystem& files, const std::string& path, const database::Session& session,
             const DemoOptions& options, Progress& progress) {
  database::Opened opened = database::OpenMeet(files, path, session, progress);
  if (!IsDone(opened.outcome)) return opened.outcome;
  return Making(*opened.meet, options, progress).Do();
}

void Remove(FileSystem& files, const std::string& path) {
  for (const std::string& file : {path, jet::Journal::PathFor(path)}) {
    if (files.Exists(file)) (void)files.Remove(file);
  }
}

}  // namespace

Outcome MakeDemoMeet(FileSystem& files, const std::string& path, const DemoOptions& options,
                     UserInterface& user) {
  Progress progress(user);
  const database::Session session = FixedSession(options.size);
  progress.StartPart(kCreated);
  if (Outcome created = database::CreateMeet(files, path, session); !IsDone(created)) return created;
  Outcome filled = Fill(files, path, session, options, progress);
  if (!IsDone(filled)) {
    Remove(files, path);
    return filled;
  }
  progress.ShowProgress(1, 1);
  return filled;
}

}  // namespace tarvex::demo
