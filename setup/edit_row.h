#pragma once

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <string_view>
#include <variant>
#include <vector>

#include "base/message.h"
#include "base/outcome.h"
#include "base/text.h"
#include "database/binding.h"
#include "database/field_text.h"
#include "setup/roster_store.h"

// One row of a table changed by FIELD=VALUE pairs. Fields that the structs know are set there, so that the
// rules can look at them; the others go to the table as they are.
namespace tarvex::setup {

enum class Edit { Add, Set, Delete };

using database::FieldText;

// What else is to be done in the transaction that changed entries of an event.
using AfterChange = std::function<Status(jet::Transaction& write, int event_ptr)>;

// Sets the member to a field's value, Null as 0, No or "". False when the value is of another type.
template <class Row>
bool SetMember(Row& row, const database::Binding<Row>& binding, const jet::Value& value) {
  return std::visit(
      [&](auto member) {
        auto& target = row.*member;
        using Member = std::remove_reference_t<decltype(target)>;
        if (jet::IsNull(value)) {
          target = Member{};
          if constexpr (std::is_same_v<Member, char>) target = ' ';
          return true;
        }
        if constexpr (std::is_same_v<Member, int>) {
          const auto* number = std::get_if<int32_t>(&value);
          if (number) target = *number;
          return number != nullptr;
        } else if constexpr (std::is_same_v<Member, char>) {
          const auto* text = std::get_if<std::string>(&value);
          const std::string upper = text ? Upper(*text) : std::string();
          target = upper.empty() ? ' ' : upper[0];
          return text != nullptr;
        } else if constexpr (std::is_same_v<Member, double>) {
          const auto* date = std::get_if<jet::Date>(&value);
          if (date) target = date->days;
          return date != nullptr;
        } else {
          const auto* same = std::get_if<Member>(&value);
          if (same) target = *same;
          return same != nullptr;
        }
      },
      binding.member);
}

// Puts the values of known fields into the row and gives the rest.
template <class Row>
std::vector<jet::FieldValue> ApplyFields(const jet::Table& table,
                                         std::span<const database::Binding<Row>> bindings, Row& row,
                                         std::vector<jet::FieldValue> values) {
  std::erase_if(values, [&](const jet::FieldValue& value) {
    const auto known = std::find_if(
        bindings.begin(), bindings.end(),
        [&](const database::Binding<Row>& binding) { return table.Column(binding.field) == value.column; });
    return known != bindings.end() && SetMember(row, *known, value.value);
  });
  return values;
}

// The name of the first field that is given though it may not be.
inline std::optional<std::string_view> FirstGiven(std::span<const FieldText> fields,
                                                  std::initializer_list<std::string_view> forbidden) {
  for (const std::string_view name : forbidden) {
    for (const FieldText& field : fields) {
      if (SameText(field.field, name)) return name;
    }
  }
  return std::nullopt;
}

inline bool IsGiven(std::span<const FieldText> fields, std::string_view name) {
  return FirstGiven(fields, {name}).has_value();
}

// Takes a word that is no field of the table, such as "mark", out of the pairs.
inline std::optional<std::string> TakeField(std::vector<FieldText>& fields, std::string_view name) {
  const auto found = std::find_if(fields.begin(), fields.end(),
                                  [&](const FieldText& field) { return SameText(field.field, name); });
  if (found == fields.end()) return std::nullopt;
  std::string text = std::move(found->text);
  fields.erase(found);
  return text;
}

// Inserts the row with the values of fields that it does not know; gives its counter.
template <class Row>
Expected<int> InsertRow(jet::Transaction& write, jet::Table& table, const database::BoundFields<Row>& fields,
                        const Row& row, const std::vector<jet::FieldValue>& more) {
  std::vector<jet::FieldValue> values = fields.Save(row);
  std::erase_if(values, [&](const jet::FieldValue& value) {
    return table.def().columns[static_cast<size_t>(value.column)].is_counter();
  });
  values.insert(values.end(), more.begin(), more.end());
  database::FillRest(table, values);
  TRY_ASSIGN(const auto inserted, write.Insert(table, values));
  return inserted.counter;
}

template <class Row>
Status UpdateRow(jet::Transaction& write, jet::Table& table, const database::BoundFields<Row>& fields,
                 const database::Stored<Row>& stored, const Row& row,
                 const std::vector<jet::FieldValue>& more) {
  std::vector<jet::FieldValue> values = fields.SaveChanges(stored.row, row);
  values.insert(values.end(), more.begin(), more.end());
  return values.empty() ? Ok() : write.Update(table, stored.id, values);
}

// Runs `work(transaction)`, which gives a Status, in a transaction of this name.
template <class Work>
Outcome InOneTransaction(const database::Meet& meet, std::string_view command, Work work) {
  const auto run = [&]() -> Status {
    TRY_ASSIGN(const auto write, meet.Begin(command));
    TRY(work(*write));
    return write->Commit();
  };
  if (Status failed = run(); !failed.ok()) return failed;
  return Done{};
}

// Deletes the rows of a table whose field has this number.
Status DeleteRows(jet::Transaction& write, const database::Meet& meet, std::string_view table,
                  std::string_view field, int number);
// Whether a table has a row whose field has this number.
Expected<bool> HasRows(const database::Meet& meet, std::string_view table, std::string_view field,
                       int number);

}  // namespace tarvex::setup
