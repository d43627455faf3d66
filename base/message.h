#pragma once

#include <string>
#include <string_view>

namespace tarvex {

// A text for the user with its number, which is the key of its translation.
struct Notice {
  int number = 0;
  std::string text;

  bool operator==(const Notice&) const = default;
};

// The text of message `number`: `english` exactly as given, misspellings and last space included. Every text
// that a user can see passes through here. Numbers are unique and never reused. Texts
// that are the system's behaviour word for word have 2629 and 9001 to 9599, our own 9600 upward:
//   9001-9049 marks     9050-9149 database   9150-9249 setup      9250-9349 seeding
//   9350-9449 running   9450-9499 scoring
//   9600-9649 marks     9650-9749 database   9750-9849 setup      9850-9949 seeding
//   9950-10049 running  10050-10099 scoring  10100-10149 reports  10150-10249 cli
// A folder lists its messages in its own messages.h, one function or constant a text.
Notice Message(int number, std::string_view english);

// Several numbered pieces and inserted values that are shown as one text; the number of the whole is the
// first piece's.
Notice Joined(const Notice& first, std::string_view more);

}  // namespace tarvex
