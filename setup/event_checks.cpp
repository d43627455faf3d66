#include "setup/event_checks.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "base/text.h"
#include "setup/code_texts.h"
#include "setup/event_kind.h"
#include "setup/event_status.h"
#include "setup/messages.h"

namespace tarvex::setup {
namespace {

using Check = std::optional<Notice>;

constexpr int kLastNumber = 999;
constexpr float kMostMiles = 200;
constexpr int kMostFieldRounds = 2;

bool IsBetween(int value, int low, int high) {
  return value >= low && value <= high;
}

Check CheckAges(const EventForm& form) {
  if (HighAge(form.event.high_age) < form.event.low_age) return HighAgeBelowLowAge();
  return form.event.multi_age ? CheckAgeGroups(form.event, form.age_groups) : std::nullopt;
}

// Surf and triathlon events go by their name alone.
bool NeedsDistance(const EventForm& form) {
  return IsRunningEvent(form.event) && (form.meet_type == 'T' || form.meet_type == 'W');
}

Check CheckDistance(const EventForm& form) {
  if (!NeedsDistance(form)) return std::nullopt;
  if (form.event.event_dist <= 0) return SelectADistance();
  const bool miles = form.meet_type == 'T' && form.event.event_stroke == 'C';
  if (miles && form.event.event_dist > kMostMiles) return TooManyMiles();
  return std::nullopt;
}

Check CheckRaceType(const EventForm& form) {
  if (form.cross_country && form.road_race) return CrossCountryAndRoadRace();
  if (!form.cross_country && !form.road_race) return std::nullopt;
  if (!IsRunningEvent(form.event)) return CrossCountryNeedsRunning();
  if (form.event.event_rounds > 1) return CrossCountryNeedsFinalsOnly();
  return std::nullopt;
}

int FinalHeats(const Event& event) {
  switch (event.finals_setup) {
    case 'B':
      return 2;
    case 'C':
      return event.heats_infinal;
    default:
      return 1;
  }
}

// A round whose number of heats is left to the entries (0) is compared with nothing.
Check CheckHeatNumbers(const Event& event) {
  const int finals = FinalHeats(event);
  const int semis = event.event_rounds >= 3 ? event.heats_insemi : 0;
  const int quarters = event.event_rounds >= 4 ? event.heats_inqtr : 0;
  if (semis > 0 && semis < finals) return SemiHeatsBelowFinalHeats();
  if (quarters > 0 && quarters < finals) return QuarterHeatsBelowFinalHeats();
  if (quarters > 0 && quarters < semis) return QuarterHeatsBelowSemiHeats();
  return std::nullopt;
}

Check CheckRounds(const EventForm& form) {
  const Event& event = form.event;
  if (!IsBetween(event.event_rounds, 1, 4)) return RoundsRange();
  if (IsFieldEvent(event) && event.event_rounds > kMostFieldRounds) return FieldRoundsLimit();
  if (Check failed = CheckHeatNumbers(event)) return failed;
  if (Check failed = CheckHeatAssignment(event)) return failed;
  if (event.event_rounds > 1 && event.finals_setup == 'C' && event.heats_infinal < 3) {
    return ThreeOrMoreFinals();
  }
  return std::nullopt;
}

Check CheckTeamCounts(const EventForm& form) {
  const Event& event = form.event;
  if (form.road_race && event.score_event && !IsBetween(event.relay_size, 2, 6)) return RoadRaceTeamSize();
  if (event.event_type2 == 'A' && !IsBetween(event.relay_size, 2, 5)) {
    return event.trk_field == 'F' ? FieldRelaySize() : AddedRelaySize();
  }
  if (form.random_select && event.ind_rel != 'R' && !form.road_race && !IsBetween(event.relay_size, 1, 5)) {
    return RandomSelectSize();
  }
  return std::nullopt;
}

// Digits with at most one point and at least one digit; nothing at all is no fee.
Check CheckFee(const EventForm& form) {
  int digits = 0;
  int points = 0;
  for (const char c : form.entry_fee) {
    if (c == ' ') continue;
    if (c == '.') {
      ++points;
    } else if (std::isdigit(static_cast<unsigned char>(c))) {
      ++digits;
    } else {
      return InvalidEntryFee();
    }
  }
  return points > 1 || (points == 1 && digits == 0) ? Check(InvalidEntryFee()) : std::nullopt;
}

enum class Type { Track, Field, Combined };

Type TypeOf(const Event& event) {
  if (IsCombinedKind(event.event_stroke)) return Type::Combined;
  return event.trk_field == 'F' ? Type::Field : Type::Track;
}

// Marks of one type mean nothing in another, and the rows of an individual event hold no relays.
Check CheckChanges(const EventForm& form) {
  if (form.before == nullptr) return std::nullopt;
  const Event& before = *form.before;
  const Event& event = form.event;
  if (form.has_entries && TypeOf(before) != TypeOf(event)) return TypeChangeWithEntries();
  if (form.has_entries && (before.ind_rel == 'R') != (event.ind_rel == 'R')) {
    return RelayChangeWithEntries(event.ind_rel == 'R');
  }
  const bool to_timed_final = before.event_rounds > 1 && event.event_rounds == 1;
  if (to_timed_final && before.event_stat != kUnseeded && before.event_stat != ' ') {
    return TimedFinalAfterSeeding();
  }
  return std::nullopt;
}

Check CheckKind(const EventForm& form) {
  return KindName(form.meet_type, form.event.event_stroke) ? std::nullopt : Check(UnknownKind());
}

Check CheckCombined(const EventForm& form) {
  const bool mixed = form.event.event_gender == 'X';
  return IsCombinedKind(form.event.event_stroke) && mixed ? Check(MixedCombinedEvent()) : std::nullopt;
}

}  // namespace

std::variant<EventNumber, Notice> ReadEventNumber(std::string_view typed) {
  typed = Trim(typed);
  EventNumber number;
  if (!typed.empty() && std::isalpha(static_cast<unsigned char>(typed.back()))) {
    number.event_ltr = static_cast<char>(std::toupper(static_cast<unsigned char>(typed.back())));
    typed.remove_suffix(1);
  }
  const char* end = typed.data() + typed.size();
  const auto [stop, error] = std::from_chars(typed.data(), end, number.event_no);
  if (stop != end || typed.empty()) return InvalidEventNumber();
  if (error == std::errc::result_out_of_range) return EventNumberRange();
  if (error != std::errc()) return InvalidEventNumber();
  if (!IsBetween(number.event_no, 1, kLastNumber)) return EventNumberRange();
  return number;
}

std::optional<Notice> CheckNumber(const EventNumber& number, std::span<const EventNumber> other_events) {
  if (!IsBetween(number.event_no, 1, kLastNumber)) return EventNumberRange();
  const bool is_letter =
      number.event_ltr.size() == 1 && number.event_ltr[0] >= 'A' && number.event_ltr[0] <= 'Z';
  if (!number.event_ltr.empty() && !is_letter) return InvalidEventNumber();
  if (std::find(other_events.begin(), other_events.end(), number) != other_events.end()) {
    return InvalidEventNumber();
  }
  return std::nullopt;
}

std::optional<Notice> CheckAgeGroups(const Event& event, std::span<const AgeGroup> groups) {
  if (groups.empty() || groups.front().low_age != event.low_age) {
    return FirstAgeGroupMustHoldLowAge(event.low_age);
  }
  for (const AgeGroup& group : groups) {
    if (group.low_age > group.high_age) return AgeGroupLowAboveHigh();
  }
  for (size_t i = 1; i < groups.size(); ++i) {
    if (groups[i].low_age != groups[i - 1].high_age + 1) return AgeGroupsOverlapOrGap();
  }
  const int high_age = HighAge(event.high_age);
  if (groups.back().high_age != high_age) return LastAgeGroupMustHoldHighAge(high_age);
  return std::nullopt;
}

std::optional<Notice> CheckHeatAssignment(const Event& event) {
  const std::string_view choice = SeedingMethodText(event.serp_type, IsFieldEvent(event));
  if (event.event_rounds == 1 && event.serp_type == '3') return OneRoundCannotSelect(choice);
  if (event.event_rounds > 1 && event.serp_type == '4') return SeveralRoundsCannotSelect(choice);
  return std::nullopt;
}

std::optional<Notice> CheckJumpOff(const Event& event) {
  const bool refused = event.event_type2 == 'J' && !marks::IsVerticalJump(event.event_stroke);
  return refused ? Check(JumpOffOnlyVertical()) : std::nullopt;
}

std::optional<Notice> CheckEvent(const EventForm& form) {
  const EventNumber number{form.event.event_no, form.event.event_ltr};
  if (Check failed = CheckNumber(number, form.other_events)) return failed;
  constexpr Check (*kChecks[])(const EventForm&) = {CheckKind,       CheckAges,   CheckDistance,
                                                    CheckRaceType,   CheckRounds, CheckCombined,
                                                    CheckTeamCounts, CheckFee,    CheckChanges};
  for (const auto check : kChecks) {
    if (Check failed = check(form)) return failed;
  }
  return CheckJumpOff(form.event);
}

}  // namespace tarvex::setup
