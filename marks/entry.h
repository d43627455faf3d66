#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/message.h"
#include "base/user_interface.h"
#include "marks/status.h"

// What typing a mark came to; the same for times and field marks.
namespace tarvex::marks {

struct MarkEntry {
  float value = 0;       // seconds, metres or inches; 0: no mark
  char status = kValid;  // see status.h
  bool hand = false;     // a time, typed with "H": stopped by hand
  bool video = false;    // a time, typed with "A": read from a video
  // Whether the mark may be stored. When not, `message` says why, or a range question was not answered Yes.
  bool accepted = true;
  bool unanswered = false;  // nobody was there to answer the range question
  std::optional<Notice> message;
  // The question to be answered with Yes before the mark is stored, from the Read functions; the Parse
  // functions have put it already and leave it here for reference.
  std::optional<Notice> range_question;
};

// Not accepted, for this reason.
MarkEntry Refused(Notice message);
// Not accepted: the text as typed, followed by " meaning unclear, re-enter, please !".
MarkEntry Unclear(std::string_view typed);
// A word such as DNF that stands for a status; no mark.
MarkEntry StatusOnly(char status);

// Finishes an entry before the person: shows its message when `show_message`, or else puts its range
// question.
MarkEntry Settle(MarkEntry entry, bool show_message, UserInterface& user);

// The status that a word stands for, in any event: NT, N; NS, DNS, S, *; SC, SCR, R; Q, DQ; DN, DNF, D. Empty
// for any other text. `word` in capitals, without blanks.
std::optional<char> StatusWord(std::string_view word);

// Takes the "X" of an exhibition mark off the front of a longer text; true when it did.
bool TakeExhibition(std::string& text);

// `text` with two characters behind its separator: one digit gets a "0", nothing (or a character that is no
// digit) gets "00", and a text without a separator stays. Empty when three or more stand there already.
std::optional<std::string> FillHundredths(std::string text, char separator);

}  // namespace tarvex::marks
