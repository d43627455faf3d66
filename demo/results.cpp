#include "demo/results.h"

#include <fmt/format.h>

#include <cstdlib>
#include <map>
#include <set>
#include <string>

#include "base/decimal.h"
#include "demo/seed.h"
#include "marks/hand_time.h"
#include "marks/kinds.h"
#include "marks/status.h"

namespace tarvex::demo {
namespace {

// In a thousand.
constexpr int kDidNotStart = 40, kDisqualified = 6, kRelayDisqualified = 20, kFalseStart = 4;
constexpr int kLongRaceNotFinished = 14, kRaceNotFinished = 4;
constexpr int kNoHeight = 70, kNoLegalTrial = 30;
constexpr int kHandTimedHeat = 12;

constexpr int kLongRace = 800;  // metres

bool IsWindMeasured(const Discipline& discipline) {
  constexpr int kHalfLap = 200;
  if (discipline.is_relay()) return false;
  return discipline.is_field() ? marks::IsHorizontalJump(discipline.kind) : discipline.distance <= kHalfLap;
}

// In tenths of a metre a second, mostly legal.
int InventWind(Chance& chance) {
  return chance.Normal() * 11 / 1000 + 4;
}

std::string WindText(int tenths) {
  return fmt::format("{}{}.{}", tenths < 0 ? '-' : '+', std::abs(tenths) / 10, std::abs(tenths) % 10);
}

char InventStatus(const Discipline& discipline, Chance& chance) {
  if (chance.PerMille(kDidNotStart)) return marks::kDidNotStart;
  if (marks::IsVerticalJump(discipline.kind))
    return chance.PerMille(kNoHeight) ? marks::kNoMark : marks::kValid;
  if (discipline.is_field()) return chance.PerMille(kNoLegalTrial) ? marks::kFoul : marks::kValid;
  if (chance.PerMille(discipline.is_relay() ? kRelayDisqualified : kDisqualified))
    return marks::kDisqualified;
  const bool is_long = discipline.distance >= kLongRace;
  if (chance.PerMille(is_long ? kLongRaceNotFinished : kRaceNotFinished)) return marks::kDidNotFinish;
  return !is_long && chance.PerMille(kFalseStart) ? marks::kFoul : marks::kValid;
}

// Season's bests are not repeated every day: races are about half a percent slower, trials two percent
// shorter. `wind` in tenths of a metre a second.
int InventMark(const Discipline& discipline, int potential, int wind, Chance& chance) {
  constexpr int64_t kUnit = 100000;
  const int64_t normal = chance.Normal();
  if (discipline.is_field()) {
    const int64_t mark = potential + potential * (normal * 35 / 10 - 2000) / kUnit;
    return Measured(discipline, static_cast<int>(mark));
  }
  const int64_t mark = potential + potential * (normal * 9 / 10 + 500) / kUnit;
  return static_cast<int>(mark) - wind / 2;
}

class Inventing {
 public:
  Inventing(const Discipline& discipline, const Potentials& potentials, const marks::MarkSettings& settings,
            running::RoundData& data, Chance& chance)
      : discipline_(discipline), potentials_(potentials), settings_(settings), data_(data), chance_(chance) {}

  std::vector<running::HeatWind> Do() {
    InventHeats();
    for (running::RoundRow& row : data_.rows) {
      if (row.heat > 0 && !row.scratched) Fill(row);
    }
    std::vector<running::HeatWind> winds;
    for (const auto& [heat, wind] : winds_) winds.push_back({heat, WindText(wind)});
    return winds;
  }

 private:
  void InventHeats() {
    std::set<int> heats;
    for (const running::RoundRow& row : data_.rows) {
      if (row.heat > 0) heats.insert(row.heat);
    }
    if (discipline_.is_field()) return;
    for (const int heat : heats) {
      if (IsWindMeasured(discipline_)) winds_[heat] = InventWind(chance_);
      if (chance_.PerMille(kHandTimedHeat)) hand_timed_.insert(heat);
    }
  }

  void Fill(running::RoundRow& row) {
    row.stat = InventStatus(discipline_, chance_);
    row.course = data_.event.row.res_meas;
    const auto heat_wind = winds_.find(row.heat);
    int wind = heat_wind == winds_.end() ? 0 : heat_wind->second;
    if (heat_wind != winds_.end()) row.wind = WindText(wind);
    if (row.stat != marks::kValid) return;
    if (discipline_.is_field() && IsWindMeasured(discipline_)) {
      wind = InventWind(chance_);
      row.wind = WindText(wind);
    }
    const int mark = InventMark(discipline_, potentials_.at(row.id), wind, chance_);
    row.hand = hand_timed_.contains(row.heat);
    const float value = Decimal::Of(row.hand ? ByHand(mark) : mark, 2).ToSingle();
    const setup::Event& event = data_.event.row;
    row.mark = marks::HandToFat(value, event.event_dist, event.event_stroke, row.hand, settings_);
  }

  const Discipline& discipline_;
  const Potentials& potentials_;
  const marks::MarkSettings& settings_;
  running::RoundData& data_;
  Chance& chance_;
  std::map<int, int> winds_;  // of heats, tenths of a metre a second
  std::set<int> hand_timed_;
};

}  // namespace

std::vector<running::HeatWind> InventResults(const Discipline& discipline, const Potentials& potentials,
                                             const marks::MarkSettings& settings, running::RoundData& data,
                                             Chance& chance) {
  return Inventing(discipline, potentials, settings, data, chance).Do();
}

}  // namespace tarvex::demo
