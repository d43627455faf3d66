#pragma once

#include <string>

#include "database/settings.h"
#include "reports/report.h"
#include "running/round_sheet.h"

// What the reports have in common: the head of the first page and the heading of an event.
namespace tarvex::reports {

// A report of this title with the meet's name, place and dates, as far as the meet's settings let them be
// printed.
Report StartReport(std::string title, const database::MeetSettings& settings);

// "Event 12  Girls 100 Meter Dash"; below it the round's name where the event has several.
Section EventSection(const setup::Event& event, std::string_view name, setup::Round round);
Section EventSection(const running::RoundSheet& sheet);

// Number, letter, name and round, for data files.
std::vector<DataField> EventContext(const running::RoundSheet& sheet);

// One column shows the school year or, where nobody has one, the age. Cell and heading for it.
struct YearStyle {
  bool by_school_year = false;
  bool suppress_age = false;

  std::string Heading() const;
  std::string Cell(const std::string& schl_yr, int age) const;
};

// "31", nothing for 0.
std::string NumberOrBlank(int number);

// "1) Jerome Blake", by leg.
std::vector<std::string> NumberedRunners(const std::vector<std::string>& runners);

}  // namespace tarvex::reports
