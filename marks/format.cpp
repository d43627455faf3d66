#include "marks/format.h"

#include <algorithm>
#include <string_view>

#include "marks/digits.h"
#include "marks/kinds.h"
#include "marks/range.h"
#include "marks/status.h"

namespace tarvex::marks {

namespace {

const Decimal kQuarter = Decimal::Of(25, 2);

int DecimalsOf(Precision precision) {
  switch (precision) {
    case Precision::WholeSeconds:
      return 0;
    case Precision::Tenths:
      return 1;
    case Precision::Hundredths:
      break;
  }
  return 2;
}

// Rounds up by adding nines and cutting: what is left of a time behind the last nine is too little to count.
Decimal RoundedUp(const Decimal& seconds, Precision precision) {
  switch (precision) {
    case Precision::WholeSeconds:
      return (seconds + Decimal::Of(99, 2)).CutTo(0);
    case Precision::Tenths:
      return (seconds + Decimal::Of(9, 2)).CutTo(1);
    case Precision::Hundredths:
      break;
  }
  return seconds.Decimals() > 2 ? (seconds + Decimal::Of(9, 3)).CutTo(2) : seconds;
}

// `number` with exactly n decimals, cut or filled up.
std::string WithDecimals(const Decimal& number, int n) {
  std::string text = number.CutTo(n).ToText();
  if (n == 0) return text;
  const int missing = n - number.CutTo(n).Decimals();
  if (missing == n) text.push_back('.');
  return text + std::string(static_cast<size_t>(missing), '0');
}

std::string LocalPoint(std::string text, char separator) {
  std::replace(text.begin(), text.end(), '.', separator);
  return text;
}

// h:mm:ss with n decimals, as few parts as the time needs.
std::string LayOut(const Decimal& seconds, int n) {
  const int64_t hours = seconds.Whole() / 3600;
  const int64_t minutes = seconds.Whole() / 60 % 60;
  const Decimal rest = seconds - Decimal(seconds.Whole() / 60) * 60;
  std::string text = WithDecimals(Decimal(hours) * 10000 + Decimal(minutes) * 100 + rest, n);
  const size_t whole = n == 0 ? text.size() : text.size() - static_cast<size_t>(n) - 1;
  if (whole > 2) text.insert(whole - 2, 1, ':');
  if (whole > 4) text.insert(whole - 4, 1, ':');
  return text;
}

bool IsNoMark(char status) {
  return status == kNoMark || status == 'Y';
}

// The status word beside a zero time in lists.
std::string_view CompactWord(char status, bool np) {
  if (IsNoMark(status)) return np ? "NP" : "NT";
  switch (status) {
    case kScratched:
    case kDidNotStart:
      return "NS";
    case kDisqualified:
      return "DQ";
    case kDidNotFinish:
      return "DNF";
    case kFoul:
      return "FS";
    default:
      return " ";
  }
}

std::string_view FieldWord(char status, char kind, bool short_form) {
  if (IsNoMark(status)) return IsVerticalJump(kind) ? "NH" : "ND";
  switch (status) {
    case kFoul:
      return short_form ? "X" : IsVerticalJump(kind) ? "FAIL" : "FOUL";
    case kPass:
      return short_form ? "-" : "PASS";
    default:
      return "";
  }
}

std::string_view RunningWord(char status) {
  if (IsNoMark(status)) return "NT";
  switch (status) {
    case kFoul:
      return "FS";
    case kPass:
      return " ";
    default:
      return "";
  }
}

// Empty when the mark itself is to be shown.
std::string_view ResultWord(char status, bool field, char kind, bool short_form) {
  switch (status) {
    case kDidNotStart:
      return "DNS";
    case kScratched:
    case 'Z':
      return "SCR";
    case kDisqualified:
      return "DQ";
    case kDidNotFinish:
      return "DNF";
    default:
      return field ? FieldWord(status, kind, short_form) : RunningWord(status);
  }
}

std::string FeetAndInches(const Decimal& total, char kind) {
  const int64_t feet = total.Whole() / 12;
  std::string inches = WithDecimals(total - Decimal(feet) * 12, 2);
  if (feet > 0 && inches.size() < 5) inches.insert(0, 1, '0');
  if (IsLongThrow(kind) && inches.ends_with(".00")) inches.resize(inches.size() - 3);
  return feet > 0 ? Decimal(feet).ToText() + "-" + inches : inches;
}

std::string FieldMark(float value, char unit, char kind, bool with_unit, const MarkSettings& settings) {
  const Decimal shown = ShownFieldMark(value, unit, kind, settings);
  if (IsOneOf(unit, "E")) return FeetAndInches(shown, kind);
  return WithDecimals(shown, 2) + (with_unit ? "m" : "");
}

bool HasMark(float value) {
  return value > 0;
}

}  // namespace

Precision ResultPrecision(char event_type, float distance, char kind, const MarkSettings& settings) {
  constexpr int kIaaf = 4;
  const bool cross_country = IsOneOf(event_type, "C");
  if (IsOneOf(event_type, "R") || (cross_country && settings.meet_class == kIaaf))
    return Precision::WholeSeconds;
  const bool long_race = MetresOf(distance, kind) > Decimal(10000);
  return settings.round_to_tenths || cross_country || long_race ? Precision::Tenths : Precision::Hundredths;
}

std::string FormatTime(float seconds, char status, bool np, const MarkSettings& settings) {
  if (!HasMark(seconds)) return std::string(CompactWord(UpperKind(status), np));
  const Decimal shown = RoundedUp(Decimal::FromSingle(seconds), Precision::Hundredths);
  return LocalPoint(LayOut(shown, 2), settings.decimal_separator);
}

std::string FormatThousandths(float seconds, const MarkSettings& settings) {
  if (!HasMark(seconds)) return " ";
  return LocalPoint(LayOut(Decimal::FromSingle(seconds), 3), settings.decimal_separator);
}

std::string FormatMark(float value, char status, char track_or_field, char unit, char kind,
                       const DisplayFlags& flags, const MarkSettings& settings) {
  const bool field = IsOneOf(track_or_field, "F");
  const bool short_form = flags.short_form && settings.short_attempt_form;
  const std::string_view word = ResultWord(UpperKind(status), field, kind, short_form);
  if (!word.empty()) return std::string(word);
  if (!HasMark(value)) return " ";

  const std::string text =
      field ? FieldMark(value, unit, kind, flags.with_unit, settings)
            : LayOut(RoundedUp(Decimal::FromSingle(value), flags.precision), DecimalsOf(flags.precision));
  const bool exhibition = flags.exhibition || UpperKind(status) == kExhibition;
  return (exhibition && !settings.suppress_x ? "X" : "") + LocalPoint(text, settings.decimal_separator);
}

std::string SeedExhibitionPrefix(bool exhibition, const MarkSettings& settings) {
  return exhibition && !settings.suppress_small_x ? "x" : "";
}

Decimal ShownFieldMark(float value, char unit, char kind, const MarkSettings& settings) {
  const Decimal exact = Decimal::FromSingle(value);
  if (!IsOneOf(unit, "E")) return exact.CutTo(2);
  if (IsLongThrow(kind) && settings.whole_inch) return exact.CutTo(0);
  return Decimal((exact * 4).Whole()) * kQuarter;
}

bool FieldMarksTie(float a, float b, char unit, char kind, const MarkSettings& settings) {
  return ShownFieldMark(a, unit, kind, settings) == ShownFieldMark(b, unit, kind, settings);
}

}  // namespace tarvex::marks
