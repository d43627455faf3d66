#pragma once

#include <string>
#include <string_view>

#include "base/message.h"

// Every text of this folder, with its number. Texts with a value inside are made of numbered pieces.
namespace tarvex::database {

// A value in front of a numbered piece.
inline Notice Following(std::string_view value, const Notice& piece) {
  return {piece.number, std::string(value) + piece.text};
}

// Status line.
inline Notice OpeningDatabase() {
  return Message(9050, "Opening Database...");
}
inline Notice OneMoment() {
  return Message(9051, "One Moment...");
}
inline Notice CreatingDatabase() {
  return Message(9052, "Creating Database...");
}
inline Notice CheckingDatabase() {
  return Message(9053, "Checking Database...");
}
inline Notice CheckingVersion() {
  return Message(9054, "Checking Version...");
}
inline Notice CheckingIntegrity() {
  return Message(9055, "Checking Database Integrity...");
}
inline Notice CheckingAthletes() {
  return Message(9056, "Checking Athlete Table...");
}
inline Notice CheckingTeams() {
  return Message(9057, "Checking Team Table...");
}

// Choosing a file.
inline Notice NotFromDriveAOrB() {
  return Message(9060, "Opening a Tarvex database from the A or B drive is not permitted !");
}
inline Notice InvalidExtension(std::string_view path) {
  return Joined(Message(9061, "Cannot Open "),
                std::string(path) + Message(9062, ", Invalid File Extension").text);
}

// Creating: follows the engine's description.
inline Notice CannotCreate(std::string_view description) {
  return Following(std::string(description) + "; ", Message(9063, "Can't create database"));
}

// Opening.
inline Notice NotAMeetDatabase(std::string_view path) {
  return Following(path, Message(9064, " is not a KORVEL Track & Field TARVEX Database !"));
}
inline Notice OpenedExclusivelyByAnother(std::string_view path) {
  return Following(path, Message(9065, " Database already opened exclusively by another user."));
}
inline Notice OpenedByAnother(std::string_view path) {
  return Following(path, Message(9066,
                                 " Database cannot be opened exclusively because it is already opened by "
                                 "another user."));
}
inline Notice MayBeReadOnly(std::string_view description, std::string_view path) {
  return Joined(Message(9067, "The database may be set to Read-Only."),
                "\n" + std::string(description) + "\n" + std::string(path));
}
// The engine's description alone.
inline Notice DiskFailure(std::string_view description) {
  return Message(9068, description);
}
inline Notice OpeningError(std::string_view description, bool picked_in_dialog) {
  return Joined(
      Message(9069, "Error: "),
      std::string(description) + "\n" +
          (picked_in_dialog ? " " + Message(9070, "Error opening selected file !").text : std::string()));
}

// Meet settings.
inline Notice AgeUpDateTooOld() {
  return Message(2629, "Meet age-up date is too old !");
}

// Our own.
inline Notice FileExists(std::string_view path) {
  return Joined(Message(9650, "There is already a file "), std::string(path));
}
inline Notice UnknownField(std::string_view table, std::string_view field) {
  return Joined(Message(9651, "There is no field "),
                std::string(field) + Message(9652, " in the table ").text + std::string(table));
}
inline Notice FieldNamedTwice(std::string_view field) {
  return Following(field, Message(9653, " is given twice"));
}
// Follow the field's name and ": ".
inline Notice NotYesOrNo() {
  return Message(9654, "please give yes or no");
}
inline Notice NotAWholeNumber(std::string_view low, std::string_view high) {
  return Joined(Message(9655, "please give a whole number from "),
                std::string(low) + Message(9656, " to ").text + std::string(high));
}
inline Notice NotANumber() {
  return Message(9657, "please give a number, with a point before its decimals");
}
inline Notice NotAnAmount() {
  return Message(9658, "please give an amount of at most four decimals");
}
inline Notice NotADate() {
  return Message(9659, "please give a date as year-month-day, such as 2024-05-10");
}
inline Notice TextTooLong(int most) {
  return Joined(Message(9660, "the text is too long; the most is "),
                std::to_string(most) + Message(9661, " characters").text);
}
inline Notice TextNotUnicode() {
  return Message(9662, "the text is not UTF-8");
}
inline Notice NumberedByTheProgram() {
  return Message(9663, "the program numbers this field itself");
}
inline Notice CannotBeGivenAsText() {
  return Message(9664, "this kind of field cannot be given as text");
}

}  // namespace tarvex::database
