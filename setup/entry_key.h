#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/message.h"
#include "setup/event_checks.h"

// How a command names a row: an athlete by his competitor number "101" or by "#17", his number in the
// database; a relay by team and letter "CAN-A"; and either of them in an event, "6:101", "6:CAN-A".
namespace tarvex::setup {

struct AthleteKey {
  int comp_no = 0;  // 0: given by ath_no
  int ath_no = 0;

  bool operator==(const AthleteKey&) const = default;
};

struct RelayKey {
  std::string team_abbr;
  std::string team_ltr;  // one upper-case letter

  bool operator==(const RelayKey&) const = default;
};

// Who takes part in one event.
using EntrantKey = std::variant<AthleteKey, RelayKey>;

struct EntryKey {
  EventNumber event;
  std::string entrant;  // to be read by one of the functions below
};

// Empty when the text is no such key.
std::optional<AthleteKey> ParseAthleteKey(std::string_view typed);
// The letter is the single one behind the last "-"; without a "-" there is no relay key.
std::optional<RelayKey> ParseRelayKey(std::string_view typed);
std::optional<EntrantKey> ParseEntrantKey(std::string_view typed);

// The notice says what is wrong.
std::variant<EntryKey, Notice> ParseEntryKey(std::string_view typed);

}  // namespace tarvex::setup
