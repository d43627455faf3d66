#pragma once

#include <vector>

#include "database/meet.h"
#include "database/rows.h"
#include "setup/division.h"
#include "setup/entry_rules.h"
#include "setup/event_proposal.h"

namespace tarvex::setup {

// A row of the table of divisions.
struct DivisionRow : Division {
  double beg_date = 0;  // birth dates, in days since 1899-12-30
  double end_date = 0;
};
using StoredDivision = database::Stored<DivisionRow>;

struct DivisionTable {
  jet::Table* table;
  database::BoundFields<DivisionRow> fields;
};
std::span<const database::Binding<DivisionRow>> DivisionFields();
Expected<DivisionTable> Divisions(const database::Meet& meet);

// By number.
Expected<std::vector<StoredDivision>> LoadDivisions(const database::Meet& meet);
Expected<std::vector<DatedDivision>> LoadDatedDivisions(const database::Meet& meet);

// Sets the birth dates that follow from the division's ages and the days of the meet; none where the meet has
// no dates.
void SetBirthDates(DivisionRow& division, const database::MeetSettings& settings);

// What the settings say about new events.
MeetDefaults DefaultsOf(const database::MeetSettings& settings);

}  // namespace tarvex::setup
