#include "demo/discipline.h"

#include <algorithm>
#include <cstdint>

#include "marks/kinds.h"

namespace tarvex::demo {
namespace {

// Age groups: S schools; A 11-12, B 13-14, C 15-16, D 17-18, E 19 and over.
constexpr Discipline kDisciplines[] = {
    {'B', 5000, 1, 'X', "SCDE", {0, 1, 7, 0, 0, 0}, {90000, 103500}, {106000, 126000}, 20},
    {'E', 80, 1, 'X', "AB", {2, 0, 0, 9, 3, 0}, {1030, 1190}, {1080, 1270}, 3},
    {'E', 100, 1, 'F', "SCDE", {1, 0, 0, 9, 2, 0}, {}, {1430, 1720}, 3},
    {'E', 110, 1, 'M', "SCDE", {1, 0, 0, 9, 2, 0}, {1430, 1700}, {}, 3},
    {'A', 100, 1, 'X', "SABCDE", {9, 0, 0, 3, 4, 1}, {1070, 1180}, {1200, 1340}, 2},
    {'B', 1500, 1, 'X', "SABCDE", {0, 7, 7, 0, 0, 0}, {23500, 26800}, {27500, 32500}, 7},
    {'A', 400, 1, 'X', "SABCDE", {6, 5, 0, 3, 1, 0}, {4800, 5400}, {5550, 6400}, 3},
    {'H', 2000, 1, 'X', "SBCDE", {0, 2, 4, 0, 0, 0}, {36000, 41000}, {43000, 50000}, 10},
    {'B', 800, 1, 'X', "SABCDE", {1, 8, 4, 0, 0, 0}, {11300, 12700}, {13200, 15300}, 4},
    {'E', 200, 1, 'X', "AB", {1, 2, 0, 8, 1, 0}, {2520, 2880}, {2830, 3320}, 3},
    {'E', 300, 1, 'X', "S", {1, 1, 0, 8, 1, 0}, {3850, 4350}, {4450, 5150}, 3},
    {'E', 400, 1, 'X', "CDE", {1, 1, 0, 8, 1, 0}, {5400, 6150}, {6200, 7250}, 3},
    {'A', 200, 1, 'X', "SABCDE", {9, 1, 0, 3, 3, 1}, {2160, 2400}, {2440, 2780}, 2},
    {'B', 3000, 1, 'X', "SABCDE", {0, 3, 8, 0, 0, 0}, {51000, 59000}, {60000, 71500}, 12},
    {'W', 400, 4, 'X', "SABCDE", {9, 1, 0, 6, 4, 0}, {4250, 4650}, {4880, 5350}, 4},
    {'W', 3200, 4, 'X', "BCDE", {1, 9, 6, 1, 0, 0}, {47500, 53000}, {56500, 64000}, 11},
    {'W', 1600, 4, 'X', "SABCDE", {6, 7, 2, 5, 1, 0}, {20000, 22000}, {23600, 26800}, 6},
    {'K', 0, 1, 'X', "SABCDE", {0, 0, 0, 3, 8, 0}, {206, 176}, {170, 146}, 75},
    {'L', 0, 1, 'X', "SABCDE", {0, 0, 0, 1, 5, 0}, {450, 330}, {350, 250}, 75},
    {'M', 0, 1, 'X', "SABCDE", {3, 0, 0, 2, 8, 0}, {705, 598}, {575, 476}, 45},
    {'N', 0, 1, 'X', "SABCDE", {1, 0, 0, 1, 6, 0}, {1430, 1225}, {1185, 1005}, 45},
    {'R', 0, 1, 'X', "SABCDE", {0, 0, 0, 0, 0, 9}, {1620, 1190}, {1300, 935}, 40},
    {'O', 0, 1, 'X', "SABCDE", {0, 0, 0, 0, 0, 8}, {4800, 3300}, {4000, 2600}, 45},
    {'Q', 0, 1, 'X', "SABCDE", {0, 0, 0, 0, 1, 6}, {5800, 4000}, {4200, 2800}, 45},
    {'P', 0, 1, 'X', "SBCDE", {0, 0, 0, 0, 0, 5}, {5500, 3600}, {4800, 3000}, 45},
};

// Shares of the 17-year-olds' times and distances, in thousandths.
struct AgeFactor {
  int age, time, distance;
};
constexpr AgeFactor kAgeFactors[] = {{11, 1210, 560}, {12, 1160, 640}, {13, 1115, 740},  {14, 1070, 850},
                                     {15, 1035, 930}, {16, 1015, 970}, {17, 1000, 1000}, {18, 990, 1030},
                                     {19, 975, 1070}, {30, 990, 1050}, {36, 1010, 1020}};

constexpr int kBestAbility = 2600;  // one in two hundred
constexpr int kGreatest = 3000, kLeast = -2800;

const AgeFactor& FactorOf(int age) {
  const AgeFactor* found = &kAgeFactors[0];
  for (const AgeFactor& factor : kAgeFactors) {
    if (factor.age <= age) found = &factor;
  }
  return *found;
}

// Girls are nearer to their adult marks than boys of the same age, and the bar nearer to anybody's than the
// throws.
int64_t Softened(int64_t factor, char sex, char kind) {
  int64_t off = factor - 1000;
  if (sex == 'F') off = off * 2 / 3;
  if (marks::IsVerticalJump(kind) || marks::IsHorizontalJump(kind)) off = off * 2 / 3;
  return 1000 + off;
}

}  // namespace

std::span<const Discipline> Disciplines() {
  return kDisciplines;
}

int TypicalMark(const Discipline& discipline, char sex, int age, int ability) {
  const MarkRange& range = sex == 'F' ? discipline.women : discipline.men;
  const int64_t z = std::clamp(ability, kLeast, kGreatest);
  int64_t mark = range.median + (range.best - range.median) * z / kBestAbility;
  // The slow half of a race trails off further than the fast half leads.
  if (!discipline.is_field() && z < 0) mark += (range.best - range.median) * z / (kBestAbility * 4);
  const AgeFactor& factor = FactorOf(age);
  const int64_t share = discipline.is_field() ? factor.distance : factor.time;
  return static_cast<int>(mark * Softened(share, sex, discipline.kind) / 1000);
}

int Measured(const Discipline& discipline, int hundredths) {
  constexpr int kHighJumpStep = 5, kPoleVaultStep = 10;
  if (discipline.kind == 'K') return hundredths - hundredths % kHighJumpStep;
  if (discipline.kind == 'L') return hundredths - hundredths % kPoleVaultStep;
  return hundredths;
}

}  // namespace tarvex::demo
