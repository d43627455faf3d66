#include "demo/run_events.h"

#include <fmt/format.h>

#include <optional>

#include "demo/results.h"
#include "marks/kinds.h"
#include "running/judge_event.h"
#include "running/place_round.h"

namespace tarvex::demo {
namespace {

using setup::Round;

// A tie that is broken by a jump-off: the tied ones in the order in which the judges rank them.
struct JumpOff {
  size_t event = 0;
  std::vector<running::Decision> decisions;
};

// The first place among the first three that several share.
std::optional<JumpOff> FindJumpOff(size_t event, const std::vector<running::Result>& results) {
  constexpr int kLastMedal = 3;
  for (int place = 1; place <= kLastMedal; ++place) {
    JumpOff jump_off{event, {}};
    int rank = place;
    for (const running::Result& result : results) {
      if (result.place != place) continue;
      jump_off.decisions.push_back({fmt::format("#{}", result.id), std::to_string(rank++), {}, {}});
    }
    if (jump_off.decisions.size() > 1) return jump_off;
  }
  return std::nullopt;
}

class Running {
 public:
  Running(database::Meet& meet, const std::vector<PlannedEvent>& events,
          const std::vector<Potentials>& potentials, Chance& chance, Progress& progress)
      : meet_(meet), events_(events), potentials_(potentials), chance_(chance), progress_(progress) {}

  Outcome Do() {
    if (Status status = EnterAll(); !status.ok()) return status;
    auto stored = setup::LoadEvents(meet_);
    if (!stored.ok()) return stored.status();
    for (const JumpOff& jump_off : jump_offs_) {
      Outcome judged =
          running::JudgeEvent(meet_, (*stored)[jump_off.event], Round::Finals, false, jump_off.decisions);
      if (!IsDone(judged)) return judged;
    }
    return Done{};
  }

 private:
  Status EnterAll() {
    TRY_ASSIGN(roster_, setup::LoadRoster(meet_));
    TRY_ASSIGN(const auto stored, setup::LoadEvents(meet_));
    TRY_ASSIGN(const auto write, meet_.Begin("demo results"));
    for (size_t i = 0; i < stored.size(); ++i) {
      progress_.ShowProgress(static_cast<int>(i), static_cast<int>(stored.size()));
      TRY(Enter(*write, i, stored[i]));
    }
    return write->Commit();
  }

  Status Enter(jet::Transaction& write, size_t index, const setup::StoredEvent& stored) {
    TRY_ASSIGN(running::RoundData data, running::LoadRound(meet_, stored, Round::Finals));
    const auto winds =
        InventResults(*events_[index].discipline, potentials_[index], meet_.mark_settings(), data, chance_);
    TRY_ASSIGN(std::vector<running::Result> results, running::ResultsOf(meet_, data, roster_));
    running::PlaceRound(meet_.settings(), data, results);
    running::TakeOver(results, data);
    setup::Event event = stored.row;
    event.event_stat = running::StatusAfterResults(data, results);
    for (const running::HeatWind& wind : winds) {
      TRY(running::SaveWind(write, meet_, event.event_ptr, Round::Finals, wind.heat, wind.wind));
    }
    NoteJumpOff(index, results);
    return running::SaveRound(write, meet_, data, event);
  }

  void NoteJumpOff(size_t index, const std::vector<running::Result>& results) {
    constexpr size_t kJumpOffs = 2;
    if (jump_offs_.size() == kJumpOffs || !marks::IsVerticalJump(events_[index].discipline->kind)) return;
    if (auto jump_off = FindJumpOff(index, results)) jump_offs_.push_back(std::move(*jump_off));
  }

  database::Meet& meet_;
  const std::vector<PlannedEvent>& events_;
  const std::vector<Potentials>& potentials_;
  Chance& chance_;
  Progress& progress_;
  setup::Roster roster_;
  std::vector<JumpOff> jump_offs_;
};

}  // namespace

Outcome RunEvents(database::Meet& meet, const std::vector<PlannedEvent>& events,
                  const std::vector<Potentials>& potentials, Chance& chance, Progress& progress) {
  return Running(meet, events, potentials, chance, progress).Do();
}

}  // namespace tarvex::demo
