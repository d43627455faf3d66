#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/message.h"
#include "setup/event.h"

namespace tarvex::setup {

struct EventNumber {
  int event_no = 0;
  std::string event_ltr;  // "" or one upper-case letter

  bool operator==(const EventNumber&) const = default;
};

// Reads "12" or "12A". The notice says why it is no event number (the range is 1 to 999).
std::variant<EventNumber, Notice> ReadEventNumber(std::string_view typed);

struct AgeGroup {
  int low_age = 0;
  int high_age = 109;
};

// Everything that is on the add/edit screen, and what the checks need from elsewhere.
struct EventForm {
  Event event;
  bool cross_country = false;  // the two boxes may both be checked here, which a stored event cannot say
  bool road_race = false;
  std::string entry_fee;             // as typed, with the program's decimal separator turned to "."
  std::vector<AgeGroup> age_groups;  // of a multi-age event, from the youngest

  char meet_type = 'T';
  bool random_select = false;                 // the meet's random select method is on
  std::span<const EventNumber> other_events;  // numbers that other events have

  const Event* before = nullptr;  // the event as stored; null when it is being added
  bool has_entries = false;
};

// The first check that fails, in the order of the screen; empty when the event can be written.
std::optional<Notice> CheckEvent(const EventForm& form);

// The parts of it that a screen can ask for while the user is still typing.
std::optional<Notice> CheckNumber(const EventNumber& number, std::span<const EventNumber> other_events);
std::optional<Notice> CheckAgeGroups(const Event& event, std::span<const AgeGroup> groups);
std::optional<Notice> CheckHeatAssignment(const Event& event);
std::optional<Notice> CheckJumpOff(const Event& event);

}  // namespace tarvex::setup
