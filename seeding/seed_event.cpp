#include "seeding/seed_event.h"

#include <algorithm>

#include "seeding/messages.h"
#include "seeding/random_draw.h"
#include "seeding/seed_round.h"
#include "seeding/seed_store.h"
#include "setup/event_kind.h"
#include "setup/event_name.h"
#include "setup/event_status.h"

namespace tarvex::seeding {
namespace {

using database::Meet;
using setup::StoredEvent;

SeedingPreferences PreferencesOf(const database::MeetSettings& settings) {
  SeedingPreferences preferences;
  preferences.meet_numlanes = settings.meet_numlanes;
  preferences.timedfinal_randrule = settings.timedfinal_randrule;
  preferences.round1_randrule = settings.round1_randrule;
  preferences.round234_randrule = settings.round234_randrule;
  preferences.round1_closegaps = settings.round1_closegaps;
  preferences.timedfinal_circleseed = settings.timedfinal_circleseed;
  preferences.prelimheats_circle = settings.prelimheats_circle;
  preferences.seed_exhlast = settings.seed_exhlast;
  return preferences;
}

// The draw of one event. Neighbouring numbers must not give similar draws, which the generator's own mixing
// of its seed sees to.
SeededDraw DrawFor(uint64_t run, int event_ptr) {
  return SeededDraw(run ^ (static_cast<uint64_t>(event_ptr) * 0x9E3779B97F4A7C15));
}

// A round that is ready to be written.
struct Planned {
  StoredEvent event;
  setup::Round round = setup::Round::Finals;
  std::vector<StoredSeedRow> rows;
  std::vector<Place> places;
};

// What becomes of one event: it is planned, passed over, or the run ends.
struct Plan {
  std::optional<Planned> planned;
  std::optional<Outcome> end;
};

class Run {
 public:
  Run(Meet& meet, const SeedOptions& options, UserInterface& user)
      : meet_(meet), options_(options), user_(user) {}

  SeedingRun Do(std::span<const StoredEvent> events) {
    SeedingRun result;
    result.outcome = Prepare(events);
    if (!IsDone(result.outcome)) return result;
    std::vector<Planned> planned;
    int done = 0;
    for (const StoredEvent& event : events) {
      user_.ShowStatus(NowSeedingEvent(setup::EventLabel(event.row)));
      user_.ShowProgress(done++, static_cast<int>(events.size()));
      auto plan = PlanEvent(event);
      if (!plan.ok()) return Failed(event, plan.status());
      if (plan->end) {
        result.outcome = *plan->end;
        return result;
      }
      if (plan->planned) planned.push_back(std::move(*plan->planned));
    }
    if (planned.empty()) {
      result.outcome = Refusal{NoEventsSeeded()};
      return result;
    }
    if (!options_.preview) {
      if (Status status = Write(planned); !status.ok()) return Failed(*writing_, status);
      user_.Tell(SeedingCompleted(static_cast<int>(planned.size())));
    }
    for (Planned& one : planned) result.seeded.push_back({one.event.row, one.round, std::move(one.places)});
    return result;
  }

 private:
  Outcome Prepare(std::span<const StoredEvent> events) {
    const database::MeetSettings& settings = meet_.settings();
    if (events.empty()) return Refusal{NoEligibleEvents()};
    if (settings.dual_evenodd) {
      const auto& lanes = settings.dualteam_lane;
      const bool any_team = std::any_of(lanes.begin(), lanes.end(), [](int team) { return team > 0; });
      return Refusal{any_team ? DualMeetsNotSeeded() : NoDualTeams()};
    }
    if (settings.random_select) return Refusal{RandomSelectNotSeeded()};
    user_.ShowStatus(StartingSeedRoutine());
    auto roster = setup::LoadRoster(meet_);
    if (!roster.ok()) return roster.status();
    roster_ = std::move(*roster);
    return Done{};
  }

  SeedingRun Failed(const StoredEvent& event, const Status& status) {
    user_.Tell(ProblemSeedingEvent(setup::EventLabel(event.row)));
    SeedingRun result;
    result.outcome = status;
    return result;
  }

  Plan PassOver(const Notice& why) {
    user_.Tell(why);
    return {};
  }

  // Whether the round may be seeded (again); an ending of the run when nobody answers.
  std::optional<Outcome> AskAboutReseed(setup::Round round, bool& proceed) {
    const auto answer = user_.Ask(AlreadySeeded(setup::RoundName(round)), Buttons::YesNo);
    if (!answer) return Unanswered{};
    proceed = *answer == Answer::Yes;
    return std::nullopt;
  }

  Expected<Plan> PlanEvent(const StoredEvent& stored) {
    const setup::Event& event = stored.row;
    const std::string label = setup::EventLabel(event);
    if (marks::IsCombinedKind(event.event_stroke)) return PassOver(CombinedHeaderEvent(label));
    TRY_ASSIGN(const std::string holder, LockedBySomebodyElse(meet_, stored.id));
    if (!holder.empty()) return PassOver(EventIsLocked(label, holder));
    if (event.event_rounds > 1) return PassOver(SeveralRoundsNotSeeded(label));
    const auto number = setup::RoundToSeed(event.event_stat, event.event_rounds);
    if (!number) return PassOver(RoundIsDone(label));
    const auto round = setup::RoundByNumber(*number, event.event_rounds);
    if (!round || (options_.round && *options_.round != *round)) return PassOver(RoundIsNotNext(label));

    TRY_ASSIGN(std::vector<StoredSeedRow> rows, LoadSeedRows(meet_, event, *round));
    const std::vector<Seed> seeds = EligibleSeeds(meet_, event, roster_, rows);
    if (seeds.empty()) return PassOver(NothingToSeed(label));

    bool proceed = true;
    const bool is_seeded = setup::IsRoundSeeded(event.event_stat, *number, event.event_rounds);
    if (is_seeded && options_.prompt_if_reseed && !options_.preview) {
      if (auto end = AskAboutReseed(*round, proceed)) return Plan{{}, end};
      if (!proceed) return Plan{};
    }
    bool by_seed_place = false;
    if (meet_.settings().showfinishplace_withentry && setup::IsRunningEvent(event)) {
      const auto answer = user_.Ask(SeedByPlaceAndTime(label), Buttons::YesNo);
      if (!answer) return Plan{{}, Unanswered{}};
      by_seed_place = *answer == Answer::Yes;
    }
    const SeedingPreferences preferences = PreferencesOf(meet_.settings());
    TRY_ASSIGN(const LaneTables tables, LoadLaneTables(meet_, event.event_ptr));
    SeededDraw draw = DrawFor(options_.draw, event.event_ptr);
    auto places =
        SeedFirstRound(seeds, SetupOf(event, *round, preferences), preferences, tables, by_seed_place, draw);
    if (const auto* notice = std::get_if<Notice>(&places)) return PassOver(*notice);
    return Plan{Planned{stored, *round, std::move(rows), std::get<std::vector<Place>>(std::move(places))},
                {}};
  }

  Status Write(const std::vector<Planned>& planned) {
    writing_ = &planned.front().event;
    TRY_ASSIGN(const auto write, meet_.Begin("seed"));
    for (const Planned& one : planned) {
      writing_ = &one.event;
      TRY(SavePlaces(*write, meet_, one.event.row, one.round, one.rows, one.places));
      setup::Event event = one.event.row;
      event.event_stat = setup::SeededStatus(setup::RoundNumber(one.round, event.event_rounds));
      event.unseeded_stat = ' ';
      TRY(setup::SaveEvent(*write, meet_, one.event, event));
    }
    return write->Commit();
  }

  Meet& meet_;
  const SeedOptions& options_;
  UserInterface& user_;
  setup::Roster roster_;
  const StoredEvent* writing_ = nullptr;
};

}  // namespace

SeedingRun SeedEvents(Meet& meet, std::span<const StoredEvent> events, const SeedOptions& options,
                      UserInterface& user) {
  return Run(meet, options, user).Do(events);
}

}  // namespace tarvex::seeding
