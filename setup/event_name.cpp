#include "setup/event_name.h"

#include <cmath>

#include "base/decimal.h"
#include "setup/event_kind.h"
#include "setup/sex.h"

namespace tarvex::setup {
namespace {

constexpr int kOldest = 109;

// Half marathon, marathon, the medleys, the shuttle hurdles and the beach relay say their distance by their
// name.
bool IsShownByNameAlone(char meet_type, char letter) {
  if (meet_type == 'L') return letter == 'X';
  return meet_type == 'T' && std::string_view("IJXYZ").find(letter) != std::string_view::npos;
}

std::string_view UnitWord(const Event& event, char meet_type) {
  if (event.event_stroke == 'C' && meet_type == 'T') return "";  // the kind is "Mile Run" already
  if (IsInMiles(meet_type, event.event_stroke, event.event_dist)) return "Mile";
  return event.res_meas == 'E' ? "Yard" : "Meter";
}

// "100 Meter", "4x100 Meter", "1", or nothing.
std::string DistanceText(const Event& event, const NameSettings& settings) {
  if (!IsRunningEvent(event) || event.event_dist <= 0) return "";
  if (IsShownByNameAlone(settings.meet_type, event.event_stroke)) return "";
  const int legs = Legs(event);
  const float leg = event.event_dist / static_cast<float>(legs);
  std::string text;
  if (legs > 1 && !settings.relays_show_total_distance && std::floor(leg) == leg) {
    text = std::to_string(legs) + "x" + ShortText(leg);
  } else {
    text = ShortText(event.event_dist);
  }
  const std::string_view unit = UnitWord(event, settings.meet_type);
  if (!unit.empty()) text.append(" ").append(unit);
  return text;
}

void Append(std::string& name, std::string_view word) {
  if (word.empty()) return;
  if (!name.empty()) name += ' ';
  name += word;
}

}  // namespace

std::string EventName(const Event& event, const NameSettings& settings, std::string_view division_name) {
  std::string name(SexWord(event.event_sex));
  Append(name, DistanceText(event, settings));
  Append(name, KindName(settings.meet_type, event.event_stroke).value_or("Unknown"));
  Append(name, AgeText(event.low_age, HighAge(event.high_age)));
  Append(name, division_name);
  return name;
}

std::string EventLabel(const Event& event) {
  std::string label = std::to_string(event.event_no);
  if (event.event_ltr != " ") label += event.event_ltr;
  return label;
}

std::string AgeText(int low_age, int high_age) {
  if (low_age <= 0 && high_age >= kOldest) return "";
  if (low_age <= 0) return std::to_string(high_age) + " & Under";
  if (high_age >= kOldest) return std::to_string(low_age) + " & Over";
  if (low_age == high_age) return std::to_string(low_age);
  return std::to_string(low_age) + "-" + std::to_string(high_age);
}

}  // namespace tarvex::setup
