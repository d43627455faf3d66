#pragma once

#include "demo/chance.h"
#include "demo/roster.h"

namespace tarvex::demo {

inline constexpr int kScratched = 25;  // in a thousand entries

// What an athlete is good for in an event, in hundredths: the better the more gifted, the less the event
// is the athlete's own the worse.
int PotentialOf(const Discipline& discipline, const MadeAthlete& athlete, Chance& chance);

// What a hand-timed race shows for a time in hundredths: whole tenths.
int ByHand(int hundredths);

// The mark as it was sent in: some are missing, some sprints were timed by hand, some field marks come in
// feet and inches.
MadeSeed InventSeed(const Discipline& discipline, int potential, Chance& chance);

}  // namespace tarvex::demo
