#include "setup/seed_marks.h"

#include <array>

#include "database/rows.h"
#include "marks/field_entry.h"
#include "marks/status.h"
#include "marks/time_entry.h"
#include "setup/event_kind.h"

namespace tarvex::setup {
namespace {

struct ConversionRow {
  int event_ptr = 0;
  std::string letter;
  char sign_1 = ' ';
  float factor_1 = 0;
  char sign_2 = ' ';
  float factor_2 = 0;
};
constexpr std::array<database::Binding<ConversionRow>, 6> kConversionFields = {{
    {"Event_ptr", &ConversionRow::event_ptr},
    {"Conv_ltr", &ConversionRow::letter},
    {"sign_1", &ConversionRow::sign_1},
    {"factor_1", &ConversionRow::factor_1},
    {"sign_2", &ConversionRow::sign_2},
    {"factor_2", &ConversionRow::factor_2},
}};

// Thousandths and the even centimetre are for results measured at this meet.
marks::MarkEntry ReadMark(std::string_view typed, char unit, const Event& event,
                          const marks::MarkSettings& settings) {
  if (event.trk_field == 'F') {
    const marks::FieldEntryOptions options{
        .codes_allowed = false, .show_message = false, .even_centimetre = false};
    return marks::ReadFieldMark(typed, unit, event.event_stroke, options, settings);
  }
  const marks::TimeEntryOptions options{.codes_allowed = false, .show_message = false, .thousandths = false};
  return marks::ReadTime(typed, event.event_dist, event.event_stroke, options, settings);
}

}  // namespace

TypedSeed ReadSeed(std::string_view typed, char unit, const Event& event,
                   const marks::MarkSettings& settings) {
  TypedSeed seed;
  seed.unit = unit == ' ' ? event.seed_meas : unit;
  const marks::MarkEntry mark = ReadMark(typed, seed.unit, event, settings);
  if (!mark.accepted) {
    seed.refusal = mark.message;
    return seed;
  }
  seed.value = mark.value;
  seed.hand = mark.hand;
  seed.video = mark.video;
  seed.exhibition = mark.status == marks::kExhibition;
  seed.range_question = mark.range_question;
  return seed;
}

Expected<ConversionRules> LoadConversions(const database::Meet& meet) {
  TRY_ASSIGN(const jet::Table* table, meet.Table("Conversions"));
  TRY_ASSIGN(const auto fields, database::BoundFields<ConversionRow>::Of(*table, kConversionFields));
  TRY_ASSIGN(const auto rows, database::LoadAll(*table, fields));
  ConversionRules rules;
  for (const auto& stored : rows) {
    const ConversionRow& row = stored.row;
    rules[{row.event_ptr, row.letter}] = {row.sign_1, row.factor_1, row.sign_2, row.factor_2};
  }
  return rules;
}

void ConvertSeedOf(EntryCommon& entry, const Event& event, const ConversionRules& rules,
                   const marks::MarkSettings& settings) {
  const auto found = entry.conv_ltr.empty() ? rules.end() : rules.find({entry.event_ptr, entry.conv_ltr});
  const std::optional<marks::ConversionRule> rule =
      found == rules.end() ? std::nullopt : std::optional(found->second);
  const marks::ConvertedMark converted = marks::ConvertSeed(
      {entry.actualseed_time, entry.actseed_course, entry.hand_time},
      {event.trk_field, event.event_stroke, event.event_dist, event.seed_meas, event.res_meas}, rule,
      settings);
  entry.convseed_time = converted.value;
  entry.convseed_course = converted.unit;
}

void SetSeed(EntryCommon& entry, const TypedSeed& seed, const Event& event, const ConversionRules& rules,
             const marks::MarkSettings& settings) {
  entry.actualseed_time = seed.value;
  entry.actseed_course = seed.unit;
  entry.hand_time = seed.hand;
  entry.video_time = seed.video;
  ConvertSeedOf(entry, event, rules, settings);
}

bool HasSeed(const EntryCommon& entry, const TypedSeed& seed) {
  if (entry.actualseed_time != seed.value) return false;
  const bool same_unit = seed.value == 0 || entry.actseed_course == seed.unit;
  return same_unit && entry.hand_time == seed.hand && entry.video_time == seed.video;
}

}  // namespace tarvex::setup
