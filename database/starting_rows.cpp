#include "database/starting_rows.h"

#include <initializer_list>
#include <utility>
#include <vector>

#include "base/text.h"
#include "database/date.h"
#include "database/identifier.h"
#include "database/lane_order.h"

namespace tarvex::database {
namespace {

using jet::ColumnType;
using jet::Value;

constexpr int kHighestAge = 109;
constexpr int kScoredPlaces = 30;
constexpr int kWaterfallPositions = 160;

struct Field {
  std::string_view name;
  Value value;
};

// One table that is being filled.
class Rows {
 public:
  Rows(jet::Transaction& write, jet::Table& table) : write_(write), table_(table) {}

  Status Add(std::span<const Field> fields) {
    std::vector<jet::FieldValue> values;
    for (const Field& field : fields) {
      const int column = table_.Column(field.name);
      if (column < 0) {
        return {Fault::NotFound, "table " + table_.name() + " has no field " + std::string(field.name)};
      }
      values.push_back({column, field.value});
    }
    return write_.Insert(table_, values).status();
  }
  jet::Database& file() const { return write_.database(); }

  Status Add(std::initializer_list<Field> fields) { return Add(std::span(fields.begin(), fields.size())); }

  // A row whose other fields are zeros, blanks and No; other dates stay Null.
  Status AddFilled(std::initializer_list<Field> fields) {
    std::vector<Field> all;
    for (const jet::Column& column : table_.def().columns) {
      if (column.is_counter() || column.type == ColumnType::Date || IsIn(fields, column.name)) continue;
      all.push_back({column.name, Empty(column.type)});
    }
    all.insert(all.end(), fields.begin(), fields.end());
    return Add(std::span<const Field>(all));
  }

 private:
  static bool IsIn(std::initializer_list<Field> fields, std::string_view name) {
    for (const Field& field : fields) {
      if (SameText(field.name, name)) return true;
    }
    return false;
  }

  static Value Empty(ColumnType type) {
    switch (type) {
      case ColumnType::Boolean:
        return false;
      case ColumnType::Text:
        return std::string(" ");
      case ColumnType::Single:
        return 0.0f;
      case ColumnType::Currency:
        return jet::Currency{0};
      default:
        return int32_t{0};
    }
  }

  jet::Transaction& write_;
  jet::Table& table_;
};

Value Text(std::string_view text) {
  return std::string(text);
}

// The first day of the meet; a new file has none yet and its meet begins on the session's day.
Expected<double> MeetStart(jet::Database& file, const Session& session) {
  const auto table = file.FindTable("Meet");
  if (!table.ok() && table.status().fault == Fault::NotFound) return session.now;
  TRY(table.status());
  TRY_ASSIGN(const MeetSettings settings, LoadSettings(**table));
  return settings.Meet_start != 0 ? settings.Meet_start : session.now;
}

// Both divisions take every age. Their ages are those on the last day of the meet's year.
Status AddDivisions(Rows rows, const Session& session) {
  using std::chrono::January, std::chrono::December;
  TRY_ASSIGN(const double start, MeetStart(rows.file(), session));
  const auto year = DateOf(start).year();
  const jet::Date oldest{DaysOf((year - std::chrono::years(kHighestAge)) / January / 1)};
  const jet::Date youngest{DaysOf(year / December / 31)};
  const std::pair<std::string_view, std::string_view> kDivisions[] = {{"V", "Varsity"},
                                                                      {"JV", "Junior Varsity"}};
  int number = 0;
  for (const auto& [abbr, name] : kDivisions) {
    TRY(rows.Add({{"Div_no", ++number},
                  {"Div_abbr", Text(abbr)},
                  {"Div_name", Text(name)},
                  {"low_age", 0},
                  {"high_age", kHighestAge},
                  {"low_yeardate", Text("Y")},
                  {"high_yeardate", Text("Y")},
                  {"beg_date", oldest},
                  {"end_date", youngest},
                  {"max_entries", 0}}));
  }
  return Ok();
}

Status AddRegions(Rows rows, const Session&) {
  const std::pair<std::string_view, std::string_view> kRegions[] = {
      {"NE", "Northeast"}, {"SE", "Southeast"}, {"NW", "Northwest"}, {"SW", "Southwest"}};
  int number = 0;
  for (const auto& [abbr, name] : kRegions) {
    TRY(rows.Add({{"Reg_no", ++number},
                  {"Reg_abbr", Text(abbr)},
                  {"Reg_name", Text(name)},
                  {"fem_size", 0},
                  {"male_size", 0},
                  {"combined_size", 0}}));
  }
  return Ok();
}

// Athletes without a team never score for one.
Status AddUnattachedTeam(Rows rows, const Session& session) {
  return rows.AddFilled({{"Team_name", Text("Unattached")},
                         {"Team_short", Text("UNA ")},
                         {"Team_abbr", Text("UNA ")},
                         {"Team_altabbr", Text("UNA ")},
                         {"Team_NoPoints", true},
                         {"TeamGUID_strg", NewIdentifier(session.random_bits)}});
}

// Division 0 stands for all of them.
Status AddScoring(Rows rows, const Session&) {
  constexpr std::array kPoints = {10.0f, 8.0f, 6.0f, 5.0f, 4.0f, 3.0f, 2.0f, 1.0f};
  for (int place = 1; place <= kScoredPlaces; ++place) {
    const size_t at = static_cast<size_t>(place - 1);
    const float points = at < kPoints.size() ? kPoints[at] : 0;
    for (const std::string_view sex : {"F", "M"}) {
      TRY(rows.Add({{"score_divno", 0},
                    {"score_sex", Text(sex)},
                    {"score_place", place},
                    {"ind_score", points},
                    {"rel_score", points},
                    {"combevt_score", points}}));
    }
  }
  return Ok();
}

Status AddLaneOrders(Rows rows, const Session&) {
  for (int lanes = 1; lanes <= kMostLanes; ++lanes) {
    const auto order = DefaultLaneOrder(lanes);
    TRY(rows.Add({{"tot_lanes", lanes},
                  {"order_01", order[0]},
                  {"order_02", order[1]},
                  {"order_03", order[2]},
                  {"order_04", order[3]},
                  {"order_05", order[4]},
                  {"order_06", order[5]},
                  {"order_07", order[6]},
                  {"order_08", order[7]},
                  {"order_09", order[8]},
                  {"order_10", order[9]},
                  {"order_11", order[10]},
                  {"order_12", order[11]}}));
  }
  return Ok();
}

Status AddWaterfall(Rows rows, const Session&) {
  for (int position = 1; position <= kWaterfallPositions; ++position) {
    TRY(rows.Add({{"Pos_no", position}, {"Rank_no", position}}));
  }
  return Ok();
}

// A meet of a US high school.
Status AddSettings(Rows rows, const Session& session) {
  const jet::Date today{WholeDay(session.now)};
  return rows.AddFilled({
      {"Meet_name1", Text("Demo Meet")},
      {"Meet_start", today},
      {"Meet_end", today},
      {"Calc_date", today},
      {"Meet_country", Text("USA")},
      {"open_senior_none", Text("N")},
      {"apnews_team", Text("S")},
      {"language_choice", Text("ENGLISH")},
      {"meet_arena", Text("O")},
      {"timedfinal_randrule", Text("A")},
      {"round1_randrule", Text("A")},
      {"round234_randrule", Text("A")},
      {"Meet_kind", 1},
      {"Meet_class", 1},
      {"Meet_meettype", 1},
      {"meet_meetstyle", 1},
      {"Meet_course", 1},
      {"Meet_idformat", 1},
      {"compno_uniqueness", 1},
      {"incl_meetdate", 1},
      {"meet_numlanes", 8},
      {"indtopmany_awards", 8},
      {"reltopmany_awards", 8},
      {"xccminimum_onteam", 5},
      {"xccmaxscorers_perteam", 5},
      {"xccnumberdisplacers_perteam", 2},
      {"xccpenalty_points", 100},
      {"xrrnumber_teamscorers", 3},
      {"fldrelnumber_teamscorers", 3},
      {"runrelnumber_teamscorers", 3},
      {"win_tftvx", true},
      {"Enter_schoolyr", true},
      {"Lastname_first", true},
      {"entrylimits_warn", true},
      {"check_times", true},
      {"foreign_infinal", true},
      {"foreign_getteampoints", true},
      {"record_windreadings", true},
      {"converthand_toFAT", true},
      {"score_Arelayonly", true},
  });
}

struct Filler {
  std::string_view table;
  Status (*add)(Rows rows, const Session& session);
};

constexpr Filler kFillers[] = {
    {"Divisions", AddDivisions},  {"Meet", AddSettings},       {"Team", AddUnattachedTeam},
    {"Regions", AddRegions},      {"Scoring", AddScoring},     {"StdLanes", AddLaneOrders},
    {"StdAlleys", AddLaneOrders}, {"Waterfall", AddWaterfall},
};

}  // namespace

Status InsertStartingRows(jet::Transaction& write, jet::Table& table, const Session& session) {
  for (const Filler& filler : kFillers) {
    if (SameText(filler.table, table.name())) return filler.add(Rows(write, table), session);
  }
  return Ok();
}

}  // namespace tarvex::database
