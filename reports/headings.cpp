#include "reports/headings.h"

#include "database/date.h"
#include "reports/messages.h"
#include "setup/event_name.h"

namespace tarvex::reports {
namespace {

std::string MeetDates(const database::MeetSettings& settings) {
  if (settings.Meet_start == 0) return "";
  const std::string first = database::IsoText(database::WholeDay(settings.Meet_start));
  if (settings.Meet_end <= settings.Meet_start) return first;
  return ToDate(first, database::IsoText(database::WholeDay(settings.Meet_end)));
}

}  // namespace

Report StartReport(std::string title, const database::MeetSettings& settings) {
  Report report;
  report.title = std::move(title);
  if (!settings.report_excludemeetname) AddLine(report.meet_name, settings.Meet_name1);
  if (!settings.report_excludemeetname2) AddLine(report.meet_name, settings.Meet_name2);
  if (!settings.report_excludelocation) AddLine(report.meet_info, settings.Meet_location);
  if (settings.incl_meetdate != 0) AddLine(report.meet_info, MeetDates(settings));
  return report;
}

Section EventSection(const setup::Event& event, std::string_view name, setup::Round round) {
  Section section;
  section.heading = EventHeading(setup::EventLabel(event), name);
  if (event.event_rounds > 1) section.subheading = setup::RoundName(round);
  return section;
}

Section EventSection(const running::RoundSheet& sheet) {
  return EventSection(sheet.event, sheet.name, sheet.round);
}

std::vector<DataField> EventContext(const running::RoundSheet& sheet) {
  return {{"event_no", std::to_string(sheet.event.event_no)},
          {"event_ltr", sheet.event.event_ltr},
          {"event_name", sheet.name},
          {"round", std::string(1, setup::Letter(sheet.round))}};
}

std::string YearStyle::Heading() const {
  return by_school_year ? YearColumn() : AgeColumn();
}

std::string YearStyle::Cell(const std::string& schl_yr, int age) const {
  if (by_school_year) return schl_yr;
  return suppress_age ? "" : NumberOrBlank(age);
}

std::string NumberOrBlank(int number) {
  return number == 0 ? "" : std::to_string(number);
}

std::vector<std::string> NumberedRunners(const std::vector<std::string>& runners) {
  std::vector<std::string> numbered;
  for (size_t i = 0; i < runners.size(); ++i) numbered.push_back(std::to_string(i + 1) + ") " + runners[i]);
  return numbered;
}

}  // namespace tarvex::reports
