#include "running/alleys.h"

#include "database/rows.h"

namespace tarvex::running {
namespace {

using database::Binding;
using database::BoundFields;

struct AlleyRow {
  int event_ptr = 0;
  int order_no = 0;
  std::string alley_name;
};
const std::vector<Binding<AlleyRow>> kAlleyFields = {{"event_ptr", &AlleyRow::event_ptr},
                                                     {"order_no", &AlleyRow::order_no},
                                                     {"alley_name", &AlleyRow::alley_name}};

}  // namespace

Expected<std::vector<setup::AlleyName>> LoadAlleyNames(const database::Meet& meet, int event_ptr) {
  TRY_ASSIGN(const jet::Table* table, meet.Table("CustomAlleys"));
  TRY_ASSIGN(const auto fields, BoundFields<AlleyRow>::Of(*table, kAlleyFields));
  TRY_ASSIGN(const auto rows, database::LoadBy(*table, fields, "custalleyevtord", event_ptr));
  std::vector<setup::AlleyName> names;
  for (const auto& stored : rows) names.push_back({stored.row.order_no, stored.row.alley_name});
  return names;
}

}  // namespace tarvex::running
