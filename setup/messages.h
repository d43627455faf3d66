#pragma once

#include <string>
#include <string_view>

#include "base/message.h"

// Every text of the event and division screens, with its number. Texts with a value in the middle are made of
// numbered pieces; the first piece's number is the number of the whole.
namespace tarvex::setup {

inline Notice EventNumberRange() {
  return Message(9150, "Event number range is 1 to 999 !");
}
inline Notice InvalidEventNumber() {
  return Message(9151, "Invalid event number");
}
inline Notice HighAgeBelowLowAge() {
  return Message(9152, "Age group High age cannot be lower than Low age !");
}
inline Notice FirstAgeGroupMustHoldLowAge(int low_age) {
  return Joined(Message(9153, "Multi-Age Group problem: The first age group must contain "),
                std::to_string(low_age) + Message(9154, " for the low age !").text);
}
inline Notice AgeGroupLowAboveHigh() {
  return Message(9155,
                 "Multi-Age Group problem: The low age cannot be greater than its corresponding high age !");
}
inline Notice AgeGroupsOverlapOrGap() {
  return Message(9156, "Multi-Age Group problem: Age groups must not overlap and there can be no age gaps !");
}
inline Notice LastAgeGroupMustHoldHighAge(int high_age) {
  return Joined(Message(9157, "Multi-Age Group problem: Last high age must equal overall event high age of "),
                std::to_string(high_age) + Message(9158, " !").text);
}
inline Notice SelectADistance() {
  return Message(9159, "Please select a distance for this event !");
}
inline Notice TooManyMiles() {
  return Message(9160, "Distance cannot exceed 200 when using Mile for a running event !");
}
inline Notice CrossCountryAndRoadRace() {
  return Message(9161, "Please select either Cross Country, Road Race or neither, but not both !");
}
inline Notice CrossCountryNeedsRunning() {
  return Message(9162, "When selecting Cross Country or Road Race, please select a running event !");
}
inline Notice CrossCountryNeedsFinalsOnly() {
  return Message(9163, "When selecting Cross Country or Road Race, please select Finals Only for Rounds !");
}
inline Notice FieldRoundsLimit() {
  return Joined(Message(9164, "Field events are limited to 2 rounds !"),
                "\n" + Message(9165, "Normally field events are set-up as one round.").text);
}
inline Notice SemiHeatsBelowFinalHeats() {
  return Message(9166, "Number of semi-final heats must equal or exceed number of heats in finals !");
}
inline Notice QuarterHeatsBelowFinalHeats() {
  return Message(9167, "Number of quarter-final heats must equal or exceed number of heats in finals !");
}
inline Notice QuarterHeatsBelowSemiHeats() {
  return Message(9168, "Number of quarter-final heats must equal or exceed number of heats in semi-finals !");
}
inline Notice OneRoundCannotSelect(std::string_view choice) {
  return Joined(Message(9169, "One round events cannot select "),
                std::string(choice) + Message(9171, " for Heat/Flight Assignment !").text);
}
inline Notice SeveralRoundsCannotSelect(std::string_view choice) {
  return Joined(Message(9170, "Multiple round events cannot select "),
                std::string(choice) + Message(9171, " for Heat/Flight Assignment !").text);
}
inline Notice ThreeOrMoreFinals() {
  return Message(9172, "Please enter a 3 or more for the number of 3+ heats in finals !");
}
inline Notice MixedCombinedEvent() {
  return Message(9173, "Mixed sexes not permitted in Combined Events !");
}
inline Notice RoadRaceTeamSize() {
  return Message(9174,
                 "For Road Race scoring for this event, enter the number of runners (2-6) to score from each "
                 "team.");
}
inline Notice FieldRelaySize() {
  return Message(
      9175, "For Field Event Relays, enter the number of athletes (2-5) for adding marks for each team.");
}
inline Notice AddedRelaySize() {
  return Message(9176,
                 "For Running Event Relays, enter the number of athletes (2-5) for adding times for each "
                 "team.");
}
inline Notice RandomSelectSize() {
  return Message(9177,
                 "Meet is set-up for Random Select, so enter the number of athletes (1-5) for computerized "
                 "seeding of each team.");
}
inline Notice InvalidEntryFee() {
  return Message(9178, "Invalid Entry Fee");
}
inline Notice TypeChangeWithEntries() {
  return Joined(Message(9179, "Entries have already been entered in this event."),
                "\n" + Message(9180,
                               "Therefore the type of event cannot be changed unless you delete all entries "
                               "in this event.")
                           .text);
}
inline Notice RelayChangeWithEntries(bool to_relay) {
  const Notice change =
      to_relay
          ? Message(9181, "Therefore the event cannot be changed from an individual event to a relay event ")
          : Message(9182, "Therefore the event cannot be changed from a relay event to an individual event ");
  return Joined(Message(9179, "Entries have already been entered in this event."),
                "\n" + change.text + Message(9183, "unless you delete all entries in this event.").text);
}
inline Notice TimedFinalAfterSeeding() {
  return Joined(
      Message(9184, "This event has already been seeded or already has results."),
      "\n" + Message(9185, "Therefore the event cannot be changed to a timed final event unless you").text +
          "\n" + Message(9186, "purge the seeding using File / Purge / Reset Seeding.").text);
}
inline Notice JumpOffOnlyVertical() {
  return Message(9187, "The Jump Off check box is only for High Jump or Pole Vault.");
}

inline Notice DivisionCodeMissing() {
  return Message(9190, "The code must have at least one character !");
}
inline Notice DivisionNameMissing() {
  return Message(9191, "The Division name must have at least one character !");
}
inline Notice DivisionLowAgeAboveHigh() {
  return Message(9192, "The low age cannot be older than the high age !");
}
inline Notice DivisionLowAgeTooHigh() {
  return Message(9193, "The low age cannot be greater than 109 !");
}
inline Notice DivisionHighAgeTooHigh() {
  return Message(9194, "The high age cannot be greater than 109 !");
}
inline Notice DivisionLowLetter() {
  return Message(9195, "Please enter Y, D, or L for low date calculation !");
}
inline Notice DivisionHighLetter() {
  return Message(9196, "Please enter Y, D, or L for high date calculation !");
}
inline Notice DivisionMaxEntries() {
  return Message(9197, "Max entries must be from 0 to 99 !");
}
inline Notice DivisionCodeTaken() {
  return Message(9198, "This code is already being used !");
}
inline Notice DeleteDivision(std::string_view code) {
  return Joined(Message(9199, "Delete Code "), std::string(code) + Message(9200, " ?").text);
}
inline Notice ReplaceByUsatfDivisions() {
  return Joined(Message(9201,
                        "This will erase the first 7 divisions and replace them with the standard USATF "
                        "Youth Athletics Divisions."),
                "\n" + Message(9202, "Create USATF Youth Athletics Divisions ?").text);
}
inline Notice ReplaceByAauDivisions() {
  return Joined(Message(9203,
                        "This will erase the first 10 divisions and replace them with the standard AAU "
                        "Youth Athletics Divisions."),
                "\n" + Message(9204, "Create AAU Youth Athletics Divisions ?").text);
}
inline Notice ChangeHighAgeDate(std::string_view date) {
  return Joined(Message(9205, "Change the normal high age date "),
                std::string(date) + Message(9207, " to a different date ?").text);
}
inline Notice ChangeLowAgeDate(std::string_view date) {
  return Joined(Message(9206, "Change the normal low age date "),
                std::string(date) + Message(9207, " to a different date ?").text);
}

// Our own: values that a screen cannot be given but a command line can.
inline Notice UnknownKind() {
  return Message(9750, "Unknown event kind");
}
inline Notice RoundsRange() {
  return Message(9751, "Number of rounds must be from 1 to 4 !");
}

// The import of entries. What is wrong with a row follows where it is.
inline Notice AtLine(int line, std::string_view column, std::string_view reason) {
  const std::string where = column.empty() ? "" : Message(9753, ", column ").text + std::string(column);
  return Joined(Message(9752, "Line "), std::to_string(line) + where + ": " + std::string(reason));
}
// `reason` says the line itself.
inline Notice UnreadableRow(std::string_view reason) {
  return Joined(Message(9754, "The row cannot be read: "), reason);
}
inline Notice UnknownImportColumn(std::string_view name) {
  return Joined(Message(9755, "unknown column "), name);
}
inline Notice ImportColumnMissing(std::string_view name) {
  return Joined(Message(9756, "missing column "), name);
}
inline Notice ValueMissing() {
  return Message(9757, "the value is missing");
}
inline Notice UnreadableValue(std::string_view value) {
  return Joined(Message(9758, "cannot read the value "), value);
}
inline Notice ValueTooLong(int most) {
  return Joined(Message(9759, "the text is too long; the most characters are "), std::to_string(most));
}
inline Notice LegWithoutRelay() {
  return Message(9760, "only a relay has legs");
}
inline Notice NameInRelayRow() {
  return Message(9761, "the row of a relay has no athlete's name");
}
inline Notice NoSuchDivision(std::string_view code) {
  return Joined(Message(9762, "there is no division "), code);
}
inline Notice SeveralEventsFit() {
  return Message(9763, "several events fit; give the event's number");
}
inline Notice SeveralAthletesFit() {
  return Message(9764, "several athletes have this name; give the competitor number");
}
inline Notice EventDiffers(std::string_view event) {
  return Joined(Message(9765, "this is otherwise in event "), event);
}
inline Notice EventIsRelay(std::string_view event) {
  return Joined(Message(9766, "this is a relay event: "), event);
}
inline Notice EventIsNoRelay(std::string_view event) {
  return Joined(Message(9767, "this is no relay event: "), event);
}
inline Notice TeamDiffers(std::string_view team) {
  return Joined(Message(9768, "this is otherwise for the team "), team);
}
inline Notice AthleteDiffers(std::string_view athlete) {
  return Joined(Message(9769, "this is otherwise for the athlete "), athlete);
}
inline Notice NumberTaken(std::string_view athlete) {
  return Joined(Message(9770, "the competitor number belongs to "), athlete);
}
inline Notice NobodyHasNumber(std::string_view number) {
  return Joined(Message(9771, "nobody has the competitor number "), number);
}
inline Notice RunnerOfOtherTeam(std::string_view athlete) {
  return Joined(Message(9772, "the runner is of another team: "), athlete);
}
inline Notice AgeOutOfRange() {
  return Message(9773, "the age is not from 0 to 109");
}
inline Notice AlreadyInEvent(std::string_view who, std::string_view event) {
  return Joined(Message(9774, "already entered: "),
                std::string(who) + Message(9775, " in event ").text + std::string(event));
}
inline Notice TwiceInRelay(std::string_view athlete) {
  return Joined(Message(9776, "twice in the relay: "), athlete);
}
inline Notice EntryDiffers() {
  return Message(9777, "the entry is in another division");
}
inline Notice NothingImported() {
  return Message(9778, "Nothing was imported.");
}
inline Notice MarksOutOfRange(size_t count, std::string_view rows) {
  return Joined(
      Message(9779, "Marks entered are out of range for their events: "),
      std::to_string(count) + std::string(rows) + "\n" + Message(9780, "Accept the marks anyway ?").text);
}
inline Notice AthletesBelowAge(size_t count, std::string_view rows) {
  return Joined(
      Message(9781, "Athletes are entered above their age group: "),
      std::to_string(count) + std::string(rows) + "\n" + Message(9782, "Accept the entries anyway ?").text);
}
inline Notice EntriesOverLimit(size_t count, std::string_view rows) {
  return Joined(
      Message(9783, "Entries exceed the limit of entries per athlete: "),
      std::to_string(count) + std::string(rows) + "\n" + Message(9782, "Accept the entries anyway ?").text);
}

// Who fits an event.
inline Notice WrongSexForEvent(std::string_view athlete) {
  return Joined(Message(9784, "The sex does not fit the event: "), athlete);
}
inline Notice TooOldForEvent(std::string_view athlete, int age, int high_age) {
  return Joined(Message(9785, "Too old for the event: "),
                std::string(athlete) + ", " + std::to_string(age) + " > " + std::to_string(high_age));
}
inline Notice YoungerThanEvent(std::string_view athlete, int age, int low_age) {
  return Joined(Message(9786, "Younger than the age group of the event: "),
                std::string(athlete) + ", " + std::to_string(age) + " < " + std::to_string(low_age));
}
inline Notice BornOutsideDivision(std::string_view athlete, std::string_view division) {
  return Joined(Message(9787, "Born before the dates of the division "),
                std::string(division) + ": " + std::string(athlete));
}
inline Notice YoungerThanDivision(std::string_view athlete, std::string_view division) {
  return Joined(Message(9788, "Born after the dates of the division "),
                std::string(division) + ": " + std::string(athlete));
}
inline Notice TooManyEntries(std::string_view athlete, int most) {
  return Joined(Message(9789, "More entries than allowed: "),
                std::string(athlete) + ", " + std::to_string(most));
}
inline Notice TooManyTrackEntries(std::string_view athlete, int most) {
  return Joined(Message(9790, "More track entries than allowed: "),
                std::string(athlete) + ", " + std::to_string(most));
}
inline Notice TooManyFieldEntries(std::string_view athlete, int most) {
  return Joined(Message(9791, "More field entries than allowed: "),
                std::string(athlete) + ", " + std::to_string(most));
}

// Editing one row. The question mark stands alone: the text before it says what is unusual.
inline Notice Anyway(const Notice& unusual) {
  return Joined(unusual, "\n" + Message(9792, "Accept the entry anyway ?").text);
}
inline Notice UnreadableKey(std::string_view key) {
  return Joined(Message(9793, "Cannot read the key "), key);
}
inline Notice NotFound(std::string_view key) {
  return Joined(Message(9794, "Not found: "), key);
}
inline Notice SeveralFound(std::string_view key) {
  return Joined(Message(9795, "Several have the key "), key);
}
inline Notice ExistsAlready(std::string_view key) {
  return Joined(Message(9796, "Exists already: "), key);
}
inline Notice FieldRequired(std::string_view field) {
  return Joined(Message(9797, "Required: "), field);
}
inline Notice FieldInvalid(std::string_view field) {
  return Joined(Message(9798, "Invalid value: "), field);
}
inline Notice FieldNotEditable(std::string_view field) {
  return Joined(Message(9799, "Cannot be changed here: "), field);
}
inline Notice EventHasEntries() {
  return Message(9800, "Entries have been entered in this event. Delete them first.");
}
inline Notice DivisionInUse() {
  return Message(9801, "The division is in use.");
}
inline Notice TeamHasAthletes() {
  return Message(9802, "The team has athletes or relays. Delete them first.");
}
inline Notice AthleteHasEntries() {
  return Message(9803, "The athlete has entries. Delete them first.");
}
inline Notice DeleteWithResults(std::string_view who) {
  return Joined(Message(9804, "There are results for "),
                std::string(who) + Message(9805, ". Delete anyway ?").text);
}
inline Notice TeamAbbrTaken(std::string_view abbr) {
  return Joined(Message(9806, "Another team has the abbreviation "), abbr);
}
inline Notice NoDivision(int div_no) {
  return Joined(Message(9807, "There is no division "), std::to_string(div_no));
}
inline Notice NothingChanged() {
  return Message(9808, "Nothing was changed.");
}

}  // namespace tarvex::setup
