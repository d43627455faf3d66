#pragma once

#include <string>
#include <string_view>

#include "setup/event.h"

namespace tarvex::setup {

struct NameSettings {
  char meet_type = 'T';
  bool relays_show_total_distance = false;  // "400 Meter Relay" instead of "4x100 Meter Relay"
};

// The event as programs and lists print it: "Girls 100 Meter Dash", "Boys 4x100 Meter Relay", "Men Shot Put",
// "Women 1 Mile Run", "Men 110 Meter Hurdles". The ages, when limited, follow the name ("Girls 100 Meter Dash
// 13-14"), and the division's name, when given, comes last.
std::string EventName(const Event& event, const NameSettings& settings, std::string_view division_name = "");

// The number and letter: "12", "12A".
std::string EventLabel(const Event& event);

// An age range: "13-14", "9" for a single year, "8 & Under", "30 & Over"; empty for 0 to 109.
std::string AgeText(int low_age, int high_age);

}  // namespace tarvex::setup
