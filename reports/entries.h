#pragma once

#include <string>
#include <vector>

#include "database/meet.h"
#include "reports/event_choice.h"
#include "reports/report.h"
#include "setup/roster_store.h"

namespace tarvex::reports {

// An entry or relay with its texts.
struct EntryLine {
  int id = 0;  // ath_no, or relay_no of a relay
  int comp_no = 0;
  std::string name;  // as lists show it: "Blake, Jerome", "Canada A"
  std::string last_name;
  std::string first_name;
  std::string sex;         // "M", "F"
  std::string birth_date;  // ISO 8601
  int age = 0;
  std::string schl_yr;
  std::string team_abbr;
  std::string team_name;
  std::string division;  // its code
  float mark = 0;        // converted to the unit of the event's results; 0: none
  std::string seed_text;
  std::string typed_seed;  // as at the keyboard, in seed_unit
  std::string seed_unit;
  bool exhibition = false;
  bool scratched = false;
  std::string relay_ltr;
  std::vector<std::string> runners;  // as lists show them, by leg
  std::vector<std::string> legs;     // "Blake, Jerome"
};

// All that are entered in one event.
struct EventEntries {
  setup::Event event;
  std::string name;
  bool is_relay = false;
  std::vector<EntryLine> lines;
};

struct EntryListStyle {
  bool suppress_age = false;
  bool exhibition_last = false;
};

// Best seed first, those without a mark behind, with their count; the scratched in a list of their own.
Section EntriesSection(const EventEntries& entries, const EntryListStyle& style);

Expected<EventEntries> LoadEventEntries(const database::Meet& meet, const setup::StoredEvent& event,
                                        const setup::Roster& roster);

// A data file has the columns of a file of entries, so that it can be imported into another meet; scratched
// entries are not in it.
Expected<Report> BuildEntries(const database::Meet& meet, const EventChoice& choice);

}  // namespace tarvex::reports
