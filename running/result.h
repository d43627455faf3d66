#pragma once

#include <compare>

namespace tarvex::running {

// Results are placed and scored only against those of the same group; both 0 where the event is one field.
struct Group {
  int division = 0;
  int age_group = 0;  // number of the age group, from 1

  auto operator<=>(const Group&) const = default;
};

// One entry or relay in the round that is run.
struct Result {
  int id = 0;  // ath_no, or relay_no of a relay
  int team_no = 0;
  char team_ltr = ' ';  // of a relay
  Group group;
  int points_division = 0;  // division and sex under which it reads the points table
  char points_sex = 'M';

  bool scratched = false;
  bool exhibition = false;         // by its own mark, its athlete, its team, or as a foreign athlete
  bool foreign = false;            // foreign athlete
  bool time_trial = false;         // runs along, but is neither placed nor scored
  bool short_of_standard = false;  // the meet scores only results that meet a standard, and this one does not

  int heat = 0;
  int lane = 0;
  float mark = 0;   // seconds, or the distance in the event's unit; 0: none
  char stat = ' ';  // ' ' for a valid mark, else the status letter

  int heatplace = 0;  // computed, 0: none
  int place = 0;
  int jdheatplace = 0;  // the judges', 0: none
  int jdplace = 0;
  int ptsplace = 0;  // the place by which points are read; 0: scores nothing

  float ev_score = 0;
  float jdev_score = 0;  // 0: no decision; -1: no points; else the points
};

// The judges' place where there is one. It moves nobody else.
constexpr int EffectivePlace(const Result& result) {
  return result.jdplace > 0 ? result.jdplace : result.place;
}
constexpr int EffectiveHeatPlace(const Result& result) {
  return result.jdheatplace > 0 ? result.jdheatplace : result.heatplace;
}

// A mark that counts; an exhibition mark too.
constexpr bool HasValidMark(const Result& result) {
  return result.mark > 0 && (result.stat == ' ' || result.stat == 'X') && !result.scratched;
}

// Whether the clerk is done with it: a mark or a status letter.
constexpr bool HasResult(const Result& result) {
  return result.mark > 0 || result.stat != ' ';
}

}  // namespace tarvex::running
