#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tarvex::setup {

// An alley position is kept as one number: alley x 100 + position, position A being 1. Alley 2, position B is
// 202; a plain lane is itself.
constexpr int AlleyLane(int alley, int position) {
  return alley * 100 + position;
}

// A name that the user gave to a rank of one event's custom alleys.
struct AlleyName {
  int order_no = 0;  // rank, from 1
  std::string alley_name;
};

// A lane as shown: "4", "2B", "12A", or the custom alley's name. Empty for 0, which means no lane.
// `std_lanes` is the event's lane method, `names` the event's custom alleys (only read for method '5').
std::string LaneText(int lane, char std_lanes, std::span<const AlleyName> names = {});

// Reads what LaneText writes, in any case and with blanks around. Empty when it is none of these.
std::optional<int> ReadLane(std::string_view text, char std_lanes, std::span<const AlleyName> names = {});

}  // namespace tarvex::setup
