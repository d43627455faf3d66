#pragma once

#include <map>
#include <string>
#include <vector>

#include "setup/division.h"
#include "setup/entry_rules.h"
#include "setup/event_proposal.h"
#include "setup/import_rows.h"
#include "setup/roster.h"
#include "setup/seed_marks.h"

namespace tarvex::setup {

// An entry with the exhibition flags of the rounds that may be its first: 'X' or ' '.
struct ExhibitionFlags {
  char pre_exh = ' ';
  char fin_exh = ' ';

  char& OfFirstRound(const Event& event) { return event.event_rounds > 1 ? pre_exh : fin_exh; }
};
struct ImportedEntry : Entry, ExhibitionFlags {};
struct ImportedRelay : Relay, ExhibitionFlags {};

// What a file is matched against. What is made during the import is added behind what the meet holds, with
// numbers below 0 (event_ptr, team_no, ath_no, relay_no) until it is written.
struct ImportState {
  std::vector<Event> events;
  std::vector<Team> teams;
  std::vector<Athlete> athletes;
  std::vector<ImportedEntry> entries;
  std::vector<ImportedRelay> relays;
  std::vector<RelayName> names;
};

struct ImportContext {
  MeetDefaults defaults;  // of new events
  EntryRules rules;
  marks::MarkSettings marks;
  ConversionRules conversions;
  std::vector<DatedDivision> divisions;
  int division_level = 1;            // of the meet: 1 none, 2 events, 3 teams, 4 entries belong to divisions
  bool numbers_per_sex = false;      // competitor numbers are unique among men and among women
  bool anyone_on_relay = false;      // runners need not be of the relay's team
  bool several_relays_each = false;  // an athlete may run in two relays of an event
  ImportLengths lengths;
};

enum class Fate { Added, Updated, Unchanged, Fault };
// "added", "updated", "unchanged", "fault".
std::string_view FateName(Fate fate);

struct RowFate {
  int line = 0;
  Fate fate = Fate::Added;
  std::string reason;  // of a fault
};

// What was made.
struct ImportCounts {
  int teams = 0, athletes = 0, events = 0, entries = 0, relays = 0;
};

// Something about a row that the user must agree to.
struct RowQuestion {
  int line = 0;
  std::string text;
};

struct ImportPlan {
  ImportState state;                // as it is to be
  std::vector<RowFate> rows;        // by line, the rows that could not be read included
  std::vector<ImportFault> faults;  // by line
  ImportCounts counts;
  bool has_changes = false;
  std::vector<RowQuestion> out_of_range, age_ups, over_limits;
};

// Decides about every row; a faulty row leaves no trace in the state. Rows of athletes are decided before
// those of relays, so that relays find their runners wherever they stand in the file.
ImportPlan PlanImport(const ImportRows& rows, ImportState meet, const ImportContext& context);

}  // namespace tarvex::setup
