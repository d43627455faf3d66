#include "running/purge.h"

#include <algorithm>
#include <vector>

#include "running/messages.h"
#include "running/round_store.h"
#include "setup/event_name.h"
#include "setup/event_status.h"

namespace tarvex::running {
namespace {

using database::Meet;
using setup::StoredEvent;

struct Planned {
  RoundData data;
  setup::Event event;
};

bool HasAnyResult(const RoundData& data) {
  return std::any_of(data.rows.begin(), data.rows.end(), [](const RoundRow& row) {
    return row.mark > 0 || row.stat != ' ' || !row.wind.empty() || row.jdplace != 0 || row.jdheatplace != 0 ||
           row.jdev_score != 0;
  });
}

bool IsSeeded(const RoundData& data) {
  return std::any_of(data.rows.begin(), data.rows.end(), [](const RoundRow& row) { return row.heat > 0; });
}

// The exhibition letter stays: it may have come with the seed mark.
void TakeResultAway(RoundRow& row, bool is_final) {
  row.mark = 0;
  row.course = row.stat = ' ';
  row.hand = row.video = false;
  row.wind.clear();
  row.note.clear();
  row.place = row.heatplace = row.jdplace = row.jdheatplace = row.ptsplace = 0;
  if (is_final) row.ev_score = row.jdev_score = 0;
}

class Run {
 public:
  Run(Meet& meet, const PurgeOptions& options, UserInterface& user)
      : meet_(meet), options_(options), user_(user) {}

  Outcome Do(std::span<const StoredEvent> events) {
    std::vector<Planned> planned;
    for (const StoredEvent& event : events) {
      bool is_unanswered = false;
      auto one = PlanEvent(event, is_unanswered);
      if (!one.ok()) return one.status();
      if (is_unanswered) return Unanswered{};
      if (*one) planned.push_back(std::move(**one));
    }
    if (planned.empty()) {
      if (refusals_.empty()) return Refusal{NothingPurged()};
      for (size_t i = 0; i + 1 < refusals_.size(); ++i) user_.Tell(refusals_[i]);
      return Refusal{refusals_.back()};
    }
    for (const Notice& refusal : refusals_) user_.Tell(refusal);
    if (Status status = Write(planned); !status.ok()) return status;
    return Done{};
  }

 private:
  Expected<std::optional<Planned>> PlanEvent(const StoredEvent& stored, bool& is_unanswered) {
    const setup::Event& before = stored.row;
    const std::string label = setup::EventLabel(before);
    const auto pass_over = [&](const Notice& why) {
      refusals_.push_back(why);
      return std::optional<Planned>();
    };
    const int current = setup::CurrentRound(before.event_stat, before.event_rounds);
    const auto round = options_.round ? options_.round : setup::RoundByNumber(current, before.event_rounds);
    // A round that others were made from cannot be taken away under them.
    if (!round || setup::RoundNumber(*round, before.event_rounds) != current) {
      return pass_over(NotTheRoundBeingRun(label, options_.round ? setup::RoundName(*options_.round) : ""));
    }
    Planned planned;
    planned.event = before;
    TRY_ASSIGN(planned.data, LoadRound(meet_, stored, *round));
    const bool has_results = HasAnyResult(planned.data);
    if (options_.results_only ? !has_results : !IsSeeded(planned.data))
      return pass_over(NothingToPurge(label));
    if (has_results && !options_.results_only) {
      const auto answer = user_.Ask(EventHasResultsToPurge(label), Buttons::YesNo);
      is_unanswered = !answer;
      if (!answer || *answer == Answer::No) return std::optional<Planned>();
    }
    for (RoundRow& row : planned.data.rows) {
      TakeResultAway(row, planned.data.is_last_round());
      if (!options_.results_only) row.heat = row.lane = 0;
    }
    if (setup::IsRoundDone(before.event_stat, current, before.event_rounds)) {
      planned.event.event_stat = setup::WithoutResults(before.event_stat, before.event_rounds);
    }
    if (!options_.results_only) {
      planned.event.event_stat = setup::WithoutSeeding(planned.event.event_stat, before.event_rounds);
      planned.event.unseeded_stat = ' ';
    }
    return std::optional<Planned>(std::move(planned));
  }

  Status Write(const std::vector<Planned>& planned) {
    TRY_ASSIGN(const auto write, meet_.Begin("purge"));
    for (const Planned& one : planned) {
      TRY(DeleteWinds(*write, meet_, one.event.event_ptr, one.data.round));
      TRY(SaveRound(*write, meet_, one.data, one.event));
    }
    return write->Commit();
  }

  Meet& meet_;
  const PurgeOptions& options_;
  UserInterface& user_;
  std::vector<Notice> refusals_;
};

}  // namespace

Outcome PurgeRounds(Meet& meet, std::span<const StoredEvent> events, const PurgeOptions& options,
                    UserInterface& user) {
  return Run(meet, options, user).Do(events);
}

}  // namespace tarvex::running
