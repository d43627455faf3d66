#include "setup/code_texts.h"

#include <initializer_list>

namespace tarvex::setup {
namespace {

std::string_view ByCode(char code, std::initializer_list<std::string_view> texts) {
  const int index = code - '1';
  if (index < 0 || index >= static_cast<int>(texts.size())) return "Unknown";
  return texts.begin()[index];
}

}  // namespace

std::string_view LaneMethodText(char std_lanes) {
  return ByCode(std_lanes, {"Standard Lanes", "Custom Lanes", "All Random", "Standard Alleys",
                            "Custom Alleys", "Waterfall Start"});
}

std::string_view AdvancementText(char adv_how, bool field) {
  return field ? ByCode(adv_how, {"Mark"}) : ByCode(adv_how, {"Time Only", "Place and Time"});
}

std::string_view SeedingMethodText(char serp_type, bool field) {
  return field ? ByCode(serp_type,
                        {"Seed Mark", "Random", "Seed Rnd 1 of 2 as Finals", "Seed Rnd 1 of 1 as Prelims"})
               : ByCode(serp_type, {"Seed Time", "Random", "Seed Prelims as Timed Finals",
                                    "Seed Timed Finals as Prelims"});
}

std::string_view HeatOrderText(char order) {
  return ByCode(order, {"Best to Worst", "Worst to Best", "Random", "Alphabetical", "Comptetitor #"});
}

}  // namespace tarvex::setup
