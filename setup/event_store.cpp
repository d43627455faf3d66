#include "setup/event_store.h"

#include <algorithm>
#include <tuple>

#include "marks/settings.h"
#include "setup/edit_row.h"
#include "setup/event_name.h"
#include "setup/sex.h"

namespace tarvex::setup {
namespace {

using database::Binding;
using database::BoundFields;
using database::Meet;

// What stands in the table; Event itself has the alleys and formulas as arrays.
struct EventRow : Event {
  int alleys_1 = 0, alleys_2 = 0, alleys_3 = 0, alleys_4 = 0;
  int top_1 = 0, top_2 = 0, top_3 = 0;
  int next_1 = 0, next_2 = 0, next_3 = 0;
  int heats_1 = 0, heats_2 = 0, heats_3 = 0;
};

template <class Member>
Binding<EventRow> Field(std::string_view name, Member Event::*member) {
  return {name, static_cast<Member EventRow::*>(member)};
}

const std::vector<Binding<EventRow>>& EventFields() {
  static const std::vector<Binding<EventRow>> fields = {
      Field("Event_no", &Event::event_no),
      Field("Event_ltr", &Event::event_ltr),
      Field("Event_ptr", &Event::event_ptr),
      Field("Ind_rel", &Event::ind_rel),
      Field("Event_sex", &Event::event_sex),
      Field("Event_gender", &Event::event_gender),
      Field("Event_dist", &Event::event_dist),
      Field("Event_stroke", &Event::event_stroke),
      Field("Low_age", &Event::low_age),
      Field("High_Age", &Event::high_age),
      Field("Multi_age", &Event::multi_age),
      Field("Event_stat", &Event::event_stat),
      Field("Unseeded_stat", &Event::unseeded_stat),
      Field("Adv_How", &Event::adv_how),
      Field("Serp_Type", &Event::serp_type),
      Field("Trk_Field", &Event::trk_field),
      Field("Seed_Meas", &Event::seed_meas),
      Field("Res_Meas", &Event::res_meas),
      Field("Event_rounds", &Event::event_rounds),
      Field("Num_prelanes", &Event::num_prelanes),
      Field("Num_qtrlanes", &Event::num_qtrlanes),
      Field("Num_semlanes", &Event::num_semlanes),
      Field("Num_finlanes", &Event::num_finlanes),
      Field("Finals_setup", &Event::finals_setup),
      Field("Heats_infinal", &Event::heats_infinal),
      Field("Heats_insemi", &Event::heats_insemi),
      Field("Heats_inqtr", &Event::heats_inqtr),
      Field("Std_lanes", &Event::std_lanes),
      Field("Preheat_order", &Event::preheat_order),
      Field("Finheat_order", &Event::finheat_order),
      Field("Score_event", &Event::score_event),
      Field("Div_no", &Event::div_no),
      Field("Relay_size", &Event::relay_size),
      Field("Event_Type", &Event::event_type),
      Field("Event_Type2", &Event::event_type2),
      {"Rnd1_alleys", &EventRow::alleys_1},
      {"Rnd2_alleys", &EventRow::alleys_2},
      {"Rnd3_alleys", &EventRow::alleys_3},
      {"Rnd4_alleys", &EventRow::alleys_4},
      {"Top_no1", &EventRow::top_1},
      {"Next_Best1", &EventRow::next_1},
      {"Heatsin_Rnd1", &EventRow::heats_1},
      {"Top_no2", &EventRow::top_2},
      {"Next_Best2", &EventRow::next_2},
      {"Heatsin_Rnd2", &EventRow::heats_2},
      {"Top_no3", &EventRow::top_3},
      {"Next_Best3", &EventRow::next_3},
      {"Heatsin_Rnd3", &EventRow::heats_3},
  };
  return fields;
}

// A blank code means the first choice; how runners advance means place and time.
void ReplaceBlanks(Event& event) {
  const auto fill = [](char& code, char when_blank) {
    if (code == ' ') code = when_blank;
  };
  fill(event.std_lanes, '1');
  fill(event.serp_type, '1');
  fill(event.preheat_order, '1');
  fill(event.finheat_order, '1');
  fill(event.adv_how, event.trk_field == 'F' ? '1' : '2');
  fill(event.event_stat, 'U');
  fill(event.ind_rel, 'I');
  fill(event.finals_setup, 'A');
  fill(event.trk_field, 'T');
  fill(event.res_meas, 'M');
  fill(event.seed_meas, event.res_meas);
  event.event_gender = GenderOf(event.event_gender).value_or(GenderOf(event.event_sex).value_or('X'));
  event.high_age = HighAge(event.high_age);
  if (event.event_rounds < 1 || event.event_rounds > 4) event.event_rounds = 1;
}

Event EventOf(const EventRow& row) {
  Event event = row;
  event.rnd_alleys = {row.alleys_1, row.alleys_2, row.alleys_3, row.alleys_4};
  event.top_no = {row.top_1, row.top_2, row.top_3};
  event.next_best = {row.next_1, row.next_2, row.next_3};
  event.heatsin_rnd = {row.heats_1, row.heats_2, row.heats_3};
  return event;
}

EventRow RowOf(const Event& event) {
  EventRow row;
  static_cast<Event&>(row) = event;
  std::tie(row.alleys_1, row.alleys_2, row.alleys_3, row.alleys_4) =
      std::tie(event.rnd_alleys[0], event.rnd_alleys[1], event.rnd_alleys[2], event.rnd_alleys[3]);
  std::tie(row.top_1, row.top_2, row.top_3) = std::tie(event.top_no[0], event.top_no[1], event.top_no[2]);
  std::tie(row.next_1, row.next_2, row.next_3) =
      std::tie(event.next_best[0], event.next_best[1], event.next_best[2]);
  std::tie(row.heats_1, row.heats_2, row.heats_3) =
      std::tie(event.heatsin_rnd[0], event.heatsin_rnd[1], event.heatsin_rnd[2]);
  return row;
}

struct GroupRow {
  int low_age = 0;
  int high_age = 0;
  int event_ptr = 0;
};
const std::vector<Binding<GroupRow>> kGroupFields = {
    {"event_ptr", &GroupRow::event_ptr}, {"low_age", &GroupRow::low_age}, {"high_age", &GroupRow::high_age}};

struct DivisionRow {
  int div_no = 0;
  std::string div_name;
};
const std::vector<Binding<DivisionRow>> kDivisionFields = {{"Div_no", &DivisionRow::div_no},
                                                           {"Div_name", &DivisionRow::div_name}};

}  // namespace

Expected<std::vector<StoredEvent>> LoadEvents(const Meet& meet) {
  TRY_ASSIGN(const jet::Table* table, meet.Table("Event"));
  TRY_ASSIGN(const auto fields, BoundFields<EventRow>::Of(*table, EventFields()));
  TRY_ASSIGN(const auto rows, database::LoadAll(*table, fields));
  std::vector<StoredEvent> events;
  for (const auto& stored : rows) {
    events.push_back({stored.id, EventOf(stored.row)});
    ReplaceBlanks(events.back().row);
  }
  std::sort(events.begin(), events.end(), [](const StoredEvent& a, const StoredEvent& b) {
    return std::tie(a.row.event_no, a.row.event_ltr, a.row.event_ptr) <
           std::tie(b.row.event_no, b.row.event_ltr, b.row.event_ptr);
  });
  return events;
}

Expected<std::optional<StoredEvent>> FindEvent(const Meet& meet, const EventNumber& number) {
  TRY_ASSIGN(const auto events, LoadEvents(meet));
  for (const StoredEvent& event : events) {
    if (event.row.event_no == number.event_no && event.row.event_ltr == number.event_ltr) {
      return std::optional<StoredEvent>(event);
    }
  }
  return std::optional<StoredEvent>();
}

Expected<int> InsertEvent(jet::Transaction& write, const Meet& meet, const Event& event) {
  TRY_ASSIGN(jet::Table * table, meet.Table("Event"));
  TRY_ASSIGN(const auto fields, BoundFields<EventRow>::Of(*table, EventFields()));
  std::vector<jet::FieldValue> values = fields.Save(RowOf(event));
  // The engine numbers the event itself.
  const int counter = table->Column("Event_ptr");
  std::erase_if(values, [&](const jet::FieldValue& value) { return value.column == counter; });
  database::FillRest(*table, values);
  TRY_ASSIGN(const auto inserted, write.Insert(*table, values));
  return inserted.counter;
}

Status SaveEvent(jet::Transaction& write, const Meet& meet, const StoredEvent& stored, const Event& event) {
  TRY_ASSIGN(jet::Table * table, meet.Table("Event"));
  TRY_ASSIGN(const auto fields, BoundFields<EventRow>::Of(*table, EventFields()));
  const std::vector<jet::FieldValue> changes = fields.SaveChanges(RowOf(stored.row), RowOf(event));
  return changes.empty() ? Ok() : write.Update(*table, stored.id, changes);
}

std::vector<jet::FieldValue> ApplyEventFields(const jet::Table& table, Event& event,
                                              std::vector<jet::FieldValue> values) {
  EventRow row = RowOf(event);
  std::vector<jet::FieldValue> rest =
      ApplyFields<EventRow>(table, std::span<const Binding<EventRow>>(EventFields()), row, std::move(values));
  event = EventOf(row);
  return rest;
}

Expected<std::vector<AgeGroup>> LoadAgeGroups(const Meet& meet, int event_ptr) {
  TRY_ASSIGN(const jet::Table* table, meet.Table("Multiage"));
  TRY_ASSIGN(const auto fields, BoundFields<GroupRow>::Of(*table, kGroupFields));
  TRY_ASSIGN(const auto rows, database::LoadAll(*table, fields));
  std::vector<AgeGroup> groups;
  for (const auto& stored : rows) {
    if (stored.row.event_ptr == event_ptr)
      groups.push_back({stored.row.low_age, HighAge(stored.row.high_age)});
  }
  std::sort(groups.begin(), groups.end(),
            [](const AgeGroup& a, const AgeGroup& b) { return a.low_age < b.low_age; });
  return groups;
}

Expected<std::string> DivisionName(const Meet& meet, int div_no) {
  if (div_no == 0) return std::string();
  TRY_ASSIGN(const jet::Table* table, meet.Table("Divisions"));
  TRY_ASSIGN(const auto fields, BoundFields<DivisionRow>::Of(*table, kDivisionFields));
  TRY_ASSIGN(const auto rows, database::LoadAll(*table, fields));
  for (const auto& stored : rows) {
    if (stored.row.div_no == div_no) return stored.row.div_name;
  }
  return std::string();
}

Expected<std::string> NameOf(const Meet& meet, const Event& event) {
  TRY_ASSIGN(const std::string division, DivisionName(meet, event.div_no));
  NameSettings settings;
  settings.meet_type = marks::MeetTypeLetter(meet.settings().Meet_kind);
  settings.relays_show_total_distance = meet.settings().RelaysShow_TotalDistance;
  return EventName(event, settings, division);
}

}  // namespace tarvex::setup
