#include "setup/entry_rules.h"

#include <algorithm>

#include "database/date.h"
#include "setup/event_status.h"
#include "setup/messages.h"
#include "setup/names.h"
#include "setup/sex.h"

namespace tarvex::setup {
namespace {

constexpr int kDivisionsByEvent = 2;
constexpr int kMasters = 5;

struct Ages {
  int low = 0;
  int high = 109;
};

void CheckAges(const Athlete& athlete, Ages ages, int age, Misfit& misfit) {
  if (age > ages.high) misfit.refusal = TooOldForEvent(PlainName(athlete), age, ages.high);
  if (age < ages.low) misfit.age_up = YoungerThanEvent(PlainName(athlete), age, ages.low);
}

// Born before the oldest is too old; born after the youngest may run up.
void CheckBirth(const Athlete& athlete, const DatedDivision& division, Misfit& misfit) {
  const std::string name = PlainName(athlete);
  if (division.oldest != 0 && athlete.birth_date < division.oldest) {
    misfit.refusal = BornOutsideDivision(name, division.division.div_name);
  } else if (division.youngest != 0 && athlete.birth_date > division.youngest) {
    misfit.age_up = YoungerThanDivision(name, division.division.div_name);
  }
}

}  // namespace

EntryRules RulesOf(const database::MeetSettings& settings) {
  return {.calc_date = settings.Calc_date != 0 ? settings.Calc_date : settings.Meet_start,
          .division_of_event = settings.Meet_meettype == kDivisionsByEvent,
          .division_by_birth = settings.usedivision_birthdateranges,
          .declarations = settings.use_declarationmethod,
          .most_entries = settings.entrymax_total,
          .most_track = settings.trkmax_perath,
          .most_field = settings.fldmax_perath,
          .limits_warn = settings.entrylimits_warn};
}

int AgeOnDay(double birth_date, double day) {
  return AgeOn(database::DateOf(birth_date), database::DateOf(day));
}

std::optional<int> AgeOf(const Athlete& athlete, double calc_date) {
  if (athlete.birth_date != 0 && calc_date != 0) return AgeOnDay(athlete.birth_date, calc_date);
  return athlete.age > 0 ? std::optional(athlete.age) : std::nullopt;
}

Misfit CheckFit(const Athlete& athlete, const Event& event, const DatedDivision* division,
                const EntryRules& rules) {
  Misfit misfit;
  if (!FitsGender(athlete.sex, event.event_gender)) {
    misfit.refusal = WrongSexForEvent(PlainName(athlete));
    return misfit;
  }
  const std::optional<int> age = AgeOf(athlete, rules.calc_date);
  if (age) CheckAges(athlete, {event.low_age, HighAge(event.high_age)}, *age, misfit);
  if (misfit.refusal || division == nullptr || !rules.division_of_event) return misfit;
  if (rules.division_by_birth) {
    if (athlete.birth_date != 0) CheckBirth(athlete, *division, misfit);
  } else if (age) {
    CheckAges(athlete, {division->division.low_age, HighAge(division->division.high_age)}, *age, misfit);
  }
  return misfit;
}

void EntryCounts::Add(const Event& event) {
  ++total;
  if (event.ind_rel == 'R') return;
  ++(event.trk_field == 'F' ? field : track);
}

std::optional<Notice> CheckLimits(const Athlete& athlete, const EntryCounts& counts,
                                  const EntryRules& rules) {
  const auto exceeds = [](int count, int most) { return most > 0 && count > most; };
  const std::string name = PlainName(athlete);
  if (exceeds(counts.total, rules.most_entries)) return TooManyEntries(name, rules.most_entries);
  if (exceeds(counts.track, rules.most_track)) return TooManyTrackEntries(name, rules.most_track);
  if (exceeds(counts.field, rules.most_field)) return TooManyFieldEntries(name, rules.most_field);
  return std::nullopt;
}

bool IsLeftUnseeded(const EntryCommon& entry, const Event& event, const EntryRules& rules) {
  const bool eligible = !entry.scr_stat && !entry.alt_stat && (!rules.declarations || entry.dec_stat == 'D');
  return eligible && IsRoundSeeded(event.event_stat, 1, event.event_rounds);
}

int RelayAge(std::span<const Athlete* const> members, int meet_class, double calc_date) {
  std::vector<int> ages;
  for (const Athlete* member : members) {
    if (const std::optional<int> age = AgeOf(*member, calc_date)) ages.push_back(*age);
  }
  if (ages.empty()) return 0;
  return meet_class == kMasters ? *std::min_element(ages.begin(), ages.end())
                                : *std::max_element(ages.begin(), ages.end());
}

}  // namespace tarvex::setup
