#include "setup/roster_store.h"

namespace tarvex::setup {
namespace {

using database::Binding;
using database::BoundFields;
using database::Meet;

template <class Row, class Base, class Member>
Binding<Row> Of(std::string_view name, Member Base::*member) {
  return {name, static_cast<Member Row::*>(member)};
}

template <class Row>
std::vector<Binding<Row>> CommonFields() {
  return {
      Of<Row>("Event_ptr", &EntryCommon::event_ptr),
      Of<Row>("ActSeed_course", &EntryCommon::actseed_course),
      Of<Row>("ActualSeed_time", &EntryCommon::actualseed_time),
      Of<Row>("ConvSeed_course", &EntryCommon::convseed_course),
      Of<Row>("ConvSeed_time", &EntryCommon::convseed_time),
      Of<Row>("Hand_time", &EntryCommon::hand_time),
      Of<Row>("Video_time", &EntryCommon::video_time),
      Of<Row>("Seed_place", &EntryCommon::seed_place),
      Of<Row>("Scr_stat", &EntryCommon::scr_stat),
      Of<Row>("Spec_stat", &EntryCommon::spec_stat),
      Of<Row>("Dec_stat", &EntryCommon::dec_stat),
      Of<Row>("Alt_stat", &EntryCommon::alt_stat),
      Of<Row>("Div_no", &EntryCommon::div_no),
      Of<Row>("entry_note", &EntryCommon::entry_note),
      Of<Row>("Conv_ltr", &EntryCommon::conv_ltr),
  };
}

template <class Row>
Expected<RowTable<Row>> Open(const Meet& meet, std::string_view name,
                             std::span<const Binding<Row>> bindings) {
  TRY_ASSIGN(jet::Table * table, meet.Table(name));
  TRY_ASSIGN(auto fields, BoundFields<Row>::Of(*table, bindings));
  return RowTable<Row>{table, std::move(fields)};
}

template <class Row>
const Row* Find(const std::unordered_map<int, Row>& rows, int key) {
  const auto found = rows.find(key);
  return found == rows.end() ? nullptr : &found->second;
}

}  // namespace

std::span<const Binding<Team>> TeamFields() {
  static const std::vector<Binding<Team>> fields = {
      {"Team_no", &Team::team_no},    {"Team_name", &Team::name},        {"Team_short", &Team::short_name},
      {"Team_abbr", &Team::abbr},     {"Team_altabbr", &Team::alt_abbr}, {"Team_stat", &Team::stat},
      {"Team_div", &Team::division},  {"Team_region", &Team::region},    {"Team_NoPoints", &Team::no_points},
      {"TeamGUID_strg", &Team::guid},
  };
  return fields;
}

std::span<const Binding<Athlete>> AthleteFields() {
  static const std::vector<Binding<Athlete>> fields = {
      {"Ath_no", &Athlete::ath_no},         {"Last_name", &Athlete::last_name},
      {"First_name", &Athlete::first_name}, {"Initial", &Athlete::initial},
      {"Pref_name", &Athlete::pref_name},   {"Ath_Sex", &Athlete::sex},
      {"Birth_date", &Athlete::birth_date}, {"Team_no", &Athlete::team_no},
      {"Schl_yr", &Athlete::schl_yr},       {"Ath_age", &Athlete::age},
      {"Reg_no", &Athlete::reg_no},         {"Ath_stat", &Athlete::stat},
      {"Div_no", &Athlete::div_no},         {"Comp_no", &Athlete::comp_no},
      {"athGUID_strg", &Athlete::guid},
  };
  return fields;
}

std::span<const Binding<Entry>> EntryFields() {
  static const std::vector<Binding<Entry>> fields = [] {
    auto all = CommonFields<Entry>();
    all.push_back({"Ath_no", &Entry::ath_no});
    all.push_back({"Team_age", &Entry::team_age});
    return all;
  }();
  return fields;
}

std::span<const Binding<Relay>> RelayFields() {
  static const std::vector<Binding<Relay>> fields = [] {
    auto all = CommonFields<Relay>();
    all.push_back({"Relay_no", &Relay::relay_no});
    all.push_back({"Team_no", &Relay::team_no});
    all.push_back({"Team_ltr", &Relay::team_ltr});
    all.push_back({"Rel_age", &Relay::rel_age});
    all.push_back({"Rel_sex", &Relay::rel_sex});
    all.push_back({"Relay_Compno", &Relay::relay_compno});
    return all;
  }();
  return fields;
}

std::span<const Binding<RelayName>> RelayNameFields() {
  static const std::vector<Binding<RelayName>> fields = {
      {"Event_ptr", &RelayName::event_ptr}, {"Team_no", &RelayName::team_no},
      {"Team_ltr", &RelayName::team_ltr},   {"Ath_no", &RelayName::ath_no},
      {"Pos_no", &RelayName::pos_no},       {"Event_round", &RelayName::event_round},
      {"Relay_no", &RelayName::relay_no},
  };
  return fields;
}

Expected<RowTable<Team>> Teams(const Meet& meet) {
  return Open(meet, "Team", TeamFields());
}
Expected<RowTable<Athlete>> Athletes(const Meet& meet) {
  return Open(meet, "Athlete", AthleteFields());
}
Expected<RowTable<Entry>> Entries(const Meet& meet) {
  return Open(meet, "Entry", EntryFields());
}
Expected<RowTable<Relay>> Relays(const Meet& meet) {
  return Open(meet, "Relay", RelayFields());
}
Expected<RowTable<RelayName>> RelayNames(const Meet& meet) {
  return Open(meet, "RelayNames", RelayNameFields());
}

const Team* Roster::team(int team_no) const {
  return Find(teams, team_no);
}
const Athlete* Roster::athlete(int ath_no) const {
  return Find(athletes, ath_no);
}
const Team* Roster::team_of(const Athlete* athlete) const {
  return athlete ? team(athlete->team_no) : nullptr;
}

Expected<Roster> LoadRoster(const Meet& meet) {
  Roster roster;
  TRY_ASSIGN(const auto team_table, Teams(meet));
  TRY_ASSIGN(const auto teams, team_table.All());
  for (const StoredTeam& stored : teams) roster.teams.emplace(stored.row.team_no, stored.row);
  TRY_ASSIGN(const auto athlete_table, Athletes(meet));
  TRY_ASSIGN(const auto athletes, athlete_table.All());
  for (const StoredAthlete& stored : athletes) roster.athletes.emplace(stored.row.ath_no, stored.row);
  return roster;
}

Expected<int> CountEntries(const Meet& meet, int event_ptr, bool is_relay) {
  TRY_ASSIGN(const jet::Table* table, meet.Table(is_relay ? "Relay" : "Entry"));
  const int index = table->Index(is_relay ? "relevtptr" : "entevtptr");
  if (index < 0) return Status{Fault::NotFound, "table " + table->name() + " lacks the index of its events"};
  const jet::Value key = int32_t{event_ptr};
  TRY_ASSIGN(const auto rows, table->Find(index, std::span(&key, 1)));
  return static_cast<int>(rows.size());
}

}  // namespace tarvex::setup
