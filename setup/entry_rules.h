#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/message.h"
#include "database/meet.h"
#include "setup/division.h"
#include "setup/event.h"
#include "setup/roster.h"

// Who may be entered in which event, and how often.
namespace tarvex::setup {

// A division with the birth dates it lets in, in days since 1899-12-30 (0: not limited).
struct DatedDivision {
  Division division;
  double oldest = 0;
  double youngest = 0;
};

struct EntryRules {
  double calc_date = 0;            // the day on which ages are taken
  bool division_of_event = false;  // events belong to divisions that say who may take part
  bool division_by_birth = false;  // by its birth dates instead of its ages
  bool declarations = false;       // only declared entries are seeded
  int most_entries = 0;            // of an athlete, relays included; 0: no limit, here and below
  int most_track = 0;
  int most_field = 0;
  bool limits_warn = false;  // more than that is asked about instead of refused
};
EntryRules RulesOf(const database::MeetSettings& settings);

// Whole years on the age-up date; empty when neither birth date nor age is known.
std::optional<int> AgeOf(const Athlete& athlete, double calc_date);
// The age of somebody born on a day, on another one.
int AgeOnDay(double birth_date, double day);

// Why an athlete does not fit an event: for good, or unless the question is answered with Yes because he is
// younger than its athletes are.
struct Misfit {
  std::optional<Notice> refusal;
  std::optional<Notice> age_up;
};
// `division` is the event's, null when it has none.
Misfit CheckFit(const Athlete& athlete, const Event& event, const DatedDivision* division,
                const EntryRules& rules);

// What an athlete is entered in.
struct EntryCounts {
  int total = 0;
  int track = 0;  // individual events only
  int field = 0;

  void Add(const Event& event);
};
// What more entries than allowed are told, or asked about; `counts` include the new one.
std::optional<Notice> CheckLimits(const Athlete& athlete, const EntryCounts& counts, const EntryRules& rules);

// Whether a new entry of an event that is seeded already would have been seeded with the others.
bool IsLeftUnseeded(const EntryCommon& entry, const Event& event, const EntryRules& rules);

// The age that a relay counts as: that of the youngest member in masters meets (class 5), else of the oldest;
// 0 when no age is known.
int RelayAge(std::span<const Athlete* const> members, int meet_class, double calc_date);

}  // namespace tarvex::setup
