#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/csv.h"
#include "base/message.h"
#include "running/round_store.h"
#include "setup/lane_text.h"

namespace tarvex::running {

// A row of a results file. Empty cells are empty here.
struct ResultRow {
  int line = 0;
  std::optional<int> heat;
  std::string lane;
  std::optional<int> comp_no;
  std::string last_name, first_name, team_abbr, relay_ltr;
  std::string mark;  // as typed
  std::string wind;
};

struct ResultRows {
  std::vector<ResultRow> rows;
  std::vector<Notice> faults;  // each with its line and column
};

// Reads a results file. A file whose header is wrong has faults and no rows.
ResultRows ReadResultRows(std::string_view csv);

// By what an entry or relay of the round is found.
struct Entrant {
  int heat = 0;
  int lane = 0;
  int comp_no = 0;
  std::string last_name, first_name, team_abbr, relay_ltr;
  bool scratched = false;
};

// The position of the one entrant that a row means, or why there is none.
std::variant<size_t, Notice> MatchRow(const ResultRow& row, std::span<const Entrant> entrants, char std_lanes,
                                      std::span<const setup::AlleyName> alleys);

}  // namespace tarvex::running
