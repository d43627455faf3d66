#pragma once

#include <string>
#include <string_view>

#include "base/message.h"

// Every text of seeding and of its preferences, with its number. Texts with a value in the middle are made of
// numbered pieces; the first piece's number is the number of the whole.
namespace tarvex::seeding {

// Seeding preferences and lane tables.

inline Notice NoOpenLanes() {
  return Message(9250, "No open lanes !");
}
inline Notice ResetLanePreferences() {
  return Message(9251, "Reset all lane preferences to their default settings ?");
}
inline Notice ResetAlleyPreferences() {
  return Message(9252, "Reset all alley preferences to their default settings ?");
}
// The row number stands after a blank for its sign, so two blanks are seen.
inline Notice LaneOutOfRange(int row, int column) {
  return Joined(Message(9253, "Please enter a number from 1 to 12 in row "),
                " " + std::to_string(row) + Message(9254, ", column ").text + std::to_string(column) + ".");
}
inline Notice DuplicateInRow(int row) {
  return Joined(Message(9255, "Row "), std::to_string(row) + Message(9256, " has duplicate numbers !").text);
}
inline Notice DuplicateRows(int first, int second) {
  return Joined(Message(9255, "Row "), std::to_string(first) + Message(9257, " and ").text +
                                           std::to_string(second) +
                                           Message(9256, " has duplicate numbers !").text);
}
inline Notice PositionOutOfRange(int row) {
  return Joined(Message(9258, "Please enter a number from 1 to 160 in row "), std::to_string(row) + ".");
}
inline Notice CustomAlleyGap(int row) {
  return Joined(Message(9259, "For custom alleys, there cannot be any gaps in the alpha numeric numbering."),
                "\n\n" + Message(9260, "There is a gap at positon ").text + std::to_string(row) + ".");
}
inline Notice CustomAlleyName(std::string_view offending, int row) {
  return Joined(
      Message(9261,
              "Custom alleys must have a numeric first character and an alpha second character such "
              "as 2B or 1A."),
      "\n\n" + std::string(offending) + " " + Message(9262, "is not permitted in position ").text +
          std::to_string(row) + ".");
}
inline Notice RandomizationRuleLetter() {
  return Message(9263, "Please enter one of the letters A thru E for the Randomization Rules !");
}

// A seeding run.

inline Notice SeedingNotPermitted() {
  return Message(9270, "Seeding events is not permitted.");
}
inline Notice NoDualTeams() {
  return Joined(
      Message(9271, "Teams have not been selected for dual lane assignments !"),
      "\n" +
          Message(9272,
                  "Please go back to Set-up / Seeding Preferences / Dual Meets to select team lane "
                  "assignments.")
              .text +
          "\n" +
          Message(9273,
                  "If you do not want specific lane assignments, then go to this same Set-up and uncheck the "
                  "box 'Use Lane Assignments'.")
              .text);
}
inline Notice NoEligibleEvents() {
  return Message(9274, "No eligible events have been selected !");
}
inline Notice StartingSeedRoutine() {
  return Message(9275, "Starting Seed Routine");
}
inline Notice CombinedHeaderEvent(std::string_view event) {
  return Joined(
      Message(9276, "Event "),
      std::string(event) +
          Message(9277, " cannot be seeded because it is the Combined Event header event.").text + "\n" +
          Message(9278, "You must select the Combined Event sub-events from a session.").text + "\n" +
          Message(9279,
                  "Use the Combined Event header event only to perform scratches using the Scratch Pad.")
              .text);
}
inline Notice NowSeedingEvent(std::string_view event) {
  return Joined(Message(9280, "Now Seeding Event : "), event);
}
inline Notice EventIsLocked(std::string_view event, std::string_view user) {
  return Joined(Message(9276, "Event "),
                std::string(event) + Message(9281, " is temporarily locked by ").text + std::string(user) +
                    ".\n" + Message(9282, "This event cannot be seeded at this time.").text);
}
// `round_name` is "Prelims", "Qtr-Finals", "Semi-Finals" or "Finals".
inline Notice AlreadySeeded(std::string_view round_name) {
  const Notice rest = Message(9283, " have already been seeded...");
  return {rest.number,
          std::string(round_name) + rest.text + "\n" + Message(9284, "Proceed and re-seed ?").text};
}
inline Notice SeedByPlaceAndTime(std::string_view event) {
  return Joined(
      Message(9285, "The Entry/Scoring Preferences are set to show seed places with the 1st round entries."),
      "\n" + Message(9286, "Seed the 1st round of ").text + std::string(event) +
          Message(9287, " by place and time ?").text + "\n" +
          Message(9288, "Yes = Seed by Place and then by Time.").text + "\n" +
          Message(9289, " No = Seed by Time only.").text);
}
inline Notice UnbrokenTie(std::string_view event, bool in_an_age_group) {
  return Joined(
      Message(9290, "Tie for last place has not been broken for event "),
      std::string(event) + (in_an_age_group ? Message(9291, " in one of the age groups.").text : "") + "\n" +
          Message(9292, "Cannot seed this event. Go back to Run Menu and break the tie using the JD button.")
              .text);
}
inline Notice ProblemSeedingEvent(std::string_view event) {
  return Joined(Message(9293, "problem seeding event "), event);
}
inline Notice NoEventsSeeded() {
  return Joined(
      Message(9294, "None of the events selected were seeded !"),
      "\n" +
          Message(9295,
                  "This may be because you have selected the Declaration Method for entries and none of the "
                  "entries are delcared.")
              .text +
          "\n" +
          Message(9296,
                  "Go to Set-up / Entry Scoring Preferences / Entries and Results to see if Declarations is "
                  "checked.")
              .text);
}
inline Notice SeedingCompleted(int events) {
  return Joined(Message(9297, "Seeding completed !"),
                "\n" + Message(9298, "Number of events seeded = ").text + std::to_string(events));
}
inline Notice TooFewHeats(int minimum) {
  return Joined(Message(9299, "The number of heats/flights cannot be less than "), std::to_string(minimum));
}
inline Notice NumberOfEventsSeeded(int events) {
  return Joined(Message(9300, "Number of Events Seeded : "), std::to_string(events));
}

// Events that are passed over.

inline Notice SeveralRoundsNotSeeded(std::string_view event) {
  return Joined(
      Message(9850, "Event "),
      std::string(event) + Message(9851, " has several rounds and cannot be seeded by this version.").text);
}
inline Notice RoundIsDone(std::string_view event) {
  return Joined(
      Message(9850, "Event "),
      std::string(event) + Message(9852, " is done. Purge its results before seeding it again.").text);
}
inline Notice RoundIsNotNext(std::string_view event) {
  return Joined(
      Message(9850, "Event "),
      std::string(event) + Message(9853, " was left out: the round asked for is not its next one.").text);
}
inline Notice NothingToSeed(std::string_view event) {
  return Joined(Message(9850, "Event "), std::string(event) + Message(9854, " has no entries to seed.").text);
}
inline Notice DualMeetsNotSeeded() {
  return Message(9855, "Dual-meet lane assignments are switched on, which this version cannot seed.");
}
inline Notice RandomSelectNotSeeded() {
  return Message(9856, "The Random Select Method is switched on, which this version cannot seed.");
}

}  // namespace tarvex::seeding
