#include "setup/lane_text.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"

namespace tarvex::setup {
namespace {

constexpr char kStandardAlleys = '4';
constexpr char kCustomAlleys = '5';
constexpr int kLastLetter = 26;

std::string TrimmedUpper(std::string_view text) {
  return Upper(Trim(text));
}

std::optional<int> ReadNumber(std::string_view digits) {
  int number = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  if (digits.empty() || error != std::errc() || stop != end || number < 1) return std::nullopt;
  return number;
}

}  // namespace

std::string LaneText(int lane, char std_lanes, std::span<const AlleyName> names) {
  if (lane <= 0) return "";
  if (std_lanes == kCustomAlleys) {
    const auto named = std::find_if(names.begin(), names.end(),
                                    [&](const AlleyName& name) { return name.order_no == lane; });
    if (named != names.end() && !TrimmedUpper(named->alley_name).empty())
      return TrimmedUpper(named->alley_name);
    return std::to_string(lane);
  }
  const int position = lane % 100;
  if (std_lanes != kStandardAlleys || lane < 100 || position < 1 || position > kLastLetter) {
    return std::to_string(lane);
  }
  return std::to_string(lane / 100) + static_cast<char>('A' + position - 1);
}

std::optional<int> ReadLane(std::string_view text, char std_lanes, std::span<const AlleyName> names) {
  const std::string typed = TrimmedUpper(text);
  if (std_lanes == kCustomAlleys) {
    for (const AlleyName& name : names) {
      if (!typed.empty() && TrimmedUpper(name.alley_name) == typed) return name.order_no;
    }
  }
  if (typed.empty() || typed.back() < 'A' || typed.back() > 'Z') return ReadNumber(typed);
  if (std_lanes != kStandardAlleys) return std::nullopt;
  const std::optional<int> alley = ReadNumber(std::string_view(typed).substr(0, typed.size() - 1));
  // Lanes are kept in a 16-bit field.
  if (!alley || *alley > 326) return std::nullopt;
  return AlleyLane(*alley, typed.back() - 'A' + 1);
}

}  // namespace tarvex::setup
