#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/outcome.h"
#include "jet/table.h"

// Values of any field as text, the way scripts give and read them.
namespace tarvex::database {

// Yes/no as "yes" and "no", Single by its shortest digits, Currency without superfluous zeros, dates by ISO
// 8601
// ("2024-05-10", with "T18:30:00" when there is a time of day), binary fields in hexadecimal, Null as "".
std::string ValueText(const jet::Column& column, const jet::Value& value);

// The value that `text` gives the field, or why it cannot: "meet_numlanes: please give a whole number from
// ...". Yes/no takes yes, no, true, false, 1 and 0 in any case. Except in texts and yes/no fields an empty
// text is Null. Counters and binary fields are refused.
std::variant<jet::Value, Refusal> ParseValue(const jet::Column& column, std::string_view text);

// One FIELD=VALUE.
struct FieldText {
  std::string field;  // any case
  std::string text;
};

// The values for a row of `table`, or the first refusal: an unknown field, one given twice, a bad value.
std::variant<std::vector<jet::FieldValue>, Refusal> ParseFields(const jet::Table& table,
                                                                std::span<const FieldText> fields);

}  // namespace tarvex::database
