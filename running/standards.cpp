#include "running/standards.h"

#include <set>

#include "database/rows.h"
#include "setup/event.h"
#include "setup/sex.h"

namespace tarvex::running {
namespace {

using database::Binding;
using database::BoundFields;

struct TagRow {
  int tag_ptr = 0;
  bool for_scoring = false;
};
const std::vector<Binding<TagRow>> kTagFields = {{"tag_ptr", &TagRow::tag_ptr},
                                                 {"for_scoring", &TagRow::for_scoring}};

struct StandardRow {
  int tag_ptr = 0;
  char tag_gender = ' ';
  int event_ptr = 0;
  int low_age = 0;
  int high_age = 0;
  float tag_time = 0;
};
const std::vector<Binding<StandardRow>> kStandardFields = {
    {"tag_ptr", &StandardRow::tag_ptr},     {"tag_gender", &StandardRow::tag_gender},
    {"event_ptr", &StandardRow::event_ptr}, {"low_age", &StandardRow::low_age},
    {"high_Age", &StandardRow::high_age},   {"tag_time", &StandardRow::tag_time},
};

}  // namespace

bool Standards::IsMet(float mark, char sex, int age, bool greater_is_better) const {
  bool any_fits = false;
  for (const Standard& standard : standards) {
    const char gender = setup::GenderOf(standard.gender).value_or('X');
    if (standard.mark <= 0 || !setup::FitsGender(sex, gender)) continue;
    if (age < standard.low_age || age > standard.high_age) continue;
    any_fits = true;
    if (greater_is_better ? mark >= standard.mark : mark <= standard.mark) return true;
  }
  return !any_fits;
}

Expected<Standards> LoadScoringStandards(const database::Meet& meet, int event_ptr) {
  TRY_ASSIGN(const jet::Table* tag_table, meet.Table("TagNames"));
  TRY_ASSIGN(const auto tag_fields, BoundFields<TagRow>::Of(*tag_table, kTagFields));
  TRY_ASSIGN(const auto tags, database::LoadAll(*tag_table, tag_fields));
  std::set<int> scoring_tags;
  for (const auto& tag : tags) {
    if (tag.row.for_scoring) scoring_tags.insert(tag.row.tag_ptr);
  }
  TRY_ASSIGN(const jet::Table* table, meet.Table("TimeStd"));
  TRY_ASSIGN(const auto fields, BoundFields<StandardRow>::Of(*table, kStandardFields));
  TRY_ASSIGN(const auto rows, database::LoadAll(*table, fields));
  Standards standards;
  for (const auto& [id, row] : rows) {
    if (row.event_ptr != event_ptr || !scoring_tags.contains(row.tag_ptr)) continue;
    standards.standards.push_back({row.tag_gender, row.low_age, setup::HighAge(row.high_age), row.tag_time});
  }
  return standards;
}

}  // namespace tarvex::running
