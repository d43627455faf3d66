#include "demo/chance.h"

namespace tarvex::demo {

int Chance::Normal() {
  // Twelve even draws from 0 to 1 have the variance 1 and the mean 6.
  int sum = -6000;
  for (int i = 0; i < 12; ++i) sum += Below(1001);
  return sum;
}

}  // namespace tarvex::demo
