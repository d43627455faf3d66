#pragma once

#include <variant>
#include <vector>

#include "base/message.h"
#include "seeding/lanes.h"
#include "seeding/random_draw.h"
#include "seeding/seed.h"
#include "setup/event.h"
#include "setup/rounds.h"

namespace tarvex::seeding {

// The meet-wide settings that seeding reads; rule letters 'A' to 'E', a blank being 'A'.
struct SeedingPreferences {
  int meet_numlanes = 8;
  char timedfinal_randrule = 'A';
  char round1_randrule = 'A';
  char round234_randrule = 'A';
  bool round1_closegaps = false;
  bool timedfinal_circleseed = false;
  int prelimheats_circle = 0;
  bool seed_exhlast = false;
};

// What seeding needs to know of one round of one event.
struct RoundSetup {
  int round_number = 1;
  int rounds = 1;
  bool field = false;
  char std_lanes = kStandardLanes;
  char serp_type = '1';
  char heat_order = '1';
  char randomization = 'A';
  bool close_gaps = false;
  int per_heat = 0;     // lanes, or athletes per heat or flight; 0: all in one
  int alleys = 0;       // alleys across the track
  int fixed_heats = 0;  // 0: as many as the entries need
};

// `round` must be one that the event has.
RoundSetup SetupOf(const setup::Event& event, setup::Round round, const SeedingPreferences& preferences);

// The randomization rule of a round: timed finals, first rounds and later rounds each have their own.
char RandomizationRule(int round_number, int rounds, const SeedingPreferences& preferences);

// The seeds of a first round in the order in which they are dealt: best first, or drawn when the event's
// seeding method is random. `by_seed_place`: the seed place counts before the mark.
std::vector<Seed> FirstRoundOrder(std::vector<Seed> seeds, const RoundSetup& round,
                                  const SeedingPreferences& preferences, bool by_seed_place,
                                  RandomDraw& draw);

// The heats of the round in the order of their numbers, each in the order of its lanes' entries: running
// heats best first, flights in the order of attempts. The notice says that the fixed number of heats cannot
// hold the entries. `ranked` comes best first.
std::variant<std::vector<Heat>, Notice> FormHeats(const std::vector<Seed>& ranked, const RoundSetup& round,
                                                  const SeedingPreferences& preferences, RandomDraw& draw);

// Heats and lanes of entries that stand in seeded order, best first.
std::variant<std::vector<Place>, Notice> SeedRound(const std::vector<Seed>& ranked, const RoundSetup& round,
                                                   const SeedingPreferences& preferences,
                                                   const LaneTables& tables, RandomDraw& draw);

// All of it for a first round, from eligible entries in any order. By heat, then in the order in which the
// entries stand there.
std::variant<std::vector<Place>, Notice> SeedFirstRound(std::vector<Seed> seeds, const RoundSetup& round,
                                                        const SeedingPreferences& preferences,
                                                        const LaneTables& tables, bool by_seed_place,
                                                        RandomDraw& draw);

}  // namespace tarvex::seeding
