#include "setup/entry_lookup.h"

#include "base/text.h"
#include "setup/messages.h"
#include "setup/sex.h"

namespace tarvex::setup {
namespace {

using database::Meet;

// The one row that fits.
template <class Row, class Fits>
Lookup<Row> OnlyOne(const std::vector<Row>& rows, std::string_view key, Fits fits) {
  const Row* found = nullptr;
  for (const Row& row : rows) {
    if (!fits(row)) continue;
    if (found) return SeveralFound(key);
    found = &row;
  }
  if (!found) return NotFound(key);
  return *found;
}

bool HasKey(const Athlete& athlete, const AthleteKey& key) {
  return key.comp_no != 0 ? athlete.comp_no == key.comp_no : athlete.ath_no == key.ath_no;
}

}  // namespace

Expected<Lookup<StoredEvent>> LookUpEvent(const Meet& meet, std::string_view key) {
  const std::variant<EventNumber, Notice> number = ReadEventNumber(key);
  if (const Notice* wrong = std::get_if<Notice>(&number)) return Lookup<StoredEvent>(*wrong);
  TRY_ASSIGN(const auto found, FindEvent(meet, std::get<EventNumber>(number)));
  return found ? Lookup<StoredEvent>(*found) : Lookup<StoredEvent>(NotFound(key));
}

Expected<Lookup<StoredTeam>> LookUpTeam(const Meet& meet, std::string_view abbr) {
  TRY_ASSIGN(const auto table, Teams(meet));
  TRY_ASSIGN(const auto teams, table.All());
  auto found = OnlyOne(teams, abbr, [&](const StoredTeam& team) { return SameText(team.row.abbr, abbr); });
  if (std::holds_alternative<StoredTeam>(found)) return found;
  // The unattached have the alternate one only.
  return OnlyOne(teams, abbr, [&](const StoredTeam& team) {
    return team.row.abbr.empty() && SameText(team.row.alt_abbr, abbr);
  });
}

Expected<Lookup<StoredAthlete>> LookUpAthlete(const Meet& meet, std::string_view key, char gender) {
  const std::optional<AthleteKey> parsed = ParseAthleteKey(key);
  if (!parsed) return Lookup<StoredAthlete>(UnreadableKey(key));
  TRY_ASSIGN(const auto table, Athletes(meet));
  TRY_ASSIGN(const auto athletes, table.All());
  auto found = OnlyOne(athletes, key, [&](const StoredAthlete& athlete) {
    return HasKey(athlete.row, *parsed) && FitsGender(athlete.row.sex, gender);
  });
  if (std::holds_alternative<StoredAthlete>(found)) return found;
  // Somebody of the other sex is found too, so that the caller can say that he does not fit.
  return OnlyOne(athletes, key, [&](const StoredAthlete& athlete) { return HasKey(athlete.row, *parsed); });
}

Expected<Lookup<StoredImportedEntry>> LookUpEntry(const Meet& meet, const Event& event,
                                                  std::string_view key) {
  TRY_ASSIGN(const auto athlete, LookUpAthlete(meet, key, event.event_gender));
  if (const Notice* wrong = std::get_if<Notice>(&athlete)) return Lookup<StoredImportedEntry>(*wrong);
  TRY_ASSIGN(const auto table, ImportedEntries(meet));
  TRY_ASSIGN(const auto entries, table.By("entevtptr", event.event_ptr));
  const int ath_no = std::get<StoredAthlete>(athlete).row.ath_no;
  return OnlyOne(entries, key, [&](const StoredImportedEntry& entry) { return entry.row.ath_no == ath_no; });
}

Expected<Lookup<StoredImportedRelay>> LookUpRelay(const Meet& meet, const Event& event,
                                                  std::string_view key) {
  const std::optional<RelayKey> parsed = ParseRelayKey(key);
  if (!parsed) return Lookup<StoredImportedRelay>(UnreadableKey(key));
  TRY_ASSIGN(const auto team, LookUpTeam(meet, parsed->team_abbr));
  if (const Notice* wrong = std::get_if<Notice>(&team)) return Lookup<StoredImportedRelay>(*wrong);
  TRY_ASSIGN(const auto table, ImportedRelays(meet));
  TRY_ASSIGN(const auto relays, table.By("relevtptr", event.event_ptr));
  const int team_no = std::get<StoredTeam>(team).row.team_no;
  return OnlyOne(relays, key, [&](const StoredImportedRelay& relay) {
    return relay.row.team_no == team_no && SameText(RelayLetter(relay.row.team_ltr), parsed->team_ltr);
  });
}

Expected<Lookup<int>> LookUpEntrant(const Meet& meet, const Event& event, std::string_view key) {
  if (event.ind_rel == 'R') {
    TRY_ASSIGN(const auto relay, LookUpRelay(meet, event, key));
    if (const Notice* wrong = std::get_if<Notice>(&relay)) return Lookup<int>(*wrong);
    return Lookup<int>(std::get<StoredImportedRelay>(relay).row.relay_no);
  }
  TRY_ASSIGN(const auto entry, LookUpEntry(meet, event, key));
  if (const Notice* wrong = std::get_if<Notice>(&entry)) return Lookup<int>(*wrong);
  return Lookup<int>(std::get<StoredImportedEntry>(entry).row.ath_no);
}

}  // namespace tarvex::setup
