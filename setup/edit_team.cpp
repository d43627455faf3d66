#include "setup/edit_team.h"

#include <algorithm>

#include "database/identifier.h"
#include "setup/entry_lookup.h"
#include "setup/messages.h"

namespace tarvex::setup {
namespace {

using database::Meet;

class TeamEditor {
 public:
  TeamEditor(Meet& meet, RowTable<Team> table, std::vector<StoredTeam> teams)
      : meet_(meet), table_(std::move(table)), teams_(std::move(teams)) {}

  Outcome Add(std::string_view abbr, std::span<const FieldText> fields) {
    std::vector<FieldText> all(fields.begin(), fields.end());
    all.push_back({"Team_abbr", std::string(Trim(abbr))});
    Team team;
    team.guid = database::NewIdentifier(meet_.session().random_bits);
    return Store(nullptr, team, all);
  }

  Outcome Set(const StoredTeam& stored, std::span<const FieldText> fields) {
    return Store(&stored, stored.row, fields);
  }

  Outcome Delete(const StoredTeam& stored) {
    for (const std::string_view table : {"Athlete", "Relay"}) {
      const Expected<bool> used = HasRows(meet_, table, "Team_no", stored.row.team_no);
      if (!used.ok()) return used.status();
      if (*used) return Refusal{TeamHasAthletes()};
    }
    return InOneTransaction(meet_, "team",
                            [&](jet::Transaction& write) { return write.Delete(*table_.table, stored.id); });
  }

 private:
  Outcome Store(const StoredTeam* stored, Team team, std::span<const FieldText> fields) {
    auto values = database::ParseFields(*table_.table, fields);
    if (const Refusal* refusal = std::get_if<Refusal>(&values)) return *refusal;
    const auto more = ApplyFields(*table_.table, TeamFields(), team,
                                  std::move(std::get<std::vector<jet::FieldValue>>(values)));
    if (!stored) Complete(team);
    if (const auto failed = Check(team)) return Refusal{*failed};
    return InOneTransaction(meet_, "team", [&](jet::Transaction& write) -> Status {
      if (stored) return UpdateRow(write, *table_.table, table_.fields, *stored, team, more);
      return InsertRow(write, *table_.table, table_.fields, team, more).status();
    });
  }

  static void Complete(Team& team) {
    if (team.name.empty()) team.name = team.abbr;
    if (team.alt_abbr.empty()) team.alt_abbr = team.abbr;
  }

  std::optional<Notice> Check(const Team& team) const {
    if (Trim(team.abbr).empty()) return FieldRequired("Team_abbr");
    if (Trim(team.name).empty()) return FieldRequired("Team_name");
    const bool taken = std::any_of(teams_.begin(), teams_.end(), [&](const StoredTeam& other) {
      return other.row.team_no != team.team_no && SameText(other.row.abbr, team.abbr);
    });
    return taken ? std::optional(TeamAbbrTaken(team.abbr)) : std::nullopt;
  }

  Meet& meet_;
  RowTable<Team> table_;
  std::vector<StoredTeam> teams_;
};

}  // namespace

Outcome EditTeam(Meet& meet, Edit edit, std::string_view abbr, std::span<const FieldText> fields) {
  auto table = Teams(meet);
  if (!table.ok()) return table.status();
  auto teams = table->All();
  if (!teams.ok()) return teams.status();
  TeamEditor editor(meet, std::move(*table), std::move(*teams));
  if (edit == Edit::Add) return editor.Add(abbr, fields);
  const auto found = LookUpTeam(meet, abbr);
  if (!found.ok()) return found.status();
  if (const Notice* wrong = std::get_if<Notice>(&*found)) return Refusal{*wrong};
  const StoredTeam& stored = std::get<StoredTeam>(*found);
  return edit == Edit::Set ? editor.Set(stored, fields) : editor.Delete(stored);
}

}  // namespace tarvex::setup
