#pragma once

#include <string>
#include <string_view>

#include "base/message.h"

// Every text of the reports, with its number. Column headings are short: they stand above narrow columns.
namespace tarvex::reports {

// Titles.
inline std::string StartListsTitle() {
  return Message(10100, "Start Lists").text;
}
inline std::string ResultsTitle() {
  return Message(10101, "Results").text;
}
inline std::string EntriesTitle() {
  return Message(10102, "Entries").text;
}
inline std::string MeetProgramTitle() {
  return Message(10103, "Meet Program").text;
}

// Headings.
inline std::string EventHeading(std::string_view label, std::string_view name) {
  return Message(10104, "Event ").text + std::string(label) + "  " + std::string(name);
}
inline std::string HeatHeading(bool is_field, int heat, size_t heats) {
  const std::string word = is_field ? Message(10105, "Flight ").text : Message(10106, "Heat ").text;
  return word + std::to_string(heat) + Message(10107, " of ").text + std::to_string(heats);
}
inline std::string WindText(std::string_view wind) {
  return Message(10108, "Wind: ").text + std::string(wind);
}
inline std::string ToDate(std::string_view from, std::string_view to) {
  return std::string(from) + Message(10109, " to ").text + std::string(to);
}
inline std::string JumpOffNote() {
  return Message(10110, "Jump Off").text;
}
inline std::string ScratchedHeading() {
  return Message(10111, "Scratched").text;
}
inline std::string MaleHeading() {
  return Message(10112, "Male").text;
}
inline std::string FemaleHeading() {
  return Message(10113, "Female").text;
}
inline std::string CombinedHeading() {
  return Message(10114, "Combined").text;
}
inline std::string ScratchedWord() {
  return Message(10115, "SCR").text;
}

// Column headings.
inline std::string PlaceColumn() {
  return Message(10120, "Pl").text;
}
inline std::string LaneColumn() {
  return Message(10121, "Ln").text;
}
inline std::string PositionColumn() {
  return Message(10122, "Pos").text;
}
inline std::string NumberColumn() {
  return Message(10123, "No").text;
}
inline std::string NameColumn() {
  return Message(10124, "Name").text;
}
inline std::string YearColumn() {
  return Message(10125, "Yr").text;
}
inline std::string AgeColumn() {
  return Message(10126, "Age").text;
}
inline std::string TeamColumn() {
  return Message(10127, "Team").text;
}
inline std::string SeedColumn() {
  return Message(10128, "Seed").text;
}
inline std::string ResultColumn() {
  return Message(10129, "Result").text;
}
inline std::string WindColumn() {
  return Message(10130, "Wind").text;
}
inline std::string HeatColumn() {
  return Message(10131, "Ht").text;
}
inline std::string FlightColumn() {
  return Message(10132, "Fl").text;
}
inline std::string PointsColumn() {
  return Message(10133, "Points").text;
}

// Notes, one line each.
inline std::string NotSeededNote() {
  return Message(10140, "Not seeded yet.").text;
}
inline std::string NoResultsNote() {
  return Message(10141, "No results yet.").text;
}
inline std::string NoEntriesNote() {
  return Message(10142, "No entries.").text;
}
inline std::string NothingToShowNote() {
  return Message(10143, "No event has anything to show yet.").text;
}
inline std::string EntryCountNote(int entries, bool is_relay) {
  if (entries == 1) return is_relay ? Message(10144, "1 relay").text : Message(10145, "1 entry").text;
  return std::to_string(entries) +
         (is_relay ? Message(10146, " relays").text : Message(10147, " entries").text);
}
inline std::string ScratchedCountNote(int scratched) {
  return std::to_string(scratched) + Message(10148, " scratched").text;
}
inline std::string ResultsMissingNote(int missing) {
  return Message(10149, "Still without a result: ").text + std::to_string(missing);
}

}  // namespace tarvex::reports
