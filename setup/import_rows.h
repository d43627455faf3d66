#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/message.h"
#include "setup/event_checks.h"

// A file of entries, one row an entry, read cell by cell; nothing here knows what the meet holds.
namespace tarvex::setup {

inline constexpr int kMostLegs = 8;

// The columns of the file, named as in kImportColumns.
enum class ImportColumn {
  EventNo,
  EventSex,
  Distance,
  Kind,
  Rounds,
  LastName,
  FirstName,
  AthSex,
  BirthDate,
  Age,
  SchlYr,
  CompNo,
  TeamAbbr,
  TeamName,
  Division,
  SeedMark,
  SeedUnit,
  Exhibition,
  RelayLtr,
  Leg1,
  Leg8 = Leg1 + kMostLegs - 1,
};
inline constexpr int kImportColumnCount = static_cast<int>(ImportColumn::Leg8) + 1;

// "event_no" ... "leg_8".
std::string_view NameOf(ImportColumn column);

// What is wrong with a row; without a column it is about the row as a whole.
struct RowFault {
  std::optional<ImportColumn> column;
  Notice notice;
};

// A faulty row, or line 1 for the header, told with its line and column.
struct ImportFault {
  int line = 0;
  Notice notice;
};

// The most characters of the fields that cells go to.
struct ImportLengths {
  int last_name = 0, first_name = 0, schl_yr = 0, team_abbr = 0, team_name = 0;
};

// A row as it stands. Texts are trimmed; what is blank is empty, or 0 or ' '.
struct ImportRow {
  int line = 0;
  std::optional<EventNumber> event;
  char gender = ' ';  // of the event: 'M', 'F', 'X'
  float distance = 0;
  char kind = ' ';
  int rounds = 0;
  std::string last_name, first_name;
  char ath_sex = ' ';
  double birth_date = 0;
  int age = 0;
  std::string schl_yr;
  int comp_no = 0;
  std::string team_abbr, team_name;
  std::string division;
  std::string seed_mark;
  char seed_unit = ' ';
  std::optional<bool> exhibition;
  std::string relay_ltr;  // not empty: a relay
  std::array<std::string, kMostLegs> legs;

  bool is_relay() const { return !relay_ltr.empty(); }
};

struct ImportRows {
  bool header_fault = false;        // and then there are no rows
  std::vector<ImportRow> rows;      // the sound ones
  std::vector<ImportFault> faults;  // by line; of a row the first fault only
};

// The characters of a text as fields count them.
int FieldCharacters(std::string_view text);

ImportRows ReadImportRows(std::string_view csv, const ImportLengths& lengths, char meet_type);

// "Line 7, column seed_mark: " and the reason.
ImportFault FaultAt(int line, const RowFault& fault);

}  // namespace tarvex::setup
