#include "running/score_event.h"

#include <optional>

#include "marks/kinds.h"
#include "running/messages.h"
#include "running/place_round.h"
#include "running/places.h"
#include "running/points.h"
#include "running/round_store.h"
#include "scoring/messages.h"
#include "scoring/points_store.h"
#include "setup/event_name.h"
#include "setup/event_status.h"

namespace tarvex::running {
namespace {

using database::Meet;
using setup::StoredEvent;

// An event that is ready to be written.
struct Planned {
  RoundData data;
  setup::Event event;
  bool has_tie = false;
  bool is_incomplete = false;
};

struct Plan {
  std::optional<Planned> planned;
  std::optional<Outcome> end;
};

class Run {
 public:
  Run(Meet& meet, bool whole_meet, UserInterface& user) : meet_(meet), whole_meet_(whole_meet), user_(user) {}

  Outcome Do(std::span<const StoredEvent> events) {
    // NFHS dual scoring pairs the teams anew for every event, so there is no standing to be made again.
    if (whole_meet_ && meet_.settings().meet_meetstyle == 3)
      return Refusal{scoring::NoRescoringOfDoubleDual()};
    auto table = scoring::LoadPointsTable(meet_);
    if (!table.ok()) {
      user_.Tell(scoring::CannotLoadPointsTable());
      return table.status();
    }
    points_ = std::move(*table);
    auto roster = setup::LoadRoster(meet_);
    if (!roster.ok()) return roster.status();
    roster_ = std::move(*roster);

    std::vector<Planned> planned;
    int done = 0;
    for (const StoredEvent& event : events) {
      user_.ShowProgress(done++, static_cast<int>(events.size()));
      auto plan = PlanEvent(event);
      if (!plan.ok()) return plan.status();
      if (plan->end) return *plan->end;
      if (plan->planned) planned.push_back(std::move(*plan->planned));
    }
    // A refusal that stands alone is the outcome; beside events that are scored it is told.
    const size_t told = refusals_.size() - (planned.empty() && !refusals_.empty() ? 1 : 0);
    for (size_t i = 0; i < told; ++i) user_.Tell(refusals_[i]);
    if (planned.empty()) return Refusal{refusals_.empty() ? NothingToScore() : refusals_.back()};
    if (Status status = Write(planned); !status.ok()) return status;
    for (const Planned& one : planned) {
      const bool has_something_to_tell = one.has_tie || one.is_incomplete;
      if (has_something_to_tell && planned.size() > 1) user_.Tell(OfEvent(setup::EventLabel(one.event)));
      if (one.has_tie) user_.Tell(ThereIsATie());
      if (one.is_incomplete) user_.Tell(SomeEntriesWithoutResult());
    }
    return Done{};
  }

 private:
  Plan PassOver(const Notice& why) {
    refusals_.push_back(why);
    return {};
  }

  // Whether the event scores; the person may turn that on, or leave the event alone.
  struct Choice {
    bool scores = true;
    bool goes_on = true;
    bool answered = true;
  };
  Choice AskWhetherItScores(const setup::Event& event) {
    if (event.score_event) return {};
    const auto answer = user_.Ask(NotSetUpToScore(true), Buttons::YesNoCancel);
    if (!answer) return {.answered = false};
    return {.scores = *answer == Answer::Yes, .goes_on = *answer != Answer::Cancel};
  }

  Expected<Plan> PlanEvent(const StoredEvent& stored) {
    const setup::Event& before = stored.row;
    const int last = before.event_rounds;
    const int current = setup::CurrentRound(before.event_stat, last);
    if (current != last) return PassOver(OnlyFinalScores());
    if (last > 1) return PassOver(EventHasSeveralRounds(setup::EventLabel(before)));
    if (before.event_type == 'C' || before.event_type == 'R') return PassOver(CannotScoreCrossCountry());
    if (before.event_type2 == 'A') return PassOver(CannotScoreRelay());
    if (!setup::IsRoundSeeded(before.event_stat, last, last)) {
      return PassOver(EventNotSeeded(setup::EventLabel(before)));
    }
    const Choice choice = AskWhetherItScores(before);
    if (!choice.answered) return Plan{{}, Unanswered{}};
    if (!choice.goes_on) return Plan{};

    Planned planned;
    planned.event = before;
    planned.event.score_event = choice.scores;
    TRY_ASSIGN(planned.data, LoadRound(meet_, stored, setup::Round::Finals));
    TRY_ASSIGN(std::vector<Result> results, ResultsOf(meet_, planned.data, roster_));
    bool any = false;
    for (const Result& result : results) any |= HasResult(result);
    if (!any) return PassOver(EventHasNoResults(setup::EventLabel(before)));
    PlaceRound(meet_.settings(), planned.data, results);
    if (choice.scores) {
      if (const auto refusal = Score(planned, results)) return PassOver(*refusal);
    } else {
      for (Result& result : results) result.ev_score = 0;
    }
    planned.is_incomplete = !IsRoundComplete(results);
    planned.event.event_stat = choice.scores ? setup::kScored : setup::DoneStatus(last);
    TakeOver(results, planned.data);
    return Plan{std::move(planned), {}};
  }

  std::optional<Notice> Score(Planned& planned, std::vector<Result>& results) {
    if (meet_.settings().score_fastestheatonly && !IsRoundComplete(results)) return AllEntriesNeedAResult();
    const auto rules = ScorerRulesOf(meet_.settings(), planned.data, results);
    if (const auto* notice = std::get_if<Notice>(&rules)) return *notice;
    const scoring::Kind kind = scoring::KindOf(planned.event);
    planned.has_tie = ScoreResults(results, [&](const Result& result, int place) {
                        return points_.PointsFor({result.points_division, result.points_sex, kind}, place);
                      }).tie;
    return std::nullopt;
  }

  Status Write(const std::vector<Planned>& planned) {
    TRY_ASSIGN(const auto write, meet_.Begin("score"));
    for (const Planned& one : planned) TRY(SaveRound(*write, meet_, one.data, one.event));
    return write->Commit();
  }

  Meet& meet_;
  bool whole_meet_;
  UserInterface& user_;
  scoring::PointsTable points_;
  setup::Roster roster_;
  std::vector<Notice> refusals_;
};

}  // namespace

Outcome ScoreEvents(Meet& meet, std::span<const StoredEvent> events, bool whole_meet, UserInterface& user) {
  return Run(meet, whole_meet, user).Do(events);
}

std::vector<StoredEvent> EventsToScore(std::span<const StoredEvent> events) {
  std::vector<StoredEvent> chosen;
  for (const StoredEvent& event : events) {
    if (setup::IsRoundDone(event.row.event_stat, event.row.event_rounds, event.row.event_rounds)) {
      chosen.push_back(event);
    }
  }
  return chosen;
}

}  // namespace tarvex::running
