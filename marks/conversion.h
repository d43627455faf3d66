#pragma once

#include <optional>

#include "marks/settings.h"

// Seed marks in the unit in which the event is measured, so that entries of all origins can be compared.
namespace tarvex::marks {

// A row of Conversions: (seed sign_1 factor_1) sign_2 factor_2, from left to right. The signs are + - * /;
// with a blank sign, or a division by 0, the step is left out.
struct ConversionRule {
  char sign_1 = ' ';
  float factor_1 = 0;
  char sign_2 = ' ';
  float factor_2 = 0;
};

// A seed mark as typed.
struct SeedMark {
  float value = 0;  // seconds, metres or inches; 0: none
  char unit = ' ';  // 'M', 'E', or blank: the event's seed unit
  bool hand = false;
};

struct ConversionEvent {
  char track_or_field = 'T';
  char kind = ' ';
  float distance = 0;
  char seed_unit = ' ';    // seed_meas; blank: as the results
  char result_unit = 'M';  // res_meas
};

struct ConvertedMark {
  float value = 0;
  char unit = ' ';

  bool operator==(const ConvertedMark&) const = default;
};

// The mark in the event's result unit. A rule replaces the change of unit. Times are rounded up to the
// hundredth after a rule, and hand times adjusted; metres that come from inches are rounded to the nearest
// centimetre, inches that come from metres cut to the quarter; after a rule distances are cut. No mark stays
// 0.
ConvertedMark ConvertSeed(const SeedMark& seed, const ConversionEvent& event,
                          const std::optional<ConversionRule>& rule, const MarkSettings& settings);

}  // namespace tarvex::marks
