#pragma once

#include <string>

#include "base/decimal.h"
#include "marks/settings.h"

// Marks as text. A time is shown rounded up, a distance or height rounded down: nobody is shown better than
// he was.
namespace tarvex::marks {

// How exactly a time is shown.
enum class Precision { Hundredths, Tenths, WholeSeconds };

// The precision of an event's results; seed marks and splits are always shown in hundredths. Road races go by
// the second and track races above 10000 m by the tenth (WA TR 19). `event_type` is blank, 'C' cross-country
// or 'R' road race; `distance` and `kind` are the event's, as for CheckTimeRange.
Precision ResultPrecision(char event_type, float distance, char kind, const MarkSettings& settings);

struct DisplayFlags {
  Precision precision = Precision::Hundredths;
  bool short_form = false;  // the caller has room for one letter only: "X" and "-", if the settings allow it
  bool with_unit = false;   // "m" behind metric marks
  bool exhibition = false;  // an "X" before the mark unless suppressed; the status 'X' asks for it too
};

// The compact form for lists: 45.23, 1:45.23, 1:02:03.45. Without a time (0) a word for the status, or a
// single blank: NT ("NP" instead when `np` is set), NS, DQ, DNF, FS. With one the time is shown whatever the
// status.
std::string FormatTime(float seconds, char status, bool np, const MarkSettings& settings);

// The time to the thousandth in the same layout: 10.231, 1:45.230.
std::string FormatThousandths(float seconds, const MarkSettings& settings);

// The result form. A status goes before the mark: DNF, FOUL, ... Then the mark; without one, a single blank.
// `track_or_field` is 'T' or 'F'; only field events look at `unit` and at `kind`. English marks are feet and
// inches, the inches cut to the quarter: 21-03.50.
std::string FormatMark(float value, char status, char track_or_field, char unit, char kind,
                       const DisplayFlags& flags, const MarkSettings& settings);

// What stands before the seed mark of an exhibition entry in a list: "x", or nothing when suppressed.
std::string SeedExhibitionPrefix(bool exhibition, const MarkSettings& settings);

// A field mark as far as FormatMark shows it: inches cut to the quarter or, for long throws, to the whole
// inch; metres cut to the centimetre.
Decimal ShownFieldMark(float value, char unit, char kind, const MarkSettings& settings);

// Whether two field marks tie: when they are shown alike. 255.55 and 255.6 inches are both 21-03.50.
bool FieldMarksTie(float a, float b, char unit, char kind, const MarkSettings& settings);

// Whether two times tie: thousandths count, even where they are not shown.
inline bool TimesTie(float a, float b) {
  return a == b;
}

}  // namespace tarvex::marks
