#include "setup/import_rows.h"

#include <algorithm>
#include <charconv>
#include <variant>

#include "base/csv.h"
#include "base/decimal.h"
#include "base/text.h"
#include "database/date.h"
#include "setup/event_kind.h"
#include "setup/messages.h"
#include "setup/sex.h"

namespace tarvex::setup {
namespace {

using Column = ImportColumn;

constexpr std::array<std::string_view, kImportColumnCount> kImportColumns = {
    "event_no", "event_sex",  "distance",  "kind",       "rounds",    "last_name", "first_name",
    "ath_sex",  "birth_date", "age",       "schl_yr",    "comp_no",   "team_abbr", "team_name",
    "division", "seed_mark",  "seed_unit", "exhibition", "relay_ltr", "leg_1",     "leg_2",
    "leg_3",    "leg_4",      "leg_5",     "leg_6",      "leg_7",     "leg_8"};

constexpr int kOldest = 109;
constexpr int kMostRounds = 4;
constexpr int kLongestDistance = 999'999;

// Where each column stands in the file.
using Places = std::array<std::optional<size_t>, kImportColumnCount>;

// Reads the cells of one row and keeps its first fault.
class RowReader {
 public:
  RowReader(const CsvRow& cells, const Places& places, const ImportLengths& lengths, char meet_type)
      : cells_(cells), places_(places), lengths_(lengths), meet_type_(meet_type) {}

  std::variant<ImportRow, RowFault> Read() {
    ImportRow row;
    row.line = cells_.line;
    ReadEvent(row);
    ReadAthlete(row);
    ReadTeam(row);
    ReadEntry(row);
    CheckNeeded(row);
    if (fault_) return *fault_;
    return row;
  }

 private:
  std::string_view Cell(Column column) const {
    const std::optional<size_t> place = places_[static_cast<size_t>(column)];
    return place ? Trim(cells_.Cell(*place)) : std::string_view();
  }

  void Fail(Column column, Notice notice) {
    if (!fault_) fault_ = RowFault{column, std::move(notice)};
  }

  int Number(Column column, int low, int high) {
    const std::string_view cell = Cell(column);
    if (cell.empty()) return 0;
    int number = 0;
    const char* end = cell.data() + cell.size();
    const auto [stop, error] = std::from_chars(cell.data(), end, number);
    if (stop != end || error != std::errc() || number < low || number > high) {
      Fail(column, UnreadableValue(cell));
      return 0;
    }
    return number;
  }

  std::string TextOf(Column column, int most) {
    const std::string_view cell = Cell(column);
    if (FieldCharacters(cell) > most) Fail(column, ValueTooLong(most));
    return std::string(cell);
  }

  // One of a few letters, any case.
  char LetterOf(Column column, std::string_view letters) {
    const std::string cell = Upper(Cell(column));
    if (cell.empty()) return ' ';
    if (cell.size() == 1 && letters.find(cell[0]) != std::string_view::npos) return cell[0];
    Fail(column, UnreadableValue(Cell(column)));
    return ' ';
  }

  void ReadEvent(ImportRow& row) {
    if (const std::string_view cell = Cell(Column::EventNo); !cell.empty()) {
      const auto number = ReadEventNumber(cell);
      if (const Notice* wrong = std::get_if<Notice>(&number)) {
        Fail(Column::EventNo, *wrong);
      } else {
        row.event = std::get<EventNumber>(number);
      }
    }
    row.gender = GenderOf(LetterOf(Column::EventSex, "MFXBGW")).value_or(' ');
    row.distance = DistanceOf();
    if (const std::string_view cell = Cell(Column::Kind); !cell.empty()) {
      const std::optional<char> kind = FindKind(meet_type_, cell);
      if (!kind) Fail(Column::Kind, UnknownKind());
      row.kind = kind.value_or(' ');
    }
    row.rounds = Number(Column::Rounds, 1, kMostRounds);
  }

  float DistanceOf() {
    const std::string_view cell = Cell(Column::Distance);
    if (cell.empty()) return 0;
    const std::optional<Decimal> distance = Decimal::Parse(cell);
    if (!distance || distance->IsNegative() || *distance > Decimal(kLongestDistance)) {
      Fail(Column::Distance, UnreadableValue(cell));
      return 0;
    }
    return distance->ToSingle();
  }

  void ReadAthlete(ImportRow& row) {
    row.last_name = TextOf(Column::LastName, lengths_.last_name);
    row.first_name = TextOf(Column::FirstName, lengths_.first_name);
    row.ath_sex = GenderOf(LetterOf(Column::AthSex, "MFBGW")).value_or(' ');
    if (const std::string_view cell = Cell(Column::BirthDate); !cell.empty()) {
      const std::optional<double> date = database::ParseIso(cell);
      if (!date) Fail(Column::BirthDate, UnreadableValue(cell));
      row.birth_date = database::WholeDay(date.value_or(0));
    }
    row.age = Number(Column::Age, 0, kOldest);
    row.schl_yr = TextOf(Column::SchlYr, lengths_.schl_yr);
    row.comp_no = Number(Column::CompNo, 0, INT32_MAX);
  }

  void ReadTeam(ImportRow& row) {
    row.team_abbr = TextOf(Column::TeamAbbr, lengths_.team_abbr);
    row.team_name = TextOf(Column::TeamName, lengths_.team_name);
  }

  void ReadEntry(ImportRow& row) {
    row.division = std::string(Cell(Column::Division));
    row.seed_mark = std::string(Cell(Column::SeedMark));
    row.seed_unit = LetterOf(Column::SeedUnit, "ME");
    if (const std::string_view cell = Cell(Column::Exhibition); !cell.empty()) {
      const bool yes = SameText(cell, "yes") || SameText(cell, "y");
      if (!yes && !SameText(cell, "no") && !SameText(cell, "n"))
        Fail(Column::Exhibition, UnreadableValue(cell));
      row.exhibition = yes;
    }
    row.relay_ltr = Upper(Cell(Column::RelayLtr));
    if (row.is_relay() && (row.relay_ltr.size() != 1 || row.relay_ltr[0] < 'A' || row.relay_ltr[0] > 'Z')) {
      Fail(Column::RelayLtr, UnreadableValue(Cell(Column::RelayLtr)));
    }
    for (int leg = 0; leg < kMostLegs; ++leg) {
      const Column column = static_cast<Column>(static_cast<int>(Column::Leg1) + leg);
      row.legs[static_cast<size_t>(leg)] = std::string(Cell(column));
      if (!row.is_relay() && !Cell(column).empty()) Fail(column, LegWithoutRelay());
    }
  }

  void CheckNeeded(const ImportRow& row) {
    if (row.team_abbr.empty() && row.team_name.empty()) Fail(Column::TeamAbbr, ValueMissing());
    if (row.is_relay()) {
      const bool named = !row.last_name.empty() || !row.first_name.empty();
      if (named) Fail(row.last_name.empty() ? Column::FirstName : Column::LastName, NameInRelayRow());
    } else if (row.last_name.empty()) {
      Fail(Column::LastName, ValueMissing());
    }
    if (row.event) return;
    if (row.gender == ' ') Fail(Column::EventSex, ValueMissing());
    if (row.kind == ' ') Fail(Column::Kind, ValueMissing());
  }

  const CsvRow& cells_;
  const Places& places_;
  const ImportLengths& lengths_;
  char meet_type_;
  std::optional<RowFault> fault_;
};

// The columns of the header, or what is wrong with it.
std::variant<Places, Notice> PlacesOf(const CsvText& csv) {
  Places places;
  for (const std::string& name : csv.header) {
    const auto known = std::find_if(kImportColumns.begin(), kImportColumns.end(),
                                    [&](std::string_view column) { return SameText(column, name); });
    if (known == kImportColumns.end()) return UnknownImportColumn(name);
    places[static_cast<size_t>(known - kImportColumns.begin())] = csv.Column(name);
  }
  const auto has = [&](Column column) { return places[static_cast<size_t>(column)].has_value(); };
  if (!has(Column::TeamAbbr) && !has(Column::TeamName)) return ImportColumnMissing("team_abbr");
  if (!has(Column::LastName) && !has(Column::RelayLtr)) return ImportColumnMissing("last_name");
  if (!has(Column::EventNo) && !has(Column::EventSex)) return ImportColumnMissing("event_no");
  if (!has(Column::EventNo) && !has(Column::Kind)) return ImportColumnMissing("kind");
  return places;
}

// Spreadsheets leave rows of separators behind.
bool IsBlankRow(const CsvRow& row) {
  return std::all_of(row.cells.begin(), row.cells.end(),
                     [](const std::string& cell) { return Trim(cell).empty(); });
}

}  // namespace

int FieldCharacters(std::string_view text) {
  int count = 0;
  while (!text.empty()) {
    const std::optional<Character> first = FirstCharacter(text);
    // Fields are counted in units of two bytes, of which the rarest characters take two.
    count += first && first->code > 0xFFFF ? 2 : 1;
    text.remove_prefix(first ? first->bytes : 1);
  }
  return count;
}

std::string_view NameOf(ImportColumn column) {
  return kImportColumns[static_cast<size_t>(column)];
}

ImportFault FaultAt(int line, const RowFault& fault) {
  const std::string_view column = fault.column ? NameOf(*fault.column) : std::string_view();
  return {line, AtLine(line, column, fault.notice.text)};
}

ImportRows ReadImportRows(std::string_view text, const ImportLengths& lengths, char meet_type) {
  const CsvText csv = ReadCsv(text);
  ImportRows read;
  for (const CsvFault& fault : csv.faults)
    read.faults.push_back({fault.line, UnreadableRow(Describe(fault))});
  read.header_fault = csv.header.empty();
  if (read.header_fault) return read;
  const std::variant<Places, Notice> places = PlacesOf(csv);
  if (const Notice* wrong = std::get_if<Notice>(&places)) {
    read.header_fault = true;
    read.faults = {{1, AtLine(1, "", wrong->text)}};
    return read;
  }
  for (const CsvRow& cells : csv.rows) {
    if (IsBlankRow(cells)) continue;
    auto row = RowReader(cells, std::get<Places>(places), lengths, meet_type).Read();
    if (const RowFault* fault = std::get_if<RowFault>(&row)) {
      read.faults.push_back(FaultAt(cells.line, *fault));
    } else {
      read.rows.push_back(std::move(std::get<ImportRow>(row)));
    }
  }
  std::stable_sort(read.faults.begin(), read.faults.end(),
                   [](const ImportFault& a, const ImportFault& b) { return a.line < b.line; });
  return read;
}

}  // namespace tarvex::setup
