#include "reports/event_choice.h"

#include "setup/event_status.h"

namespace tarvex::reports {

Expected<std::vector<setup::StoredEvent>> ChosenEvents(const database::Meet& meet,
                                                       const EventChoice& choice) {
  if (choice.is_named()) return choice.events;
  return setup::LoadEvents(meet);
}

std::optional<setup::Round> ChosenRound(const setup::Event& event, const EventChoice& choice) {
  if (!choice.round) {
    return setup::RoundByNumber(setup::CurrentRound(event.event_stat, event.event_rounds),
                                event.event_rounds);
  }
  if (setup::RoundNumber(*choice.round, event.event_rounds) == 0) return std::nullopt;
  return choice.round;
}

}  // namespace tarvex::reports
