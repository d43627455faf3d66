#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>

#include "base/decimal.h"
#include "database/date.h"
#include "marks/format.h"
#include "reports/entries.h"
#include "running/round_store.h"
#include "setup/division_store.h"
#include "setup/event_kind.h"
#include "setup/names.h"

namespace tarvex::reports {
namespace {

using database::Meet;
using setup::Event;

// What turns the rows of an event's entries into lines.
struct Context {
  const Event& event;
  const setup::Roster& roster;
  setup::NameStyle names;
  marks::MarkSettings marks;
  std::map<int, std::string> division_codes;
  std::unordered_map<int, bool> exhibition;  // by ath_no or relay_no, in the first round
};

std::string LetterText(char letter) {
  return letter == ' ' ? "" : std::string(1, letter);
}

// Seeds of combined events are points.
std::string MarkText(float value, char unit, const Context& context) {
  const Event& event = context.event;
  if (marks::IsCombinedKind(event.event_stroke)) return value > 0 ? ShortText(value) : "";
  const char status = value > 0 ? ' ' : 'N';
  if (!setup::IsFieldEvent(event)) return marks::FormatTime(value, status, false, context.marks);
  return marks::FormatMark(value, status, 'F', unit, event.event_stroke, {}, context.marks);
}

std::string TypedSeed(const setup::EntryCommon& entry, char unit, const Context& context) {
  if (entry.actualseed_time <= 0) return "";
  const std::string suffix = entry.hand_time ? "H" : entry.video_time ? "A" : "";
  return MarkText(entry.actualseed_time, unit, context) +
         (setup::IsRunningEvent(context.event) ? suffix : "");
}

void TakeCommon(const setup::EntryCommon& entry, const Context& context, EntryLine& line) {
  const Event& event = context.event;
  const char unit = entry.actseed_course == ' ' ? event.seed_meas : entry.actseed_course;
  line.mark = entry.convseed_time;
  line.scratched = entry.scr_stat;
  line.typed_seed = TypedSeed(entry, unit, context);
  if (!line.typed_seed.empty()) line.seed_unit = LetterText(unit);
  if (const auto found = context.exhibition.find(line.id); found != context.exhibition.end()) {
    line.exhibition = found->second;
  }
  line.seed_text = marks::SeedExhibitionPrefix(line.exhibition && line.mark > 0, context.marks) +
                   MarkText(line.mark, event.res_meas, context);
  if (const auto code = context.division_codes.find(entry.div_no); code != context.division_codes.end()) {
    line.division = code->second;
  }
}

void TakeTeam(const setup::Team* team, EntryLine& line) {
  if (!team) return;
  line.team_abbr = team->abbr;
  line.team_name = team->name;
}

EntryLine LineOf(const setup::Entry& entry, const Context& context) {
  EntryLine line;
  line.id = entry.ath_no;
  TakeCommon(entry, context, line);
  const setup::Athlete* athlete = context.roster.athlete(entry.ath_no);
  if (!athlete) return line;
  line.comp_no = athlete->comp_no;
  line.name = setup::AthleteName(*athlete, context.names);
  line.last_name = athlete->last_name;
  line.first_name = athlete->first_name;
  line.sex = LetterText(athlete->sex);
  if (athlete->birth_date != 0) line.birth_date = database::IsoText(database::WholeDay(athlete->birth_date));
  line.age = entry.team_age != 0 ? entry.team_age : athlete->age;
  line.schl_yr = athlete->schl_yr;
  TakeTeam(context.roster.team_of(athlete), line);
  return line;
}

EntryLine LineOf(const setup::Relay& relay, const Context& context) {
  EntryLine line;
  line.id = relay.relay_no;
  TakeCommon(relay, context, line);
  line.comp_no = relay.relay_compno;
  line.age = relay.rel_age;
  line.relay_ltr = relay.team_ltr;
  const setup::Team* team = context.roster.team(relay.team_no);
  if (team) line.name = setup::NameOfRelay(*team, relay.team_ltr, context.names);
  TakeTeam(team, line);
  return line;
}

// Runners are stored for every round; a leg counts once.
Status AddRunners(const Meet& meet, const Context& context, std::vector<EntryLine>& lines) {
  TRY_ASSIGN(const auto table, setup::RelayNames(meet));
  TRY_ASSIGN(const auto rows, table.By("relnamevtptr", context.event.event_ptr));
  std::map<std::pair<int, int>, int> runner_of_leg;  // by relay_no and leg: ath_no
  for (const auto& stored : rows)
    runner_of_leg.try_emplace({stored.row.relay_no, stored.row.pos_no}, stored.row.ath_no);
  for (EntryLine& line : lines) {
    const auto end = runner_of_leg.lower_bound({line.id + 1, 0});
    for (auto leg = runner_of_leg.lower_bound({line.id, 0}); leg != end; ++leg) {
      const setup::Athlete* athlete = context.roster.athlete(leg->second);
      if (!athlete) continue;
      line.runners.push_back(setup::AthleteName(*athlete, context.names));
      line.legs.push_back(setup::PlainName(*athlete));
    }
  }
  return Ok();
}

Expected<Context> LoadContext(const Meet& meet, const setup::StoredEvent& event,
                              const setup::Roster& roster) {
  Context context{event.row, roster, {}, meet.mark_settings(), {}, {}};
  TRY_ASSIGN(context.names, setup::LoadNameStyle(meet));
  TRY_ASSIGN(const auto divisions, setup::LoadDivisions(meet));
  for (const auto& stored : divisions) context.division_codes[stored.row.div_no] = stored.row.div_abbr;
  const std::optional<setup::Round> first = setup::RoundByNumber(1, event.row.event_rounds);
  if (!first) return context;
  TRY_ASSIGN(const running::RoundData data, running::LoadRound(meet, event, *first));
  for (const running::RoundRow& row : data.rows) context.exhibition[row.id] = row.exh == 'X';
  return context;
}

}  // namespace

Expected<EventEntries> LoadEventEntries(const Meet& meet, const setup::StoredEvent& event,
                                        const setup::Roster& roster) {
  EventEntries entries;
  entries.event = event.row;
  entries.is_relay = event.row.ind_rel == 'R';
  TRY_ASSIGN(entries.name, setup::NameOf(meet, event.row));
  TRY_ASSIGN(const Context context, LoadContext(meet, event, roster));
  if (entries.is_relay) {
    TRY_ASSIGN(const auto table, setup::Relays(meet));
    TRY_ASSIGN(const auto rows, table.By("relevtptr", event.row.event_ptr));
    for (const auto& stored : rows) entries.lines.push_back(LineOf(stored.row, context));
    TRY(AddRunners(meet, context, entries.lines));
  } else {
    TRY_ASSIGN(const auto table, setup::Entries(meet));
    TRY_ASSIGN(const auto rows, table.By("entevtptr", event.row.event_ptr));
    for (const auto& stored : rows) entries.lines.push_back(LineOf(stored.row, context));
  }
  return entries;
}

}  // namespace tarvex::reports
