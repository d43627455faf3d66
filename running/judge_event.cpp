#include "running/judge_event.h"

#include <algorithm>

#include "base/text.h"
#include "running/judges.h"
#include "running/messages.h"
#include "running/place_round.h"
#include "running/round_store.h"
#include "setup/entry_key.h"
#include "setup/event_name.h"

namespace tarvex::running {
namespace {

using database::Meet;

// The row that a key names; null when there is none.
const RoundRow* FindRow(const RoundData& data, const setup::Roster& roster, const std::string& key) {
  const auto parsed = setup::ParseEntrantKey(key);
  if (!parsed) return nullptr;
  const auto found = std::find_if(data.rows.begin(), data.rows.end(), [&](const RoundRow& row) {
    if (const auto* relay = std::get_if<setup::RelayKey>(&*parsed)) {
      const setup::Team* team = roster.team(row.team_no);
      const std::string letter(1, row.team_ltr == ' ' ? 'A' : row.team_ltr);
      return data.is_relay() && team && SameText(team->abbr, relay->team_abbr) &&
             SameText(letter, relay->team_ltr);
    }
    const auto& wanted = std::get<setup::AthleteKey>(*parsed);
    if (data.is_relay()) return wanted.comp_no != 0 && row.relay_compno == wanted.comp_no;
    const setup::Athlete* athlete = roster.athlete(row.id);
    return wanted.comp_no != 0 ? athlete && athlete->comp_no == wanted.comp_no : row.id == wanted.ath_no;
  });
  return found == data.rows.end() ? nullptr : &*found;
}

// Writes one decision into its result; the notice says which cell is refused.
std::optional<Notice> Apply(const Decision& decision, std::vector<Result>& results, Result& result,
                            bool is_final) {
  if (decision.place) {
    const auto read = ReadJdPlace(*decision.place, CountPlaceable(results));
    if (const auto* notice = std::get_if<Notice>(&read)) return *notice;
    result.jdplace = std::get<int>(read);
  }
  if (decision.heat_place) {
    const auto read = ReadJdHeatPlace(*decision.heat_place, CountInHeat(results, result.heat));
    if (const auto* notice = std::get_if<Notice>(&read)) return *notice;
    result.jdheatplace = std::get<int>(read);
  }
  if (decision.points) {
    if (!is_final) return JdPointsOnlyInFinals();
    const auto read = ReadJdPoints(*decision.points);
    if (const auto* notice = std::get_if<Notice>(&read)) return *notice;
    result.jdev_score = std::get<float>(read);
  }
  return std::nullopt;
}

}  // namespace

Outcome JudgeEvent(Meet& meet, const setup::StoredEvent& event, setup::Round round, bool reset,
                   std::span<const Decision> decisions) {
  if (setup::RoundNumber(round, event.row.event_rounds) == 0) {
    return Refusal{NotTheRoundBeingRun(setup::EventLabel(event.row), setup::RoundName(round))};
  }
  auto roster = setup::LoadRoster(meet);
  if (!roster.ok()) return roster.status();
  auto data = LoadRound(meet, event, round);
  if (!data.ok()) return data.status();
  auto results = ResultsOf(meet, *data, *roster);
  if (!results.ok()) return results.status();
  if (auto refusal = CheckJudgesGrid(*results)) return Refusal{*refusal};
  if (reset) ResetDecisions(*results);
  for (const Decision& decision : decisions) {
    const RoundRow* row = FindRow(*data, *roster, decision.key);
    if (!row) return Refusal{NoSuchEntry(decision.key)};
    Result& result = (*results)[static_cast<size_t>(row - data->rows.data())];
    if (auto refusal = Apply(decision, *results, result, data->is_last_round())) return Refusal{*refusal};
  }
  PlaceRound(meet.settings(), *data, *results);
  TakeOver(*results, *data);
  const auto save = [&]() -> Status {
    TRY_ASSIGN(const auto write, meet.Begin("jd"));
    TRY(SaveRound(*write, meet, *data, event.row));
    return write->Commit();
  };
  if (Status status = save(); !status.ok()) return status;
  return Done{};
}

}  // namespace tarvex::running
