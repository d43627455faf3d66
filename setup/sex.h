#pragma once

#include <optional>
#include <string_view>

namespace tarvex::setup {

// 'M', 'F' or 'X' (mixed) from a stored letter: M and B are male; F, W and G female; X mixed. Any case.
// Empty for any other letter.
std::optional<char> GenderOf(char letter);

// The word of an event's name: "Boys", "Girls", "Men", "Women", "Mixed"; empty for any other letter.
std::string_view SexWord(char event_sex);

// Which word a new event of a gender ('M', 'F', 'X') takes: 'B' and 'G' in high-school meets and wherever
// nobody is older than 18, else 'M' and 'W'; 'X' stays.
char ProposedSex(char gender, int meet_class, int high_age);

// Whether an athlete or relay of `sex` ('M', 'F', 'X') may take part in an event of `gender`.
constexpr bool FitsGender(char sex, char gender) {
  return gender == 'X' || sex == gender;
}

}  // namespace tarvex::setup
