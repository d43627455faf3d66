#pragma once

#include <optional>
#include <span>
#include <vector>

#include "base/outcome.h"
#include "base/user_interface.h"
#include "database/meet.h"
#include "seeding/seed.h"
#include "setup/event_store.h"
#include "setup/rounds.h"

namespace tarvex::seeding {

struct SeedOptions {
  bool prompt_if_reseed = true;       // "Prompt if a Re-Seed"
  bool preview = false;               // work everything out, write nothing
  std::optional<setup::Round> round;  // only events whose next round it is
  uint64_t draw =
      0;  // the draw of each event follows from this and the event, whatever else is seeded with it
};

// A round as it was, or would be, seeded.
struct SeededRound {
  setup::Event event;
  setup::Round round = setup::Round::Finals;
  std::vector<Place> places;
};

struct SeedingRun {
  Outcome outcome = Done{};
  std::vector<SeededRound> seeded;
};

// Seeds the next unseeded round of each event, or a seeded one anew, all in one transaction. Events that
// cannot be seeded are told and passed over. Writes nothing until the last question is answered. Done when at
// least one event was seeded.
SeedingRun SeedEvents(database::Meet& meet, std::span<const setup::StoredEvent> events,
                      const SeedOptions& options, UserInterface& user);

}  // namespace tarvex::seeding
