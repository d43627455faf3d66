#include "marks/hand_time.h"

#include "base/decimal.h"
#include "marks/kinds.h"

namespace tarvex::marks {

namespace {

Decimal Adjustment(float distance, char kind, int rule) {
  const Decimal long_reaction = Decimal::Of(24, 2);
  if (rule >= 1 && rule <= 3) return IsRunningKind(kind) ? long_reaction : Decimal();
  if (!IsSprintKind(kind) || distance > 440) return Decimal();
  return distance <= 220 ? long_reaction : Decimal::Of(14, 2);
}

}  // namespace

float HandToFat(float seconds, float distance, char kind, bool is_hand, const MarkSettings& settings) {
  if (seconds == 0 || !is_hand || !settings.convert_hand_times) return seconds;
  return (Decimal::FromSingle(seconds) + Adjustment(distance, kind, settings.hand_rule)).ToSingle();
}

}  // namespace tarvex::marks
