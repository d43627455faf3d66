#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "jet/database.h"

namespace tarvex::database {

// Ties a field of a table to a member of a struct. A file that loads and saves rows keeps one array of these,
// which is the only place that spells the fields:
//
//   constexpr Binding<Event> kFields[] = {{"Event_no", &Event::event_no}, {"Event_ltr", &Event::event_ltr}};
//
// int serves Byte, Integer and Long; double serves Date (days since 1899-12-30, 0 = none) and Double; char
// serves Text(1): ' ' for Null, empty and blank, upper-case otherwise. Text comes trimmed of trailing blanks.
// A Null reads as 0, false or "". In saving, "" and ' ' are stored as a zero-length text and a date of 0 as
// Null.
//
// Fields that exist once for each round are written with a star in place of the round's prefix: with the
// prefix "fin_", "*heat" is fin_heat and "un*heat" is unfin_heat.
template <class Row>
struct Binding {
  std::string_view field;
  std::variant<int Row::*, bool Row::*, float Row::*, double Row::*, char Row::*, std::string Row::*> member;
};

// `field` with its star, if any, replaced by `round_prefix`.
std::string WithPrefix(std::string_view field, std::string_view round_prefix);

// The kinds of members, one at a time; see Binding.
char LoadLetter(const jet::Record& record, int column);
std::string LoadText(const jet::Record& record, int column);
jet::Value DateValue(double days);
jet::Value LetterValue(char letter);

// Adds 0, No or a zero-length text for every field that has no value yet; dates and counters stay out. Rows
// that the program makes hold a value in every field, as other readers of the file expect.
void FillRest(const jet::Table& table, std::vector<jet::FieldValue>& values);

// Bindings with the positions of their fields in one table.
template <class Row>
class BoundFields {
 public:
  // Fault::NotFound when the table lacks a field.
  static Expected<BoundFields> Of(const jet::Table& table, std::span<const Binding<Row>> bindings,
                                  std::string_view round_prefix = "") {
    BoundFields bound(bindings);
    for (const Binding<Row>& binding : bindings) {
      const std::string field = WithPrefix(binding.field, round_prefix);
      const int column = table.Column(field);
      if (column < 0) return Status{Fault::NotFound, "table " + table.name() + " has no field " + field};
      bound.columns_.push_back(column);
    }
    return bound;
  }

  // The caller asks record.status() afterwards.
  Row Load(const jet::Record& record) const {
    Row row{};
    for (size_t i = 0; i < bindings_.size(); ++i) {
      const int column = columns_[i];
      std::visit(
          [&](auto member) {
            using Member = std::remove_reference_t<decltype(row.*member)>;
            if constexpr (std::is_same_v<Member, int>) {
              row.*member = record.Long(column);
            } else if constexpr (std::is_same_v<Member, bool>) {
              row.*member = record.Boolean(column);
            } else if constexpr (std::is_same_v<Member, float>) {
              row.*member = record.Single(column);
            } else if constexpr (std::is_same_v<Member, double>) {
              row.*member = record.Double(column);
            } else if constexpr (std::is_same_v<Member, char>) {
              row.*member = LoadLetter(record, column);
            } else {
              row.*member = LoadText(record, column);
            }
          },
          bindings_[i].member);
    }
    return row;
  }

  // All fields of the row.
  std::vector<jet::FieldValue> Save(const Row& row) const {
    std::vector<jet::FieldValue> fields;
    for (size_t i = 0; i < bindings_.size(); ++i) fields.push_back({columns_[i], ValueOf(row, i)});
    return fields;
  }

  // The fields in which `row` differs from `old`.
  std::vector<jet::FieldValue> SaveChanges(const Row& old, const Row& row) const {
    std::vector<jet::FieldValue> fields;
    for (size_t i = 0; i < bindings_.size(); ++i) {
      const bool same =
          std::visit([&](auto member) { return old.*member == row.*member; }, bindings_[i].member);
      if (!same) fields.push_back({columns_[i], ValueOf(row, i)});
    }
    return fields;
  }

 private:
  explicit BoundFields(std::span<const Binding<Row>> bindings)
      : bindings_(bindings.begin(), bindings.end()) {}

  jet::Value ValueOf(const Row& row, size_t i) const {
    return std::visit(
        [&](auto member) -> jet::Value {
          using Member = std::remove_cvref_t<decltype(row.*member)>;
          if constexpr (std::is_same_v<Member, double>) return DateValue(row.*member);
          if constexpr (std::is_same_v<Member, char>) return LetterValue(row.*member);
          if constexpr (std::is_same_v<Member, int>) return int32_t{row.*member};
          return row.*member;
        },
        bindings_[i].member);
  }

  std::vector<Binding<Row>> bindings_;
  std::vector<int> columns_;
};

}  // namespace tarvex::database
