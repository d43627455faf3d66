#include "setup/event_kind.h"

#include <cctype>

#include "base/text.h"

namespace tarvex::setup {
namespace {

constexpr EventKind kTrackAndField[] = {
    {'A', "Dash"},
    {'B', "Run"},
    {'C', "Mile Run"},
    {'D', "Race Walk"},
    {'E', "Hurdles"},
    {'H', "Steeplechase"},
    {'I', "Half Marathon"},
    {'J', "Marathon"},
    {'K', "High Jump"},
    {'L', "Pole Vault"},
    {'M', "Long Jump"},
    {'N', "Triple Jump"},
    {'O', "Discus Throw"},
    {'P', "Hammer Throw"},
    {'Q', "Javelin Throw"},
    {'R', "Shot Put"},
    {'S', "Weight Throw"},
    {'T', "Other"},
    {'U', "Super Weight"},
    {'W', "Relay"},
    {'X', "Sprint Medley"},
    {'Y', "Distance Medley"},
    {'Z', "Shuttle Hurdle"},
    {'1', "Decathlon"},
    {'2', "Heptathlon"},
    {'3', "Indoor Pentathlon"},
    {'4', "Outdoor Pentathlon"},
    {'5', "Triathlon"},
    {'6', "Weight Pentathlon"},
    {'7', "Biathlon"},
    {'8', "Tetrathlon"},
    {'9', "Octathlon"},
};

constexpr EventKind kSwimBikeRun[] = {
    {'A', "Swim-Bike-Run"}, {'B', "Swim-Bike-Run"}, {'C', "Swim-Bike-Run"}, {'D', "Swim-Bike-Run"},
    {'E', "Swim-Bike-Run"}, {'F', "Swim-Bike-Run"}, {'G', "Swim-Bike-Run"}, {'H', "Swim-Bike-Run"},
    {'I', "Swim-Bike-Run"}, {'J', "Swim-Bike-Run"},
};

constexpr EventKind kSurfAndBeach[] = {
    {'A', "Surf Swim"},          {'B', "Run-Swim-Run"},       {'C', "Rescue Board"},
    {'D', "Internat'l Ironman"}, {'E', "Intnat'l Ironwoman"}, {'F', "Surf Ski"},
    {'G', "Beach Run"},          {'H', "Beach Flags"},        {'I', "10'6 Board"},
    {'J', "American Ironman"},   {'K', "American Ironwoman"}, {'L', "Host Event"},
    {'T', "Surfboat"},           {'U', "Rescue Race"},        {'V', "Landline"},
    {'W', "Swim Relay"},         {'X', "4x100 Beach Relay"},  {'Y', "Rescue Board Rescue Race"},
    {'Z', "Host Event"},
};

constexpr EventKind kMultiSport[] = {
    {'A', "Dash"},          {'B', "Run"},          {'C', "Other"},         {'D', "Table Tennis"},
    {'E', "Slalom"},        {'F', "Freestyle"},    {'G', "Backstroke"},    {'H', "Breaststroke"},
    {'I', "Butterfly"},     {'J', "Indiv Medley"}, {'K', "Weightlifting"}, {'L', "Archery"},
    {'M', "Other"},         {'N', "Other"},        {'O', "Discus Throw"},  {'P', "Club"},
    {'Q', "Javelin Throw"}, {'R', "Shot Put"},     {'S', "Softball"},      {'T', "Other"},
    {'W', "Relay"},         {'X', "Other"},        {'Y', "Other"},
};

char UpperLetter(char c) {
  return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
}

}  // namespace

std::span<const EventKind> EventKinds(char meet_type) {
  switch (UpperLetter(meet_type)) {
    case 'T':
      return kTrackAndField;
    case 'S':
      return kSwimBikeRun;
    case 'L':
      return kSurfAndBeach;
    case 'W':
      return kMultiSport;
    default:
      return {};
  }
}

std::optional<std::string_view> KindName(char meet_type, char letter) {
  for (const EventKind& kind : EventKinds(meet_type)) {
    if (kind.letter == UpperLetter(letter)) return kind.name;
  }
  return std::nullopt;
}

std::optional<char> FindKind(char meet_type, std::string_view letter_or_name) {
  for (const EventKind& kind : EventKinds(meet_type)) {
    const std::string_view letter(&kind.letter, 1);
    if (SameText(letter_or_name, letter) || SameText(letter_or_name, kind.name)) return kind.letter;
  }
  return std::nullopt;
}

bool IsInMiles(char meet_type, char letter, float distance) {
  if (UpperLetter(meet_type) != 'T') return false;
  return letter == 'C' || ((letter == 'D' || letter == 'W') && distance < 100);
}

int Legs(const Event& event) {
  return event.ind_rel == 'R' && event.event_type2 != 'A' && event.relay_size > 0 ? event.relay_size : 1;
}

}  // namespace tarvex::setup
