#include "marks/range.h"

#include <array>
#include <string>

#include "marks/kinds.h"
#include "marks/messages.h"

namespace tarvex::marks {

namespace {

// A limit that is digits is the same in every language and has no number.
constexpr Text Digits(std::string_view digits) {
  return {0, digits};
}

std::string Shown(const Text& limit) {
  return limit.number == 0 ? std::string(limit.english) : limit.Shown().text;
}

// Metres, `from_m` included and `below_m` not; both times are allowed. The texts are fixed, not formatted.
struct TimeRange {
  int from_m, below_m;
  float min_s;
  Text min_shown;
  float max_s;
  Text max_shown;
};
constexpr int kNoEnd = 0;
constexpr std::array kTimeRanges = {
    TimeRange{1, 60, 3.5f, Digits("3.50"), 25, Digits("25.00")},
    TimeRange{60, 90, 5, Digits("5.00"), 45, Digits("45.00")},
    TimeRange{90, 120, 7, k7Seconds, 120, Digits("2:00.00")},
    TimeRange{120, 250, 10, k10Seconds, 150, Digits("2:30.00")},
    TimeRange{250, 450, 20, k20Seconds, 180, k3Minutes},
    TimeRange{450, 900, 50, k50Seconds, 360, k6Minutes},
    TimeRange{900, 1400, 90, Digits("1:30.00"), 720, k12Minutes},
    TimeRange{1400, 2000, 120, Digits("2:00.00"), 1440, k24Minutes},
    TimeRange{2000, 3000, 180, Digits("3:00.00"), 2400, k40Minutes},
    TimeRange{3000, 4000, 360, k6Minutes, 3600, k60Minutes},
    TimeRange{4000, 5000, 480, k8Minutes, 5400, k1Hour30},
    TimeRange{5000, 6000, 600, k10Minutes, 7200, k2Hours},
    TimeRange{6000, 10000, 780, k13Minutes, 10800, k3Hours},
    TimeRange{10000, 20000, 1320, k22Minutes, 36000, k10Hours},
    TimeRange{20000, 30000, 2880, k48Minutes, 36000, k10Hours},
    TimeRange{30000, kNoEnd, 4800, k1Hour20, 93600, k26Hours},
};

// Greatest plausible marks, allowed themselves.
struct FieldLimit {
  std::string_view kinds;
  float metres;
  Text metric_line;
  float inches;
  Text english_line;
};
constexpr std::array kFieldLimits = {
    FieldLimit{"K", 3.5f, kHeight350, 132, kHeight11Feet},
    FieldLimit{"L", 9, kHeight900, 324, kHeight27Feet},
    FieldLimit{"M", 12, kJump1200, 480, kJump40Feet},
    FieldLimit{"N", 24, kJump2400, 960, kJump80Feet},
    FieldLimit{"O", 100, kThrow10000, 3840, kThrow320Feet},
    FieldLimit{"PQSU", 120, kThrow12000, 4500, kThrow375Feet},
    FieldLimit{"R", 30, kThrow3000, 1200, kThrow100Feet},
};

const TimeRange* FindRange(const Decimal& metres) {
  for (const TimeRange& range : kTimeRanges) {
    const bool below = range.below_m == kNoEnd || metres < Decimal(range.below_m);
    if (metres >= Decimal(range.from_m) && below) return &range;
  }
  return nullptr;
}

Notice Question(const Text& what, const std::string& limits, const Text& accept) {
  return Joined(what.Shown(), "\r" + limits + "\r" + accept.Shown().text);
}

}  // namespace

Decimal MetresOf(float distance, char kind) {
  const bool in_miles = IsOneOf(kind, "C") || (IsOneOf(kind, "DW") && distance < 100);
  const Decimal typed = Decimal::FromSingle(distance);
  return in_miles ? (typed * 1760 * Decimal::Of(9144, 4)).RoundedTo(0) : typed;
}

std::optional<Notice> CheckTimeRange(float seconds, float distance, char kind, const MarkSettings& settings) {
  if (!settings.check_ranges || seconds == 0 || IsOneOf(settings.meet_type, "LWS")) return std::nullopt;
  Decimal metres = MetresOf(distance, kind);
  // Walking takes as long as running a distance half as far again.
  if (IsOneOf(kind, "D")) metres = (metres * Decimal::Of(145, 2)).RoundedTo(0);
  const TimeRange* range = FindRange(metres);
  if (range == nullptr || (seconds >= range->min_s && seconds <= range->max_s)) return std::nullopt;
  const std::string limits =
      kRangeFrom.Shown().text + Shown(range->min_shown) + kRangeTo.Shown().text + Shown(range->max_shown);
  return Question(kTimeOutOfRange, limits, kAcceptTime);
}

std::optional<Notice> CheckFieldRange(float value, char unit, char kind, const MarkSettings& settings) {
  if (!settings.check_ranges || value == 0 || IsOneOf(settings.meet_type, "L")) return std::nullopt;
  const bool english = IsOneOf(unit, "E");
  for (const FieldLimit& limit : kFieldLimits) {
    if (!IsOneOf(kind, limit.kinds)) continue;
    if (value <= (english ? limit.inches : limit.metres)) return std::nullopt;
    const Text& line = english ? limit.english_line : limit.metric_line;
    return Question(kMarkOutOfRange, line.Shown().text, kAcceptMark);
  }
  return std::nullopt;
}

Consent AskAboutRange(const std::optional<Notice>& question, UserInterface& user) {
  if (!question) return Consent::Accepted;
  const std::optional<Answer> answer = user.Ask(*question, Buttons::YesNo);
  if (!answer) return Consent::Unanswered;
  return *answer == Answer::Yes ? Consent::Accepted : Consent::Refused;
}

}  // namespace tarvex::marks
