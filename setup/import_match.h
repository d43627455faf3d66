#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

#include "setup/import_plan.h"
#include "setup/roster_index.h"

namespace tarvex::setup {

// A value, or why the row is faulty.
template <class T>
using Match = std::variant<T, RowFault>;

// A row of the state, found at `at` or to be added; `row` is how it is to be.
template <class Row>
struct Choice {
  std::optional<size_t> at;
  Row row;
  bool changed = false;  // found, and something blank in it is filled
};
using TeamChoice = Choice<Team>;
using AthleteChoice = Choice<Athlete>;

// Finds the events of all rows and proposes those that the meet does not have.
class EventMatcher {
 public:
  EventMatcher(ImportState& state, const ImportContext& context) : state_(state), context_(context) {}

  // For each row the position of its event in state.events. Rows with a number come first, so that a row
  // without one finds an event that is numbered further down.
  std::vector<Match<size_t>> MatchAll(const std::vector<ImportRow>& rows);

 private:
  Match<size_t> MatchOne(const ImportRow& row);
  Match<size_t> ByDescription(const ImportRow& row);
  Match<size_t> Propose(const ImportRow& row, EventNumber number);
  std::optional<RowFault> Contradiction(const ImportRow& row, const Event& event) const;
  std::optional<RowFault> CheckProposed(const ImportRow& row, const Event& event) const;
  // Of the row's division, where events have divisions; 0: not given.
  int DivisionOf(const ImportRow& row) const;
  int FreeNumber();

  ImportState& state_;
  const ImportContext& context_;
  std::unordered_map<std::string, size_t> by_label_;
  std::vector<EventNumber> numbers_;
  int last_number_ = 0;
};

// Finds teams and athletes by what a row says. Changes nothing: what it chooses is stored with Keep.
class RosterMatcher {
 public:
  RosterMatcher(ImportState& state, const ImportContext& context);

  Match<TeamChoice> TeamOf(const ImportRow& row) const;
  Match<AthleteChoice> AthleteOf(const ImportRow& row, const TeamChoice& team, const Event& event) const;
  // A runner as a relay's row names him, "Last, First" or a competitor number.
  Match<AthleteChoice> RunnerOf(std::string_view typed, ImportColumn column, const TeamChoice& team,
                                const Event& event) const;

  // Stores a choice and gives its number. A new team or athlete gets one below 0.
  int Keep(TeamChoice& choice);
  int Keep(AthleteChoice& choice, int team_no);

 private:
  std::optional<size_t> NumberOwner(int comp_no, char sex) const;
  std::vector<size_t> Namesakes(const ImportRow& row, int team_no, char sex) const;
  Match<AthleteChoice> Found(const ImportRow& row, size_t at) const;
  Match<AthleteChoice> Made(const ImportRow& row, char sex) const;
  Match<TeamChoice> FoundTeam(const ImportRow& row, size_t at) const;
  Match<TeamChoice> MadeTeam(const ImportRow& row) const;
  std::string ProposedAbbr(std::string_view name) const;

  ImportState& state_;
  const ImportContext& context_;
  RosterIndex index_;
};

// The division of a code; null when there is none.
const DatedDivision* FindDivision(const std::vector<DatedDivision>& divisions, std::string_view code);
const DatedDivision* FindDivision(const std::vector<DatedDivision>& divisions, int div_no);

}  // namespace tarvex::setup
