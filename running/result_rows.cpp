#include "running/result_rows.h"

#include <charconv>

#include "base/text.h"
#include "running/messages.h"

namespace tarvex::running {
namespace {

constexpr std::string_view kColumns[] = {"heat",      "lane",      "comp_no", "last_name", "first_name",
                                         "team_abbr", "relay_ltr", "mark",    "wind"};

std::optional<int> WholeNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < 0) return std::nullopt;
  return number;
}

class RowReader {
 public:
  RowReader(const CsvText& text, ResultRows& out) : text_(text), out_(out) {}

  bool CheckHeader() {
    for (const std::string& name : text_.header) {
      bool known = false;
      for (const std::string_view column : kColumns) known |= SameText(name, column);
      if (!known) out_.faults.push_back(ResultsFault(1, name, UnknownColumn()));
    }
    const auto has = [&](std::string_view name) { return text_.Column(name).has_value(); };
    const bool can_match = (has("heat") && has("lane")) || has("comp_no") ||
                           (has("last_name") && has("first_name")) || (has("team_abbr") && has("relay_ltr"));
    if (!can_match) out_.faults.push_back(ResultsFault(1, "", MatchColumnsMissing()));
    return out_.faults.empty();
  }

  void Read(const CsvRow& csv) {
    ResultRow row;
    row.line = csv.line;
    row.heat = Number(csv, "heat");
    row.lane = Text(csv, "lane");
    row.comp_no = Number(csv, "comp_no");
    if (row.comp_no == 0) row.comp_no.reset();  // nobody's number
    row.last_name = Text(csv, "last_name");
    row.first_name = Text(csv, "first_name");
    row.team_abbr = Text(csv, "team_abbr");
    row.relay_ltr = Text(csv, "relay_ltr");
    row.mark = Text(csv, "mark");
    row.wind = Text(csv, "wind");
    out_.rows.push_back(std::move(row));
  }

 private:
  std::string Text(const CsvRow& csv, std::string_view name) const {
    const auto column = text_.Column(name);
    return column ? std::string(Trim(csv.Cell(*column))) : std::string();
  }
  std::optional<int> Number(const CsvRow& csv, std::string_view name) {
    const std::string typed = Text(csv, name);
    if (typed.empty()) return std::nullopt;
    const auto number = WholeNumber(typed);
    if (!number) out_.faults.push_back(ResultsFault(csv.line, name, NotANumber(typed)));
    return number;
  }

  const CsvText& text_;
  ResultRows& out_;
};

bool SameEntrant(const ResultRow& row, const Entrant& entrant, std::optional<int> lane) {
  if (row.heat && lane) return entrant.heat == *row.heat && entrant.lane == *lane;
  if (row.comp_no) return entrant.comp_no == *row.comp_no;
  if (!row.last_name.empty()) {
    return SameText(entrant.last_name, row.last_name) && SameText(entrant.first_name, row.first_name) &&
           (row.team_abbr.empty() || SameText(entrant.team_abbr, row.team_abbr));
  }
  // A relay without a letter is its team's first.
  const std::string_view letter =
      row.relay_ltr.empty() ? std::string_view("A") : std::string_view(row.relay_ltr);
  return !row.team_abbr.empty() && !entrant.relay_ltr.empty() && SameText(entrant.team_abbr, row.team_abbr) &&
         SameText(entrant.relay_ltr, letter);
}

// Whether a row that was matched by heat and lane, or by number, names somebody else.
bool Contradicts(const ResultRow& row, const Entrant& entrant) {
  const auto differs = [](const std::string& given, const std::string& stored) {
    return !given.empty() && !stored.empty() && !SameText(given, stored);
  };
  return (row.comp_no && entrant.comp_no != 0 && *row.comp_no != entrant.comp_no) ||
         differs(row.last_name, entrant.last_name) || differs(row.first_name, entrant.first_name) ||
         differs(row.team_abbr, entrant.team_abbr) || differs(row.relay_ltr, entrant.relay_ltr);
}

}  // namespace

ResultRows ReadResultRows(std::string_view csv) {
  const CsvText text = ReadCsv(csv);
  ResultRows result;
  for (const CsvFault& fault : text.faults) result.faults.push_back(ResultsUnreadable(Describe(fault)));
  if (text.header.empty()) return result;
  RowReader reader(text, result);
  if (!reader.CheckHeader()) return result;
  for (const CsvRow& row : text.rows) reader.Read(row);
  return result;
}

std::variant<size_t, Notice> MatchRow(const ResultRow& row, std::span<const Entrant> entrants, char std_lanes,
                                      std::span<const setup::AlleyName> alleys) {
  std::optional<int> lane;
  if (row.heat && !row.lane.empty()) {
    lane = setup::ReadLane(row.lane, std_lanes, alleys);
    if (!lane) return MatchesNobody();
  }
  std::optional<size_t> found;
  for (size_t i = 0; i < entrants.size(); ++i) {
    if (!SameEntrant(row, entrants[i], lane)) continue;
    if (found) return MatchesSeveral();
    found = i;
  }
  if (!found) return MatchesNobody();
  const Entrant& entrant = entrants[*found];
  if (entrant.heat <= 0) return IsNotSeeded();
  if (entrant.scratched) return IsScratched();
  if (Contradicts(row, entrant)) return ContradictsTheEntry();
  return *found;
}

}  // namespace tarvex::running
