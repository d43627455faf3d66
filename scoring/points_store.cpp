#include "scoring/points_store.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace tarvex::scoring {
namespace {

using database::Binding;
using database::BoundFields;
using database::Meet;

const std::vector<Binding<ScoringRow>> kFields = {
    {"score_divno", &ScoringRow::score_divno}, {"score_sex", &ScoringRow::score_sex},
    {"score_place", &ScoringRow::score_place}, {"ind_score", &ScoringRow::ind_score},
    {"rel_score", &ScoringRow::rel_score},     {"combevt_score", &ScoringRow::combevt_score},
};

auto KeyOf(const ScoringRow& row) {
  return std::tuple(row.score_divno, row.score_sex, row.score_place);
}

}  // namespace

Expected<std::vector<StoredScoringRow>> LoadScoringRows(const Meet& meet) {
  TRY_ASSIGN(const jet::Table* table, meet.Table("Scoring"));
  TRY_ASSIGN(const auto fields, BoundFields<ScoringRow>::Of(*table, kFields));
  TRY_ASSIGN(auto rows, database::LoadAll(*table, fields));
  std::stable_sort(rows.begin(), rows.end(), [](const StoredScoringRow& a, const StoredScoringRow& b) {
    return KeyOf(a.row) < KeyOf(b.row);
  });
  return rows;
}

Expected<PointsTable> LoadPointsTable(const Meet& meet) {
  TRY_ASSIGN(const auto stored, LoadScoringRows(meet));
  std::vector<ScoringRow> rows;
  for (const StoredScoringRow& one : stored) rows.push_back(one.row);
  return PointsTable(rows);
}

Status SaveScoringRows(jet::Transaction& write, const Meet& meet, const std::vector<ScoringRow>& rows) {
  TRY_ASSIGN(jet::Table * table, meet.Table("Scoring"));
  TRY_ASSIGN(const auto fields, BoundFields<ScoringRow>::Of(*table, kFields));
  TRY_ASSIGN(const auto stored, LoadScoringRows(meet));
  std::map<std::tuple<int, char, int>, ScoringRow> wanted;
  std::set<int> divisions;
  for (const ScoringRow& row : rows) {
    wanted[KeyOf(row)] = row;
    divisions.insert(row.score_divno);
  }
  for (const StoredScoringRow& one : stored) {
    const auto found = wanted.find(KeyOf(one.row));
    if (found != wanted.end()) {
      TRY(database::SaveChanged(write, *table, fields, one, found->second));
      wanted.erase(found);
    } else if (divisions.contains(one.row.score_divno)) {
      TRY(write.Delete(*table, one.id));
    }
  }
  for (const auto& [key, row] : wanted) TRY(write.Insert(*table, fields.Save(row)).status());
  return Ok();
}

}  // namespace tarvex::scoring
