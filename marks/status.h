#pragma once

namespace tarvex::marks {

// The status letters that stand beside a mark.
inline constexpr char kValid = ' ';
inline constexpr char kNoMark = 'N';
inline constexpr char kDidNotStart = 'S';
inline constexpr char kScratched = 'R';
inline constexpr char kDisqualified = 'Q';
inline constexpr char kDidNotFinish = 'D';
inline constexpr char kFoul = 'F';  // a false start in running events
inline constexpr char kPass = 'P';
inline constexpr char kExhibition = 'X';

// How a status is kept: exhibition has a field of its own, beside which the mark counts as valid. Both are
// written with every mark, so that typing a plain mark clears what stood there.
struct StatusFields {
  char stat = kValid;        // `pre_stat`, ...
  char exhibition = kValid;  // `pre_exh`, ...

  bool operator==(const StatusFields&) const = default;
};
constexpr StatusFields FieldsOf(char status) {
  return status == kExhibition ? StatusFields{kValid, kExhibition} : StatusFields{status, kValid};
}

}  // namespace tarvex::marks
