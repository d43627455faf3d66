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

inline Notice EventNotSeeded(std::string_view event) {
  return Joined(Message(9951, "Event "), std::string(event) + Message(9952, " has not been seeded.").text);
}
inline Notice EventHasNoResults(std::string_view event) {
  return Joined(Message(9951, "Event "),
                std::string(event) + Message(9953, " has no results to score.").text);
}
inline Notice NothingToScore() {
  return Message(9954, "No event was scored.");
}
inline Notice EventHasSeveralRounds(std::string_view event) {
  return Joined(
      Message(9951, "Event "),
      std::string(event) + Message(9955, " has several rounds, which this version cannot run.").text);
}
inline Notice NotTheRoundBeingRun(std::string_view event, std::string_view round_name) {
  return Joined(Message(9951, "Event "), std::string(event) + Message(9956, " is not in its round ").text +
                                             std::string(round_name) + ".");
}
// A fault of a results file: "line 7, column mark: ...".
inline Notice ResultsFault(int line, std::string_view column, const Notice& what) {
  std::string text = Message(9957, "line ").text + std::to_string(line);
  if (!column.empty()) text += Message(9958, ", column ").text + std::string(column);
  return {what.number, text + ": " + what.text};
}
inline Notice ResultsUnreadable(std::string_view what) {
  return Joined(Message(9959, "The results cannot be read: "), what);
}
inline Notice UnknownColumn() {
  return Message(9960, "there is no such column in a results file");
}
inline Notice MatchColumnsMissing() {
  return Message(9961,
                 "the results need the columns heat and lane, or comp_no, or last_name and first_name, or "
                 "team_abbr and relay_ltr");
}
inline Notice NotANumber(std::string_view typed) {
  return Joined(Message(9962, "this is not a number: "), typed);
}
inline Notice MatchesNobody() {
  return Message(9963, "this matches nobody in the event");
}
inline Notice MatchesSeveral() {
  return Message(9964, "this matches more than one in the event");
}
inline Notice MatchedTwice() {
  return Message(9965, "this has a row already");
}
inline Notice IsScratched() {
  return Message(9966, "this entry is scratched");
}
inline Notice IsNotSeeded() {
  return Message(9976, "this entry is not seeded");
}
inline Notice ContradictsTheEntry() {
  return Message(9977, "this names another competitor than the entry it was found by");
}
// Stands before what is said of one event among several.
inline Notice OfEvent(std::string_view event) {
  return Joined(Message(9951, "Event "), std::string(event) + ":");
}
inline Notice WindTooLong() {
  return Message(9967, "a wind reading of this length cannot be stored");
}
inline Notice WindsDiffer() {
  return Message(9968, "the heat has another wind reading in this file");
}
inline Notice ResultsRefused(int faults) {
  return Joined(Message(9969, "Nothing was stored. Faults in the results: "), std::to_string(faults));
}
inline Notice NoSuchEntry(std::string_view key) {
  return Joined(Message(9970, "The event has no such entry: "), key);
}
inline Notice UnknownDecision(std::string_view word) {
  return Joined(Message(9971, "This is not a judge's decision: "), word);
}
inline Notice EventHasResultsToPurge(std::string_view event) {
  return Joined(Message(9951, "Event "), std::string(event) + Message(9972, " has results.").text + "\n" +
                                             Message(9973, "Purge the seeding and the results ?").text);
}
inline Notice NothingToPurge(std::string_view event) {
  return Joined(Message(9951, "Event "), std::string(event) + Message(9974, " has nothing to purge.").text);
}
inline Notice NothingPurged() {
  return Message(9975, "Nothing was purged.");
}

}  // namespace tarvex::running
