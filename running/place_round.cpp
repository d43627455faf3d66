#include "running/place_round.h"

#include "setup/event_status.h"

namespace tarvex::running {

std::variant<ScorerRules, Notice> ScorerRulesOf(const database::MeetSettings& settings, const RoundData& data,
                                                const std::vector<Result>& results) {
  const setup::Event& event = data.event.row;
  ScorerRules rules;
  rules.relay = data.is_relay();
  rules.foreign_score = settings.foreign_getteampoints;
  rules.only_a_relays = settings.score_Arelayonly;
  rules.most_per_team = rules.relay ? settings.relmaxscorers_perteam : settings.indmaxscorers_perteam;
  rules.fastest_heat_only = settings.score_fastestheatonly;
  if (!rules.fastest_heat_only) return rules;
  const FastestHeatFacts facts{setup::HeatOrder(event, data.round), event.multi_age,
                               settings.Meet_meettype != 1};
  const auto heat = FastestHeat(results, facts);
  if (const auto* notice = std::get_if<Notice>(&heat)) return *notice;
  rules.fastest_heat = std::get<int>(heat);
  return rules;
}

void PlaceRound(const database::MeetSettings& settings, const RoundData& data, std::vector<Result>& results) {
  PlaceResults(results, PlaceRulesOf(settings, data.event.row, data.round));
  if (!data.is_last_round()) return;
  const auto rules = ScorerRulesOf(settings, data, results);
  if (const auto* known = std::get_if<ScorerRules>(&rules)) {
    AssignPointsPlaces(results, *known);
  } else {
    for (Result& result : results) result.ptsplace = 0;
  }
}

char StatusAfterResults(const RoundData& data, const std::vector<Result>& results) {
  const int number = setup::RoundNumber(data.round, data.event.row.event_rounds);
  return IsRoundComplete(results) ? setup::DoneStatus(number) : setup::SeededStatus(number);
}

}  // namespace tarvex::running
