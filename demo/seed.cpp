#include "demo/seed.h"

#include "marks/kinds.h"

namespace tarvex::demo {
namespace {

constexpr int kNoMark = 40, kHandTimed = 60, kEnglish = 40;  // in a thousand entries

// An inch is 2.54 cm; English marks are cut to the quarter of an inch.
int QuarterInches(int centimetres) {
  return centimetres * 400 / 254;
}

}  // namespace

int PotentialOf(const Discipline& discipline, const MadeAthlete& athlete, Chance& chance) {
  // An event that is not the athlete's own is entered for the team's sake.
  const int affinity = discipline.affinity[static_cast<size_t>(athlete.family)];
  const int unfamiliar = affinity >= 5 ? 0 : (5 - affinity) * 120;
  const int ability = athlete.ability * 85 / 100 + chance.Normal() * 50 / 100 - unfamiliar;
  return TypicalMark(discipline, athlete.row.sex, athlete.row.age, ability);
}

int ByHand(int hundredths) {
  // The watch starts after the gun was seen, which makes a sprint seem a quarter of a second faster; of a
  // hundredth the later tenth counts.
  constexpr int kReactionTime = 24;
  return (hundredths - kReactionTime + 9) / 10 * 10;
}

MadeSeed InventSeed(const Discipline& discipline, int potential, Chance& chance) {
  constexpr int kLongestByHand = 400;
  MadeSeed seed;
  if (chance.PerMille(kNoMark)) return seed;
  seed.hundredths = Measured(discipline, potential);
  if (discipline.is_field()) {
    if (chance.PerMille(kEnglish)) seed.quarter_inches = QuarterInches(seed.hundredths);
  } else if (discipline.distance <= kLongestByHand && chance.PerMille(kHandTimed)) {
    seed.hand = true;
    seed.hundredths = ByHand(potential);
  }
  return seed;
}

}  // namespace tarvex::demo
