#pragma once

#include <string>
#include <string_view>

#include "base/message.h"

// Every text of the results screen, of scoring an event and of judges' decisions, with its number.
namespace tarvex::running {

inline Notice OnlyFinalScores() {
  return Message(9350, "Can only score points in the Final round !");
}
// The variant says what No does where an event cannot simply be listed.
inline Notice NotSetUpToScore(bool can_be_listed) {
  const Notice no = can_be_listed
                        ? Message(9354, " No = Just list the results without point scoring.")
                        : Message(9355, " No = Do not score this event. Just return to the Run screen.");
  return Joined(Message(9351, "This event is not set-up to score points !"),
                "\n" + Message(9352, "Change event scoring to yes and score points now ?").text + "\n" +
                    Message(9353, "Yes = Change scoring setup and score this event.").text + "\n" + no.text +
                    "\n" + Message(9356, "Cancel = Do not list or score this event.").text);
}
inline Notice AllEntriesNeedAResult() {
  return Message(9357, "All entries must have a result before scoring points !");
}
inline Notice FastestHeatWithAgeGroups() {
  return Message(9358, "Cannot properly score Fastest Heat Only if event is set-up with multi-age groups.");
}
inline Notice FastestHeatWithDivisions() {
  return Message(9359, "Cannot properly score Fastest Heat Only if meet is set-up with divisions.");
}
inline Notice FastestHeatUnknown() {
  return Joined(
      Message(9360, "Can't figure out fastest heat because seeded with Random heat order !"),
      "\n" + Message(9361, "Go to the Events Menu and change the event to fast/slow or slow/fast heat order.")
                 .text);
}
inline Notice ThereIsATie() {
  return Joined(
      Message(9362, "There is a tie."),
      "\n" + Message(9363, "If you wish to break the tie, use the JD button, and then score again.").text);
}
inline Notice SomeEntriesWithoutResult() {
  return Message(9364, "Scoring may not be complete because some entries have no result !");
}
inline Notice CannotScoreRelay() {
  return Message(9365, "Unable to score this Relay event !");
}
inline Notice CannotScoreCrossCountry() {
  return Message(9366, "Unable to score this Cross country event !");
}
inline Notice MissingResultsReport() {
  return Message(9367, "Can't find tftvxresults1colcourier.rpt");
}
inline Notice ReportParameterProblem() {
  return Message(9368, "Problem entering report parameters !");
}

inline Notice RoundNotComplete() {
  return Message(9370, "Round must be completed before entering Judges Decisions or Tie Breaker results !");
}
inline Notice NoEntriesFound() {
  return Message(9372, "No entries found !");
}
inline Notice NothingCanHoldAJdPlace() {
  return Message(9373, "No results found that can have a JD place !");
}
// What the judges' grid tells its user, one line each.
inline Notice JudgesRules() {
  return Joined(
      Message(
          9374,
          " - To break a tie or to make a Judges Decision for Overall Placing, enter the corrected place in "
          "the JD Place column."),
      "\n" +
          Message(9375,
                  " - To make a Judges Decision for a Heat Place, enter the corrected place in the JDHeat PL "
                  "column.")
              .text +
          "\n" +
          Message(
              9376,
              " - You can change the results points for any entry by entering a new point score in the JD "
              "Points column (Finals Only).")
              .text +
          "\n" + Message(9377, " - To change points to zero, enter -1 in the JD Points column.").text + "\n" +
          Message(9378, " - To remove all Judges Decisions, click the Re-Set button and then click OK.")
              .text);
}
inline Notice JdPlaceRange(int results) {
  return Joined(Message(9379, "JD Places must be a number from 0 to "),
                std::to_string(results) + Message(9380, " !").text);
}
inline Notice JdHeatPlaceRange() {
  return Message(9381,
                 "JD Heat Places should be a number from 0 to number of athletes/relays in a heat/flight !");
}
inline Notice JdPointsRange() {
  return Message(9382, "JD Points limited to 0 to 999 or -1 to indicate no points !");
}
inline Notice InvalidDecimalPlace() {
  return Message(9383, "Invalid decimal place !");
}

inline Notice ReScoringNotPermitted() {
  return Message(9390, "Re-Scoring is not permitted.");
}
inline Notice JdNotPermitted() {
  return Message(9391, "Using the JD Menu is not permitted.");
}
inline Notice EditingPlacesNotPermitted() {
  return Message(9392, "Editing Places or Points is not permitted.");
}
inline Notice ResettingPlacesNotPermitted() {
  return Message(9393, "Re-Setting Places or Points is not permitted.");
}

// Our own.
inline Notice JdPointsOnlyInFinals() {
  return Message(9950, "JD Points can be entered in the Finals only !");
}

}  // namespace tarvex::running
