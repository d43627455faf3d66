#include "running/place_again.h"

#include <algorithm>

#include "running/place_round.h"
#include "running/round_store.h"
#include "setup/event_status.h"

namespace tarvex::running {

Status PlaceAgain(jet::Transaction& write, const database::Meet& meet, int event_ptr) {
  TRY_ASSIGN(const auto events, setup::LoadEvents(meet));
  const auto stored = std::find_if(events.begin(), events.end(), [&](const setup::StoredEvent& event) {
    return event.row.event_ptr == event_ptr;
  });
  if (stored == events.end()) return Ok();
  const setup::Event& before = stored->row;
  const int number = setup::CurrentRound(before.event_stat, before.event_rounds);
  const auto round = setup::RoundByNumber(number, before.event_rounds);
  if (!round || !setup::IsRoundSeeded(before.event_stat, number, before.event_rounds)) return Ok();
  TRY_ASSIGN(const setup::Roster roster, setup::LoadRoster(meet));
  TRY_ASSIGN(RoundData data, LoadRound(meet, *stored, *round));
  TRY_ASSIGN(std::vector<Result> results, ResultsOf(meet, data, roster));
  if (std::none_of(results.begin(), results.end(), HasResult)) return Ok();
  PlaceRound(meet.settings(), data, results);
  TakeOver(results, data);
  setup::Event event = before;
  const char status = StatusAfterResults(data, results);
  const bool stays_scored = before.event_stat == setup::kScored && IsRoundComplete(results);
  if (!stays_scored) event.event_stat = status;
  return SaveRound(write, meet, data, event);
}

}  // namespace tarvex::running
