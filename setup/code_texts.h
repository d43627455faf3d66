#pragma once

#include <string_view>

namespace tarvex::setup {

// What the codes '1', '2', ... of an event stand for; "Unknown" for any other character.

// "Standard Lanes" ... "Waterfall Start".
std::string_view LaneMethodText(char std_lanes);
// "Time Only", "Place and Time"; field events "Mark".
std::string_view AdvancementText(char adv_how, bool field);
// "Seed Time", "Random", ...; also the choices for heat and flight assignment.
std::string_view SeedingMethodText(char serp_type, bool field);
// "Best to Worst" ... "Comptetitor #" (its spelling is fixed).
std::string_view HeatOrderText(char order);

}  // namespace tarvex::setup
