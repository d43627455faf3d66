#pragma once

namespace tarvex::marks {

// What the mark procedures take from the meet's and the program's settings.
struct MarkSettings {
  char decimal_separator = '.';     // or ','
  bool check_ranges = false;        // ask about marks out of the plausible range
  bool convert_hand_times = false;  // hand times are adjusted to fully automatic timing
  int hand_rule = 1;                // 1 to 3: + 0.24 at every distance; others: by distance. The meet's class
  int meet_class = 1;               // 1 High School, 2 College, 3 USATF, 4 IAAF, 5 Masters/Veterans, 6 Other
  bool even_centimetre = false;     // long throws are measured to the even centimetre below
  bool whole_inch = false;          // long throws are shown in whole inches
  bool short_attempt_form = false;  // "X" and "-" for a foul and a pass may be shown
  bool thousandths = false;         // track races are timed to the thousandth
  bool round_to_tenths = false;     // running results are shown to the tenth
  char meet_type = 'T';             // 'T' track and field, 'S', 'L', 'W'
  bool suppress_x = false;          // no "X" before exhibition results
  bool suppress_small_x = false;    // no "x" before exhibition seed marks
};

// The meet type letter of the meet's kind, 1 to 4; 'T' for any other number.
constexpr char MeetTypeLetter(int meet_kind) {
  switch (meet_kind) {
    case 2:
      return 'S';
    case 3:
      return 'L';
    case 4:
      return 'W';
    default:
      return 'T';
  }
}

}  // namespace tarvex::marks
