#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "setup/roster.h"

namespace tarvex::setup {

// Teams and athletes by what people call them: trimmed and regardless of case. Gives positions in the lists
// that its owner keeps, of which several may have the same name or, where men and women are numbered apart,
// number.
class RosterIndex {
 public:
  void AddTeam(const Team& team, size_t at);
  void AddAthlete(const Athlete& athlete, size_t at);
  // When a number was given to an athlete that is indexed already.
  void AddNumber(int comp_no, size_t at) { by_number_.emplace(comp_no, at); }

  std::vector<size_t> TeamsByAbbr(std::string_view abbr) const { return All(by_abbr_, abbr); }
  std::vector<size_t> TeamsByAlternateAbbr(std::string_view abbr) const { return All(by_alt_abbr_, abbr); }
  // By the name or the short name.
  std::vector<size_t> TeamsByName(std::string_view name) const { return All(by_team_name_, name); }
  std::vector<size_t> AthletesByNumber(int comp_no) const;
  std::vector<size_t> AthletesByName(int team_no, std::string_view last, std::string_view first) const;

 private:
  using Names = std::unordered_multimap<std::string, size_t>;
  static std::vector<size_t> All(const Names& names, std::string_view name);

  Names by_abbr_, by_alt_abbr_, by_team_name_, by_athlete_name_;
  std::unordered_multimap<int, size_t> by_number_;
};

}  // namespace tarvex::setup
