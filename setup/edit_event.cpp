#include "setup/edit_event.h"

#include "setup/division_store.h"
#include "setup/entry_lookup.h"
#include "setup/event_kind.h"
#include "setup/event_proposal.h"
#include "setup/messages.h"
#include "setup/rounds.h"
#include "setup/sex.h"

namespace tarvex::setup {
namespace {

using database::Meet;

bool IsRelayByKind(char meet_type, char kind) {
  return meet_type == 'W' ? kind == 'W' : meet_type == 'T' && marks::IsOneOf(kind, "WXYZ");
}

// The sex of its name and of those who compete follow each other; the last one given wins.
void MatchSexes(Event& event, std::span<const FieldText> fields, int meet_class) {
  if (IsGiven(fields, "Event_gender")) {
    event.event_gender = GenderOf(event.event_gender).value_or(event.event_gender);
    if (!IsGiven(fields, "Event_sex")) {
      event.event_sex = ProposedSex(event.event_gender, meet_class, HighAge(event.high_age));
    }
  } else if (IsGiven(fields, "Event_sex")) {
    event.event_gender = GenderOf(event.event_sex).value_or(event.event_gender);
  }
}

// The number of final sections that the finals setting says; one round has no setting.
void MatchFinals(Event& event) {
  if (event.event_rounds == 1) {
    event.finals_setup = 'A';
    event.heats_infinal = 0;
  } else if (event.finals_setup == 'B') {
    event.heats_infinal = 2;
  } else if (event.finals_setup != 'C') {
    event.heats_infinal = 1;
  }
}

std::optional<Notice> CheckSexes(const Event& event) {
  if (!GenderOf(event.event_gender)) return FieldInvalid("Event_gender");
  const std::optional<char> named = GenderOf(event.event_sex);
  return named == event.event_gender ? std::nullopt : std::optional(FieldInvalid("Event_sex"));
}

// What the checks look at beside the event.
struct Surroundings {
  std::vector<EventNumber> numbers;
  std::vector<AgeGroup> age_groups;
  bool has_entries = false;
};

Expected<Surroundings> LoadSurroundings(const Meet& meet, const StoredEvent* stored) {
  Surroundings around;
  TRY_ASSIGN(const auto events, LoadEvents(meet));
  for (const StoredEvent& event : events) {
    const bool itself = stored && event.row.event_ptr == stored->row.event_ptr;
    if (!itself) around.numbers.push_back({event.row.event_no, event.row.event_ltr});
  }
  if (!stored) return around;
  TRY_ASSIGN(around.age_groups, LoadAgeGroups(meet, stored->row.event_ptr));
  TRY_ASSIGN(const int entries, CountEntries(meet, stored->row.event_ptr, stored->row.ind_rel == 'R'));
  around.has_entries = entries > 0;
  return around;
}

std::optional<Notice> Check(const Meet& meet, const Event& event, const StoredEvent* stored,
                            const Surroundings& around) {
  if (const auto failed = CheckSexes(event)) return failed;
  EventForm form;
  form.event = event;
  form.cross_country = event.event_type == 'C';
  form.road_race = event.event_type == 'R';
  form.age_groups = around.age_groups;
  form.meet_type = marks::MeetTypeLetter(meet.settings().Meet_kind);
  form.random_select = meet.settings().random_select;
  form.other_events = around.numbers;
  form.before = stored ? &stored->row : nullptr;
  form.has_entries = around.has_entries;
  return CheckEvent(form);
}

// The proposal for what the fields say, with the fields on top of it.
Event Proposed(const Meet& meet, const jet::Table& table, const std::vector<jet::FieldValue>& values,
               std::span<const FieldText> fields) {
  const MeetDefaults defaults = DefaultsOf(meet.settings());
  Event given;
  ApplyEventFields(table, given, values);
  MatchSexes(given, fields, defaults.meet_class);
  EventRequest request;
  request.gender = given.event_gender;
  request.kind = given.event_stroke;
  request.distance = given.event_dist;
  request.relay = IsGiven(fields, "Ind_rel") ? given.ind_rel == 'R'
                                             : IsRelayByKind(defaults.meet_type, given.event_stroke);
  if (given.relay_size > 0) request.relay_size = given.relay_size;
  if (IsGiven(fields, "Trk_Field")) request.trk_field = given.trk_field;
  request.low_age = given.low_age;
  request.high_age = HighAge(given.high_age);
  return ProposeEvent(request, defaults);
}

template <class Row>
Status ConvertAll(jet::Transaction& write, const RowTable<Row>& table, const Event& event,
                  const ConversionRules& rules, const marks::MarkSettings& settings, std::string_view index) {
  TRY_ASSIGN(const auto rows, table.By(index, event.event_ptr));
  for (const auto& stored : rows) {
    Row row = stored.row;
    ConvertSeedOf(row, event, rules, settings);
    TRY(table.Save(write, stored, row));
  }
  return Ok();
}

Status ConvertSeeds(jet::Transaction& write, const Meet& meet, const Event& event) {
  const marks::MarkSettings settings = meet.mark_settings();
  TRY_ASSIGN(const auto rules, LoadConversions(meet));
  TRY_ASSIGN(const auto entries, Entries(meet));
  TRY(ConvertAll(write, entries, event, rules, settings, "entevtptr"));
  TRY_ASSIGN(const auto relays, Relays(meet));
  return ConvertAll(write, relays, event, rules, settings, "relevtptr");
}

// The values that Event does not know go to the row of this event.
Status WriteMore(jet::Transaction& write, jet::Table& table, int event_ptr,
                 const std::vector<jet::FieldValue>& more) {
  if (more.empty()) return Ok();
  const jet::Value key = int32_t{event_ptr};
  TRY_ASSIGN(const jet::RowId row, table.FindFirst(table.Index("eventptr"), std::span(&key, 1)));
  return write.Update(table, row, more);
}

// `stored` null: the event is new and has `number`.
Outcome Store(Meet& meet, const StoredEvent* stored, const EventNumber& number,
              std::span<const FieldText> fields) {
  if (const auto fixed = FirstGiven(fields, {"Event_stat", "Unseeded_stat"}))
    return Refusal{FieldNotEditable(*fixed)};
  const auto table = meet.Table("Event");
  if (!table.ok()) return table.status();
  const auto parsed = database::ParseFields(**table, fields);
  if (const Refusal* refusal = std::get_if<Refusal>(&parsed)) return *refusal;
  const auto& values = std::get<std::vector<jet::FieldValue>>(parsed);
  Event event = stored ? stored->row : Proposed(meet, **table, values, fields);
  if (!stored) {
    event.event_no = number.event_no;
    event.event_ltr = number.event_ltr;
  }
  const auto more = ApplyEventFields(**table, event, values);
  event.event_ltr = Upper(Trim(event.event_ltr));
  MatchSexes(event, fields, meet.settings().Meet_class);
  MatchFinals(event);
  const auto around = LoadSurroundings(meet, stored);
  if (!around.ok()) return around.status();
  if (!stored && event.event_stroke == ' ') return Refusal{FieldRequired("Event_stroke")};
  if (const auto failed = Check(meet, event, stored, *around)) return Refusal{*failed};
  return InOneTransaction(meet, "event", [&](jet::Transaction& write) -> Status {
    if (stored) {
      TRY(SaveEvent(write, meet, *stored, event));
      TRY(WriteMore(write, **table, event.event_ptr, more));
      return ConvertSeeds(write, meet, event);
    }
    TRY_ASSIGN(const int event_ptr, InsertEvent(write, meet, event));
    return WriteMore(write, **table, event_ptr, more);
  });
}

Outcome Delete(Meet& meet, const StoredEvent& stored) {
  for (const bool relays : {false, true}) {
    const auto count = CountEntries(meet, stored.row.event_ptr, relays);
    if (!count.ok()) return count.status();
    if (*count > 0) return Refusal{EventHasEntries()};
  }
  const auto table = meet.Table("Event");
  if (!table.ok()) return table.status();
  return InOneTransaction(meet, "event", [&](jet::Transaction& write) -> Status {
    for (const std::string_view name : {"Sessitem", "Multiage", "Conversions"}) {
      TRY(DeleteRows(write, meet, name, "Event_ptr", stored.row.event_ptr));
    }
    return write.Delete(**table, stored.id);
  });
}

}  // namespace

Outcome EditEvent(Meet& meet, Edit edit, std::string_view number, std::span<const FieldText> fields) {
  if (edit == Edit::Add) {
    const auto parsed = ReadEventNumber(number);
    if (const Notice* wrong = std::get_if<Notice>(&parsed)) return Refusal{*wrong};
    return Store(meet, nullptr, std::get<EventNumber>(parsed), fields);
  }
  const auto found = LookUpEvent(meet, number);
  if (!found.ok()) return found.status();
  if (const Notice* wrong = std::get_if<Notice>(&*found)) return Refusal{*wrong};
  const StoredEvent& stored = std::get<StoredEvent>(*found);
  return edit == Edit::Delete ? Delete(meet, stored) : Store(meet, &stored, {}, fields);
}

}  // namespace tarvex::setup
