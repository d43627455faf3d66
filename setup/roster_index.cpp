#include "setup/roster_index.h"

#include <algorithm>

#include "base/text.h"

namespace tarvex::setup {
namespace {

std::string Key(std::string_view name) {
  return Upper(Trim(name));
}

std::string Key(int team_no, std::string_view last, std::string_view first) {
  return std::to_string(team_no) + '\n' + Key(last) + '\n' + Key(first);
}

// In the order of the list.
template <class Map, class KeyType>
std::vector<size_t> AllOf(const Map& map, const KeyType& key) {
  std::vector<size_t> found;
  const auto [begin, end] = map.equal_range(key);
  for (auto i = begin; i != end; ++i) found.push_back(i->second);
  std::sort(found.begin(), found.end());
  return found;
}

}  // namespace

void RosterIndex::AddTeam(const Team& team, size_t at) {
  if (const std::string key = Key(team.abbr); !key.empty()) by_abbr_.emplace(key, at);
  if (const std::string key = Key(team.alt_abbr); !key.empty()) by_alt_abbr_.emplace(key, at);
  const std::string name = Key(team.name);
  const std::string short_name = Key(team.short_name);
  if (!name.empty()) by_team_name_.emplace(name, at);
  if (!short_name.empty() && short_name != name) by_team_name_.emplace(short_name, at);
}

void RosterIndex::AddAthlete(const Athlete& athlete, size_t at) {
  if (athlete.comp_no != 0) AddNumber(athlete.comp_no, at);
  by_athlete_name_.emplace(Key(athlete.team_no, athlete.last_name, athlete.first_name), at);
}

std::vector<size_t> RosterIndex::All(const Names& names, std::string_view name) {
  const std::string key = Key(name);
  return key.empty() ? std::vector<size_t>() : AllOf(names, key);
}

std::vector<size_t> RosterIndex::AthletesByNumber(int comp_no) const {
  return comp_no == 0 ? std::vector<size_t>() : AllOf(by_number_, comp_no);
}

std::vector<size_t> RosterIndex::AthletesByName(int team_no, std::string_view last,
                                                std::string_view first) const {
  return AllOf(by_athlete_name_, Key(team_no, last, first));
}

}  // namespace tarvex::setup
