#include "seeding/seed_round.h"

#include <algorithm>

#include "seeding/deal.h"
#include "seeding/heat_order.h"
#include "seeding/messages.h"
#include "seeding/seed_order.h"
#include "seeding/shuffle.h"
#include "setup/event_kind.h"

namespace tarvex::seeding {
namespace {

constexpr char kDrawnSeeding = '2';

char OrRuleA(char letter) {
  return letter >= 'A' && letter <= 'E' ? letter : 'A';
}

// A flight in the order of attempts. The randomization rule acts on the seeded order, so orders that do not
// follow the seeding ignore it.
Heat ArrangeFlight(Heat flight, const RoundSetup& round, RandomDraw& draw) {
  if (round.heat_order == kBestToWorst || round.heat_order == kWorstToBest) {
    const int entries = static_cast<int>(flight.size());
    std::vector<int> groups = ShuffleGroups(round.randomization, entries);
    if (round.randomization == 'B') groups = {entries};
    Shuffle(flight, groups, draw);
  }
  return FlightOrder(std::move(flight), round.heat_order, draw);
}

std::vector<int> PositionsInFlight(size_t entries) {
  std::vector<int> positions(entries);
  for (size_t k = 0; k < entries; ++k) positions[k] = static_cast<int>(k) + 1;
  return positions;
}

}  // namespace

char RandomizationRule(int round_number, int rounds, const SeedingPreferences& preferences) {
  if (rounds <= 1) return OrRuleA(preferences.timedfinal_randrule);
  return OrRuleA(round_number == 1 ? preferences.round1_randrule : preferences.round234_randrule);
}

RoundSetup SetupOf(const setup::Event& event, setup::Round round, const SeedingPreferences& preferences) {
  RoundSetup facts;
  facts.rounds = event.event_rounds;
  facts.round_number = setup::RoundNumber(round, event.event_rounds);
  facts.field = setup::IsFieldEvent(event);
  facts.std_lanes = event.std_lanes;
  facts.serp_type = event.serp_type;
  facts.heat_order = setup::HeatOrder(event, round);
  facts.randomization = RandomizationRule(facts.round_number, facts.rounds, preferences);
  facts.close_gaps = preferences.round1_closegaps && facts.round_number == 1;
  facts.per_heat = setup::LanesOf(event, round);
  if (facts.per_heat <= 0 && !facts.field && IsInLanes(event.std_lanes)) {
    facts.per_heat = preferences.meet_numlanes;
  }
  facts.alleys = setup::AlleysOf(event, round);
  if (facts.alleys <= 0) facts.alleys = preferences.meet_numlanes;
  facts.fixed_heats = setup::FixedHeats(event, round);
  return facts;
}

std::vector<Seed> FirstRoundOrder(std::vector<Seed> seeds, const RoundSetup& round,
                                  const SeedingPreferences& preferences, bool by_seed_place,
                                  RandomDraw& draw) {
  if (round.serp_type == kDrawnSeeding) {
    return DrawnOrder(std::move(seeds), preferences.seed_exhlast, draw);
  }
  return BestFirst(std::move(seeds), {round.field, preferences.seed_exhlast, by_seed_place});
}

std::variant<std::vector<Heat>, Notice> FormHeats(const std::vector<Seed>& ranked, const RoundSetup& round,
                                                  const SeedingPreferences& preferences, RandomDraw& draw) {
  const int entries = static_cast<int>(ranked.size());
  const int needed = HeatCount(entries, round.per_heat);
  int heats = needed;
  if (round.fixed_heats > 0) {
    heats = std::min(round.fixed_heats, entries);
    if (heats < needed) return TooFewHeats(needed);
  }
  const Dealing dealing =
      ChooseDealing({round.serp_type, round.round_number, round.rounds, preferences.timedfinal_circleseed});
  const int circle = round.round_number == 1 ? preferences.prelimheats_circle : 0;
  std::vector<Heat> dealt = Deal(ranked, heats, dealing, circle);
  const std::vector<int> numbers =
      HeatNumbers(static_cast<int>(dealt.size()), round.heat_order, round.field, draw);
  std::vector<Heat> numbered(dealt.size());
  for (size_t h = 0; h < dealt.size(); ++h) {
    Heat& heat = numbered[static_cast<size_t>(numbers[h] - 1)];
    heat = round.field ? ArrangeFlight(std::move(dealt[h]), round, draw) : std::move(dealt[h]);
  }
  return numbered;
}

std::variant<std::vector<Place>, Notice> SeedRound(const std::vector<Seed>& ranked, const RoundSetup& round,
                                                   const SeedingPreferences& preferences,
                                                   const LaneTables& tables, RandomDraw& draw) {
  std::variant<std::vector<Heat>, Notice> formed = FormHeats(ranked, round, preferences, draw);
  if (const Notice* refused = std::get_if<Notice>(&formed)) return *refused;
  const std::vector<Heat>& heats = std::get<std::vector<Heat>>(formed);
  const LaneRules rules{round.std_lanes, round.randomization, round.close_gaps, round.per_heat, round.alleys};
  std::vector<Place> places;
  for (size_t h = 0; h < heats.size(); ++h) {
    const Heat& heat = heats[h];
    const std::vector<int> lanes =
        round.field ? PositionsInFlight(heat.size()) : AssignLanes(heat, rules, tables, draw);
    for (size_t k = 0; k < heat.size(); ++k) {
      places.push_back({heat[k].id, static_cast<int>(h) + 1, lanes[k]});
    }
  }
  return places;
}

std::variant<std::vector<Place>, Notice> SeedFirstRound(std::vector<Seed> seeds, const RoundSetup& round,
                                                        const SeedingPreferences& preferences,
                                                        const LaneTables& tables, bool by_seed_place,
                                                        RandomDraw& draw) {
  const std::vector<Seed> ranked = FirstRoundOrder(std::move(seeds), round, preferences, by_seed_place, draw);
  return SeedRound(ranked, round, preferences, tables, draw);
}

}  // namespace tarvex::seeding
