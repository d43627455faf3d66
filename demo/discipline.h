#pragma once

#include <array>
#include <span>
#include <string_view>

// What athletes of both sexes and all ages do in each event of a meet.
namespace tarvex::demo {

// What an athlete trains for; the order of Discipline::affinity.
enum class Family { Sprints, Middle, Distance, Hurdles, Jumps, Throws };
inline constexpr size_t kFamilies = 6;

// Hundredths of a second or of a metre: what the best one in two hundred achieves, and the one in the middle.
// For 17-year-olds; TypicalMark() knows the other ages.
struct MarkRange {
  int best = 0;
  int median = 0;
};

struct Discipline {
  char kind = ' ';                           // kind letter of the event
  int distance = 0;                          // metres; relays: all legs; 0 in field events
  int runners = 1;                           // of a relay
  char sex = 'X';                            // 'M' or 'F' when only they do it
  std::string_view groups;                   // letters of the age groups that do it
  std::array<int, kFamilies> affinity = {};  // how likely an athlete of each family enters it
  MarkRange men, women;
  int minutes = 0;  // that a heat or flight takes

  bool is_relay() const { return runners > 1; }
  bool is_field() const { return distance == 0; }
};

// In the order of the meet's programme: track, then field.
std::span<const Discipline> Disciplines();

// The mark of an athlete in hundredths. `ability` in thousandths of a standard deviation, above 0 for the
// better half; `sex` 'M' or 'F'.
int TypicalMark(const Discipline& discipline, char sex, int age, int ability);

// A field mark lowered to what is measured: heights go up in steps.
int Measured(const Discipline& discipline, int hundredths);

}  // namespace tarvex::demo
