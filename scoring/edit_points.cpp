#include "scoring/edit_points.h"

#include <algorithm>

#include "base/decimal.h"
#include "base/text.h"
#include "scoring/default_points.h"
#include "scoring/messages.h"
#include "scoring/points_store.h"
#include "setup/division_store.h"

namespace tarvex::scoring {
namespace {

using database::Meet;

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  while (true) {
    const size_t at = text.find(separator);
    parts.push_back(Trim(text.substr(0, at)));
    if (at == std::string_view::npos) return parts;
    text.remove_prefix(at + 1);
  }
}

// The rows of the division that is changed: its own, else those of division 0 under its number.
std::vector<ScoringRow> RowsOf(const std::vector<StoredScoringRow>& stored, int division) {
  std::vector<ScoringRow> rows;
  for (const int source : {division, 0}) {
    for (const StoredScoringRow& one : stored) {
      if (one.row.score_divno != source) continue;
      rows.push_back(one.row);
      rows.back().score_divno = division;
    }
    if (!rows.empty()) break;
  }
  return rows;
}

void SetPlace(std::vector<ScoringRow>& rows, int division, const PlacePoints& points) {
  for (const char sex : {'F', 'M'}) {
    auto row = std::find_if(rows.begin(), rows.end(), [&](const ScoringRow& one) {
      return one.score_sex == sex && one.score_place == points.place;
    });
    if (row == rows.end()) row = rows.insert(rows.end(), ScoringRow{division, sex, points.place, 0, 0, 0});
    row->ind_score = points.individual;
    row->rel_score = points.relay;
    row->combevt_score = points.combined;
  }
}

}  // namespace

std::variant<PlacePoints, Notice> ReadPlacePoints(std::string_view typed) {
  const size_t equals = typed.find('=');
  if (equals == std::string_view::npos) return PointsUnclear(typed);
  const auto place = Decimal::Parse(Trim(typed.substr(0, equals)));
  const auto cells = Split(typed.substr(equals + 1), ',');
  if (!place || place->Decimals() != 0 || cells.size() != 3) return PointsUnclear(typed);
  if (place->Whole() < 1 || place->Whole() > kMostPlaces) return PointsPlaceRange();
  PlacePoints points;
  points.place = static_cast<int>(place->Whole());
  float* const columns[] = {&points.individual, &points.relay, &points.combined};
  for (size_t i = 0; i < cells.size(); ++i) {
    const auto number = Decimal::Parse(cells[i]);
    if (!number) return PointsUnclear(typed);
    if (number->IsNegative()) return NegativePoints();
    *columns[i] = number->ToSingle();
  }
  return points;
}

Outcome ChangePoints(Meet& meet, const PointsChange& change) {
  if (change.division != 0) {
    const auto divisions = setup::LoadDivisions(meet);
    if (!divisions.ok()) return divisions.status();
    const bool exists =
        std::any_of(divisions->begin(), divisions->end(),
                    [&](const setup::StoredDivision& one) { return one.row.div_no == change.division; });
    if (!exists) return Refusal{NoSuchDivision(change.division)};
  }
  const auto stored = LoadScoringRows(meet);
  if (!stored.ok()) return stored.status();
  std::vector<ScoringRow> rows = RowsOf(*stored, change.division);
  if (change.default_places) {
    const bool is_dual = meet.settings().meet_meetstyle != 1;
    const auto places = ReadPlaces(*change.default_places);
    if (!is_dual) {
      if (const auto* notice = std::get_if<Notice>(&places)) return Refusal{*notice};
    }
    rows = is_dual ? DualDefaultRows(change.division) : DefaultRows(change.division, std::get<int>(places));
  }
  for (const PlacePoints& place : change.places) SetPlace(rows, change.division, place);
  const auto save = [&]() -> Status {
    TRY_ASSIGN(const auto write, meet.Begin("points"));
    TRY(SaveScoringRows(*write, meet, rows));
    return write->Commit();
  };
  if (Status status = save(); !status.ok()) return status;
  return Done{};
}

}  // namespace tarvex::scoring
