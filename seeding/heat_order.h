#pragma once

#include <vector>

#include "seeding/random_draw.h"
#include "seeding/seed.h"

namespace tarvex::seeding {

// The order codes of a round: how its heats are numbered, and how a flight is called up.
inline constexpr char kBestToWorst = '1';
inline constexpr char kWorstToBest = '2';
inline constexpr char kRandomOrder = '3';
inline constexpr char kAlphabetical = '4';
inline constexpr char kByCompetitorNumber = '5';

// The number of each heat, the strongest first in the answer. Flights put the best last under every code but
// "best to worst", since a field final builds up to its best.
std::vector<int> HeatNumbers(int heats, char order, bool field, RandomDraw& draw);

// A flight in the order of its attempts; `flight` is best first. Entries of equal name or number go by id,
// and those without a number last.
Heat FlightOrder(Heat flight, char order, RandomDraw& draw);

}  // namespace tarvex::seeding
