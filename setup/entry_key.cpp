#include "setup/entry_key.h"

#include <cctype>
#include <charconv>

#include "base/text.h"
#include "setup/messages.h"

namespace tarvex::setup {
namespace {

std::optional<int> PositiveNumber(std::string_view text) {
  int number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || error != std::errc() || stop != text.data() + text.size() || number <= 0)
    return std::nullopt;
  return number;
}

}  // namespace

std::optional<AthleteKey> ParseAthleteKey(std::string_view typed) {
  typed = Trim(typed);
  const bool by_row = typed.starts_with('#');
  const std::optional<int> number = PositiveNumber(typed.substr(by_row ? 1 : 0));
  if (!number) return std::nullopt;
  return by_row ? AthleteKey{0, *number} : AthleteKey{*number, 0};
}

std::optional<RelayKey> ParseRelayKey(std::string_view typed) {
  typed = Trim(typed);
  const size_t dash = typed.rfind('-');
  if (dash == std::string_view::npos || dash + 2 != typed.size()) return std::nullopt;
  const std::string_view abbr = Trim(typed.substr(0, dash));
  const std::string letter = Upper(typed.substr(dash + 1));
  if (abbr.empty() || letter[0] < 'A' || letter[0] > 'Z') return std::nullopt;
  return RelayKey{std::string(abbr), letter};
}

std::optional<EntrantKey> ParseEntrantKey(std::string_view typed) {
  if (const auto athlete = ParseAthleteKey(typed)) return *athlete;
  if (const auto relay = ParseRelayKey(typed)) return *relay;
  return std::nullopt;
}

std::variant<EntryKey, Notice> ParseEntryKey(std::string_view typed) {
  const size_t colon = typed.find(':');
  if (colon == std::string_view::npos) return UnreadableKey(typed);
  std::variant<EventNumber, Notice> event = ReadEventNumber(typed.substr(0, colon));
  if (const Notice* wrong = std::get_if<Notice>(&event)) return *wrong;
  const std::string_view entrant = Trim(typed.substr(colon + 1));
  if (entrant.empty()) return UnreadableKey(typed);
  return EntryKey{std::get<EventNumber>(event), std::string(entrant)};
}

}  // namespace tarvex::setup
