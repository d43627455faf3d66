#pragma once

#include <span>

#include "running/result.h"

namespace tarvex::running {

// How marks are compared, and which results take places.
struct PlaceRules {
  bool field = false;         // the greater mark is the better one; also combined points
  char unit = 'M';            // of field marks: 'M' metres, 'E' inches
  char kind = ' ';            // kind letter
  bool whole_inches = false;  // long throws are measured down to the whole inch
  bool last_round = true;
  bool rank_exhibition = false;      // exhibition_getfinalsrank: acts in the last round
  bool exhibition_in_final = false;  // exh_infinal: acts in the rounds before
};

// A mark as it is compared: times as they are, English field marks cut down to what they show (255.55 and
// 255.6 inches are both 21-03.50).
float ComparedMark(float mark, const PlaceRules& rules);

// Whether the result takes a heat place and a place.
bool TakesPlace(const Result& result, const PlaceRules& rules);

// Writes heatplace and place of every result: 1, 2, 2, 4, and 0 for those that take none. Heat places are per
// heat, places per group. The order of the results and the judges' places stay.
void PlaceResults(std::span<Result> results, const PlaceRules& rules);

// Every entry that was seeded and not scratched since has a mark or a status.
bool IsRoundComplete(std::span<const Result> results);

}  // namespace tarvex::running
