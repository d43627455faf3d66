#pragma once

#include <vector>

#include "database/meet.h"

namespace tarvex::running {

// A mark that a result must reach to score.
struct Standard {
  char gender = ' ';  // 'M', 'F'; ' ' or 'X' for both
  int low_age = 0;
  int high_age = 109;
  float mark = 0;
};

// The scoring standards of one event.
struct Standards {
  std::vector<Standard> standards;

  // Whether a mark meets the easiest standard that fits sex and age; equal counts as met. Where none fits,
  // nothing is asked for.
  bool IsMet(float mark, char sex, int age, bool greater_is_better) const;
};

// The standards of those tags that are used for scoring.
Expected<Standards> LoadScoringStandards(const database::Meet& meet, int event_ptr);

}  // namespace tarvex::running
