#include "marks/conversion.h"

#include "base/decimal.h"
#include "marks/hand_time.h"
#include "marks/kinds.h"

namespace tarvex::marks {

namespace {

const Decimal kMetresAnInch = Decimal::Of(254, 4);
const Decimal kHundredth = Decimal::Of(1, 2);

// A division leaves a quotient that is off in its last digit; behind the twelfth decimal nothing is meant.
constexpr int kMeaningfulDecimals = 12;

Decimal CutToQuarter(const Decimal& inches) {
  return Decimal((inches * 4).Whole()) * Decimal::Of(25, 2);
}

Decimal CutToUnit(const Decimal& mark, bool english) {
  return english ? CutToQuarter(mark) : mark.CutTo(2);
}

Decimal RoundedUpToHundredth(const Decimal& seconds) {
  const Decimal cut = seconds.CutTo(2);
  return cut < seconds ? cut + kHundredth : cut;
}

Decimal Step(const Decimal& mark, char sign, float factor) {
  const Decimal by = Decimal::FromSingle(factor);
  switch (sign) {
    case '+':
      return mark + by;
    case '-':
      return mark - by;
    case '*':
      return mark * by;
    case '/':
      return by.IsZero() ? mark : mark / by;
    default:
      return mark;
  }
}

Decimal ByRule(const Decimal& seed, const ConversionRule& rule) {
  const Decimal first = Step(seed, rule.sign_1, rule.factor_1);
  return Step(first, rule.sign_2, rule.factor_2).RoundedTo(kMeaningfulDecimals);
}

Decimal ChangeUnit(const Decimal& mark, bool from_english, bool to_english) {
  if (from_english == to_english) return mark;
  if (to_english) return CutToQuarter((mark / kMetresAnInch).RoundedTo(kMeaningfulDecimals));
  return (mark * kMetresAnInch).RoundedTo(2);
}

char FirstGiven(char a, char b, char c) {
  if (a != ' ' && a != '\0') return a;
  return b != ' ' && b != '\0' ? b : c;
}

}  // namespace

ConvertedMark ConvertSeed(const SeedMark& seed, const ConversionEvent& event,
                          const std::optional<ConversionRule>& rule, const MarkSettings& settings) {
  if (!(seed.value > 0)) return {0, event.result_unit};
  const bool field = IsOneOf(event.track_or_field, "F");
  const bool from_english = IsOneOf(FirstGiven(seed.unit, event.seed_unit, event.result_unit), "E");
  const bool to_english = IsOneOf(event.result_unit, "E");

  Decimal mark = Decimal::FromSingle(seed.value);
  if (rule) {
    mark = ByRule(mark, *rule);
    mark = field ? CutToUnit(mark, to_english) : RoundedUpToHundredth(mark);
  } else if (field) {
    mark = ChangeUnit(mark, from_english, to_english);
  }
  if (mark.IsNegative()) mark = Decimal();
  if (field) return {mark.ToSingle(), event.result_unit};
  return {HandToFat(mark.ToSingle(), event.distance, event.kind, seed.hand, settings), event.result_unit};
}

}  // namespace tarvex::marks
