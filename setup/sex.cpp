#include "setup/sex.h"

namespace tarvex::setup {
namespace {

constexpr int kHighSchool = 1;
constexpr int kOldestBoyOrGirl = 18;

}  // namespace

std::optional<char> GenderOf(char letter) {
  switch (letter) {
    case 'M':
    case 'm':
    case 'B':
    case 'b':
      return 'M';
    case 'F':
    case 'f':
    case 'W':
    case 'w':
    case 'G':
    case 'g':
      return 'F';
    case 'X':
    case 'x':
      return 'X';
    default:
      return std::nullopt;
  }
}

std::string_view SexWord(char event_sex) {
  switch (event_sex) {
    case 'B':
      return "Boys";
    case 'G':
      return "Girls";
    case 'M':
      return "Men";
    case 'W':
    case 'F':
      return "Women";
    case 'X':
      return "Mixed";
    default:
      return "";
  }
}

char ProposedSex(char gender, int meet_class, int high_age) {
  if (gender == 'X') return 'X';
  const bool young = meet_class == kHighSchool || high_age <= kOldestBoyOrGirl;
  if (gender == 'F') return young ? 'G' : 'W';
  return young ? 'B' : 'M';
}

}  // namespace tarvex::setup
