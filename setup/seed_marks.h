#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/message.h"
#include "database/meet.h"
#include "marks/conversion.h"
#include "marks/settings.h"
#include "setup/event.h"
#include "setup/roster.h"

namespace tarvex::setup {

// A seed mark as typed in a grid or a file.
struct TypedSeed {
  float value = 0;  // in `unit`; 0: no mark
  char unit = 'M';  // 'M' or 'E'
  bool hand = false;
  bool video = false;
  bool exhibition = false;               // typed with an "X" before it
  std::optional<Notice> refusal;         // it is no mark
  std::optional<Notice> range_question;  // to be answered with Yes before the mark is stored
};

// `unit` blank: the event's unit of seed marks. Only marks and "NT" are seed marks, words such as DNF are
// not.
TypedSeed ReadSeed(std::string_view typed, char unit, const Event& event,
                   const marks::MarkSettings& settings);

// The rules of the table of conversions by event_ptr and letter.
using ConversionRules = std::map<std::pair<int, std::string>, marks::ConversionRule>;
Expected<ConversionRules> LoadConversions(const database::Meet& meet);

// Brings the seed mark of an entry or relay to the unit of the event's results: convseed_time and
// convseed_course. What was typed stays.
void ConvertSeedOf(EntryCommon& entry, const Event& event, const ConversionRules& rules,
                   const marks::MarkSettings& settings);

// Stores a typed mark and converts it.
void SetSeed(EntryCommon& entry, const TypedSeed& seed, const Event& event, const ConversionRules& rules,
             const marks::MarkSettings& settings);

// Whether the entry has just this mark already.
bool HasSeed(const EntryCommon& entry, const TypedSeed& seed);

}  // namespace tarvex::setup
