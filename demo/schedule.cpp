#include "demo/schedule.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace tarvex::demo {
namespace {

constexpr int kMinute = 60, kHour = 3600;
constexpr int kFirstStart = 9 * kHour, kNoon = 12 * kHour + 30 * kMinute, kEvening = 21 * kHour;
constexpr int kSlot = 5 * kMinute;  // starts are on a multiple of it
constexpr std::string_view kDays[] = {"Saturday",  "Sunday",   "Monday", "Tuesday",
                                      "Wednesday", "Thursday", "Friday"};

// Where an event is held: one place for the track, one for each kind of field event.
char PlaceOf(const Discipline& discipline) {
  return discipline.is_field() ? discipline.kind : 'T';
}

int DurationOf(const PlannedEvent& event, int entrants) {
  const int per_heat = event.row.num_finlanes;
  const int heats = std::max(1, (entrants + per_heat - 1) / per_heat);
  return (heats * event.discipline->minutes * kMinute + kSlot - 1) / kSlot * kSlot;
}

struct Free {
  int day = 1;
  int from_s = kFirstStart;
};

}  // namespace

std::vector<MadeSession> ScheduleMeet(const std::vector<PlannedEvent>& events,
                                      const std::vector<int>& entrants) {
  std::map<char, Free> places;
  std::map<std::pair<int, bool>, MadeSession> sessions;  // by day and half
  for (size_t i = 0; i < events.size(); ++i) {
    Free& free = places[PlaceOf(*events[i].discipline)];
    const int duration = DurationOf(events[i], entrants[i]);
    if (free.from_s + duration > kEvening && free.from_s > kFirstStart) free = {free.day + 1, kFirstStart};
    const bool afternoon = free.from_s >= kNoon;
    MadeSession& session = sessions[{free.day, afternoon}];
    session.day = free.day;
    session.name = kDays[static_cast<size_t>(free.day - 1) % std::size(kDays)];
    session.name += afternoon ? " Afternoon" : " Morning";
    session.events.push_back({i, free.from_s});
    free.from_s += duration;
  }
  std::vector<MadeSession> sorted;
  for (auto& [key, session] : sessions) {
    std::stable_sort(session.events.begin(), session.events.end(),
                     [](const auto& a, const auto& b) { return a.start_s < b.start_s; });
    sorted.push_back(std::move(session));
  }
  return sorted;
}

}  // namespace tarvex::demo
