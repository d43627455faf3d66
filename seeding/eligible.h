#pragma once

namespace tarvex::seeding {

// The status fields of an entry or relay, of its athlete and of its team.
struct EntryStatus {
  bool scratched = false;  // scr_stat
  bool alternate = false;  // alt_stat
  char dec_stat = ' ';     // 'D' declared, 'N' declined
  char exh = ' ';          // the round's exhibition letter
  char ath_stat = ' ';     // 'X' exhibition athlete, '*' foreign athlete
  char team_stat = ' ';    // 'X' exhibition team
};

// Whether it is seeded into the first round. No mark is needed.
constexpr bool IsEligible(const EntryStatus& entry, bool uses_declarations) {
  return !entry.scratched && !entry.alternate && (!uses_declarations || entry.dec_stat == 'D');
}

constexpr bool IsForeign(const EntryStatus& entry) {
  return entry.ath_stat == '*';
}

constexpr bool IsExhibition(const EntryStatus& entry, bool foreign_is_exhibition) {
  return entry.exh == 'X' || entry.ath_stat == 'X' || entry.team_stat == 'X' ||
         (IsForeign(entry) && foreign_is_exhibition);
}

}  // namespace tarvex::seeding
