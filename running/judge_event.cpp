#include "running/judge_event.h"

#include <algorithm>

#include "running/judges.h"
#include "running/messages.h"
#include "running/place_round.h"
#include "running/round_store.h"
#include "setup/entry_lookup.h"
#include "setup/event_name.h"
#include "setup/event_status.h"

namespace tarvex::running {
namespace {

using database::Meet;

// A number typed with the program's decimal separator, as the rules read it.
std::string WithPoint(std::string typed, char separator) {
  if (separator != '.') std::replace(typed.begin(), typed.end(), separator, '.');
  return typed;
}

// Writes one decision into its result; the notice says which cell is refused.
std::optional<Notice> Apply(const Decision& decision, const std::vector<Result>& results, Result& result,
                            bool is_final, char separator) {
  if (decision.place) {
    const auto read = ReadJdPlace(*decision.place, CountPlaceable(results));
    if (const auto* notice = std::get_if<Notice>(&read)) return *notice;
    if (std::get<int>(read) > 0 && !HasValidMark(result)) return NothingCanHoldAJdPlace();
    result.jdplace = std::get<int>(read);
  }
  if (decision.heat_place) {
    const auto read = ReadJdHeatPlace(*decision.heat_place, CountInHeat(results, result.heat));
    if (const auto* notice = std::get_if<Notice>(&read)) return *notice;
    if (std::get<int>(read) > 0 && !HasValidMark(result)) return NothingCanHoldAJdPlace();
    result.jdheatplace = std::get<int>(read);
  }
  if (decision.points) {
    if (!is_final) return JdPointsOnlyInFinals();
    const auto read = ReadJdPoints(WithPoint(*decision.points, separator));
    if (const auto* notice = std::get_if<Notice>(&read)) return *notice;
    result.jdev_score = std::get<float>(read);
  }
  return std::nullopt;
}

}  // namespace

Outcome JudgeEvent(Meet& meet, const setup::StoredEvent& event, setup::Round round, bool reset,
                   std::span<const Decision> decisions) {
  const int number = setup::RoundNumber(round, event.row.event_rounds);
  if (event.row.event_rounds > 1) return Refusal{EventHasSeveralRounds(setup::EventLabel(event.row))};
  if (number == 0) {
    return Refusal{NotTheRoundBeingRun(setup::EventLabel(event.row), setup::RoundName(round))};
  }
  if (!setup::IsRoundSeeded(event.row.event_stat, number, event.row.event_rounds))
    return Refusal{RoundNotComplete()};
  auto roster = setup::LoadRoster(meet);
  if (!roster.ok()) return roster.status();
  auto data = LoadRound(meet, event, round);
  if (!data.ok()) return data.status();
  auto results = ResultsOf(meet, *data, *roster);
  if (!results.ok()) return results.status();
  if (auto refusal = CheckJudgesGrid(*results)) return Refusal{*refusal};
  if (reset) ResetDecisions(*results);
  for (const Decision& decision : decisions) {
    const auto entrant = setup::LookUpEntrant(meet, event.row, decision.key);
    if (!entrant.ok()) return entrant.status();
    if (const auto* notice = std::get_if<Notice>(&*entrant)) return Refusal{*notice};
    const auto result = std::find_if(results->begin(), results->end(),
                                     [&](const Result& one) { return one.id == std::get<int>(*entrant); });
    if (result == results->end()) return Refusal{NoSuchEntry(decision.key)};
    const char separator = meet.session().program.decimal_separator;
    if (auto refusal = Apply(decision, *results, *result, data->is_last_round(), separator)) {
      return Refusal{*refusal};
    }
  }
  PlaceRound(meet.settings(), *data, *results);
  TakeOver(*results, *data);
  const auto save = [&]() -> Status {
    TRY_ASSIGN(const auto write, meet.Begin("jd"));
    TRY(SaveRound(*write, meet, *data, event.row));
    return write->Commit();
  };
  if (Status status = save(); !status.ok()) return status;
  return Done{};
}

}  // namespace tarvex::running
