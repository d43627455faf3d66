#pragma once

#include <string>
#include <string_view>

#include "base/message.h"

// Every text of the points table and of team scores, with its number.
namespace tarvex::scoring {

inline Notice CannotLoadPointsTable() {
  return Message(9450, "Unable to set-up scoring points table ! ");
}
inline Notice ResetPoints() {
  return Message(9451, "Reset points to their default settings ?");
}
inline Notice AtLeastThreePlaces() {
  return Message(9452, "Please select at least 3 places for scoring.");
}
inline Notice NoScoresFound() {
  return Message(9453, "No scores found");
}
inline Notice NoRescoringOfDoubleDual() {
  return Message(9454, "Re-scoring not available for double dual meets.");
}
inline Notice TeamScores() {
  return Message(9455, "Team Scores");
}
inline Notice TeamScoresThruEvent(std::string_view event) {
  return Joined(Message(9456, "Team Scores thru Event "), event);
}
inline Notice TeamScoresAllEvents() {
  return Message(9457, "Team Scores for All Completed Events");
}
inline Notice ScoringUnsaved() {
  return Joined(Message(9458, "Changes have been made !"),
                "\n" + Message(9459, "Return to Scoring Set-up ?").text + "\n" +
                    Message(9460, "Answer No to exit without saving changes to points on screen.").text);
}
inline Notice NoDivisionsSetUp() {
  return Joined(Message(9461, "Meet is set-up for Divisions, but no Divisions are set-up."),
                "\n" + Message(9462,
                               "Click Set-up pull down and select Division / Region Names and enter your "
                               "Division Names for the 1st two Divisions.")
                           .text);
}

// Our own.
inline Notice HowManyPlaces() {
  return Message(10050, "Number of places to score :");
}
inline Notice NegativePoints() {
  return Message(10051, "Points cannot be negative !");
}
inline Notice PointsUnclear(std::string_view typed) {
  return Joined(Message(10052, "Points are given as PLACE=INDIVIDUAL,RELAY,COMBINED, not as "), typed);
}
inline Notice NoSuchDivision(int division) {
  return Joined(Message(10054, "There is no division "), std::to_string(division) + ".");
}
inline Notice PointsPlaceRange() {
  return Message(10053, "Places that carry points are 1 to 100 !");
}

}  // namespace tarvex::scoring
