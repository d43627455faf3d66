#include "running/round_store.h"

#include <algorithm>

#include "database/settings.h"
#include "marks/kinds.h"
#include "running/groups.h"
#include "running/standards.h"
#include "scoring/points_table.h"
#include "setup/event_kind.h"

namespace tarvex::running {
namespace {

using database::Binding;
using database::BoundFields;
using database::Meet;

struct Source {
  jet::Table* table;
  BoundFields<RoundRow> fields;
};

const std::vector<Binding<RoundRow>>& CommonFields() {
  static const std::vector<Binding<RoundRow>> fields = {
      {"Div_no", &RoundRow::div_no},
      {"ActSeed_course", &RoundRow::actseed_course},
      {"ActualSeed_time", &RoundRow::actualseed_time},
      {"ConvSeed_time", &RoundRow::convseed_time},
      {"Spec_stat", &RoundRow::spec_stat},
      {"Scr_stat", &RoundRow::scratched},
      {"Ev_score", &RoundRow::ev_score},
      {"JDEv_score", &RoundRow::jdev_score},
      {"*heat", &RoundRow::heat},
      {"*lane", &RoundRow::lane},
      {"*time", &RoundRow::mark},
      {"*course", &RoundRow::course},
      {"*stat", &RoundRow::stat},
      {"*exh", &RoundRow::exh},
      {"*hand", &RoundRow::hand},
      {"*video", &RoundRow::video},
      {"*wind", &RoundRow::wind},
      {"*note", &RoundRow::note},
      {"*heatplace", &RoundRow::heatplace},
      {"*jdheatplace", &RoundRow::jdheatplace},
      {"*place", &RoundRow::place},
      {"*jdplace", &RoundRow::jdplace},
  };
  return fields;
}

Expected<Source> Open(const Meet& meet, bool is_relay, setup::Round round) {
  std::vector<Binding<RoundRow>> fields = CommonFields();
  if (round == setup::Round::Finals) fields.push_back({"Fin_ptsplace", &RoundRow::ptsplace});
  if (is_relay) {
    fields.push_back({"Relay_no", &RoundRow::id});
    fields.push_back({"Team_no", &RoundRow::team_no});
    fields.push_back({"Team_ltr", &RoundRow::team_ltr});
    fields.push_back({"Relay_Compno", &RoundRow::relay_compno});
    fields.push_back({"Rel_sex", &RoundRow::rel_sex});
    fields.push_back({"Rel_age", &RoundRow::age});
  } else {
    fields.push_back({"Ath_no", &RoundRow::id});
    fields.push_back({"Team_age", &RoundRow::age});
  }
  TRY_ASSIGN(jet::Table * table, meet.Table(is_relay ? "Relay" : "Entry"));
  TRY_ASSIGN(auto bound, BoundFields<RoundRow>::Of(*table, fields, setup::FieldPrefix(round)));
  return Source{table, std::move(bound)};
}

struct WindRow {
  int event_ptr = 0;
  int mult_ptr = 0;
  int heat = 0;
  char round = ' ';
  std::string wind;
};
const std::vector<Binding<WindRow>> kWindFields = {
    {"event_ptr", &WindRow::event_ptr}, {"Mult_ptr", &WindRow::mult_ptr}, {"Heat_no", &WindRow::heat},
    {"Rnd_ltr", &WindRow::round},       {"wind_reading", &WindRow::wind},
};

// The readings of an event's round; those of combined events' components are others'.
Expected<std::vector<database::Stored<WindRow>>> WindRows(const Meet& meet, int event_ptr,
                                                          setup::Round round) {
  TRY_ASSIGN(const jet::Table* table, meet.Table("Windreading"));
  TRY_ASSIGN(const auto fields, BoundFields<WindRow>::Of(*table, kWindFields));
  TRY_ASSIGN(auto rows, database::LoadBy(*table, fields, "wind", event_ptr));
  std::erase_if(rows, [&](const auto& stored) {
    return stored.row.round != Letter(round) || stored.row.mult_ptr != 0;
  });
  return rows;
}

}  // namespace

Expected<RoundData> LoadRound(const Meet& meet, const setup::StoredEvent& event, setup::Round round) {
  RoundData data;
  data.event = event;
  data.round = round;
  TRY_ASSIGN(const Source source, Open(meet, data.is_relay(), round));
  TRY_ASSIGN(data.stored, database::LoadBy(*source.table, source.fields,
                                           data.is_relay() ? "relevtptr" : "entevtptr", event.row.event_ptr));
  for (const StoredRoundRow& stored : data.stored) data.rows.push_back(stored.row);
  if (event.row.multi_age) {
    TRY_ASSIGN(data.age_groups, setup::LoadAgeGroups(meet, event.row.event_ptr));
  }
  return data;
}

Status SaveRound(jet::Transaction& write, const Meet& meet, const RoundData& data,
                 const setup::Event& event) {
  TRY_ASSIGN(const Source source, Open(meet, data.is_relay(), data.round));
  for (size_t i = 0; i < data.rows.size(); ++i) {
    TRY(database::SaveChanged(write, *source.table, source.fields, data.stored[i], data.rows[i]));
  }
  return setup::SaveEvent(write, meet, data.event, event);
}

Expected<std::vector<Result>> ResultsOf(const Meet& meet, const RoundData& data,
                                        const setup::Roster& roster) {
  const database::MeetSettings& settings = meet.settings();
  const setup::Event& event = data.event.row;
  Standards standards;
  if (settings.scoreonly_ifexceedqualtime && data.is_last_round()) {
    TRY_ASSIGN(standards, LoadScoringStandards(meet, event.event_ptr));
  }
  const GroupRules groups{settings.Meet_meettype, data.age_groups};
  const scoring::DivisionRules divisions{settings.Meet_meettype, settings.diffpts_eachdivision};
  std::vector<Result> results;
  for (const RoundRow& row : data.rows) {
    const setup::Athlete* athlete = data.is_relay() ? nullptr : roster.athlete(row.id);
    const setup::Team* team = data.is_relay() ? roster.team(row.team_no) : roster.team_of(athlete);
    const char sex = data.is_relay() ? row.rel_sex : athlete ? athlete->sex : ' ';
    const int age = row.age != 0 ? row.age : athlete ? athlete->age : 0;
    const int team_div = team ? team->division : 0;
    Result result;
    result.id = row.id;
    result.team_no = team ? team->team_no : 0;
    result.team_ltr = row.team_ltr;
    result.group = GroupOf(groups, {age, team_div, row.div_no});
    result.points_division = scoring::PointsDivision(divisions, event.div_no, team_div, row.div_no);
    result.points_sex = scoring::PointsSex(event.event_gender, sex);
    result.scratched = row.scratched;
    result.foreign = athlete && athlete->stat == '*';
    result.exhibition = row.exh == 'X' || row.stat == 'X' || (athlete && athlete->stat == 'X') ||
                        (team && team->stat == 'X') || (result.foreign && settings.foreign_treatasexhibition);
    result.time_trial = row.spec_stat == 'T';
    result.heat = row.heat;
    result.lane = row.lane;
    result.mark = row.mark;
    result.stat = row.stat;
    result.short_of_standard = !standards.IsMet(row.mark, sex, age, event.trk_field == 'F');
    result.heatplace = row.heatplace;
    result.place = row.place;
    result.jdheatplace = row.jdheatplace;
    result.jdplace = row.jdplace;
    result.ptsplace = row.ptsplace;
    result.ev_score = row.ev_score;
    result.jdev_score = row.jdev_score;
    results.push_back(result);
  }
  return results;
}

void TakeOver(const std::vector<Result>& results, RoundData& data) {
  for (size_t i = 0; i < results.size(); ++i) {
    RoundRow& row = data.rows[i];
    const Result& result = results[i];
    row.heatplace = result.heatplace;
    row.place = result.place;
    row.jdheatplace = result.jdheatplace;
    row.jdplace = result.jdplace;
    row.ptsplace = result.ptsplace;
    row.ev_score = result.ev_score;
    row.jdev_score = result.jdev_score;
  }
}

PlaceRules PlaceRulesOf(const database::MeetSettings& settings, const setup::Event& event,
                        setup::Round round) {
  PlaceRules rules;
  rules.field = event.trk_field == 'F';
  rules.unit = event.res_meas;
  rules.kind = event.event_stroke;
  rules.whole_inches = settings.rounddown_toevencentimeter;
  rules.last_round = round == setup::Round::Finals;
  rules.rank_exhibition = settings.exhibition_getfinalsrank;
  rules.exhibition_in_final = settings.exh_infinal;
  return rules;
}

Expected<std::vector<HeatWind>> LoadWinds(const Meet& meet, int event_ptr, setup::Round round) {
  TRY_ASSIGN(const auto rows, WindRows(meet, event_ptr, round));
  std::vector<HeatWind> winds;
  for (const auto& stored : rows) winds.push_back({stored.row.heat, stored.row.wind});
  return winds;
}

Status SaveWind(jet::Transaction& write, const Meet& meet, int event_ptr, setup::Round round, int heat,
                const std::string& wind) {
  TRY_ASSIGN(jet::Table * table, meet.Table("Windreading"));
  TRY_ASSIGN(const auto fields, BoundFields<WindRow>::Of(*table, kWindFields));
  TRY_ASSIGN(const auto rows, WindRows(meet, event_ptr, round));
  for (const auto& stored : rows) {
    if (stored.row.heat != heat) continue;
    WindRow changed = stored.row;
    changed.wind = wind;
    return database::SaveChanged(write, *table, fields, stored, changed);
  }
  return write.Insert(*table, fields.Save({event_ptr, 0, heat, Letter(round), wind})).status();
}

Status DeleteWinds(jet::Transaction& write, const Meet& meet, int event_ptr, setup::Round round) {
  TRY_ASSIGN(jet::Table * table, meet.Table("Windreading"));
  TRY_ASSIGN(const auto rows, WindRows(meet, event_ptr, round));
  for (const auto& stored : rows) TRY(write.Delete(*table, stored.id));
  return Ok();
}

}  // namespace tarvex::running
