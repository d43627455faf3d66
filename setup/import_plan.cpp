#include "setup/import_plan.h"

#include <algorithm>
#include <set>
#include <unordered_map>

#include "base/text.h"
#include "setup/event_name.h"
#include "setup/import_match.h"
#include "setup/messages.h"
#include "setup/names.h"

namespace tarvex::setup {
namespace {

using Column = ImportColumn;

constexpr int kDivisionsByEvent = 2;
constexpr int kDivisionsByTeam = 3;

uint64_t PairKey(int event_ptr, int number) {
  return static_cast<uint64_t>(static_cast<uint32_t>(event_ptr)) << 32 | static_cast<uint32_t>(number);
}

std::string RelayKeyOf(int event_ptr, int team_no, std::string_view letter) {
  return std::to_string(event_ptr) + ' ' + std::to_string(team_no) + ' ' +
         Upper(RelayLetter(std::string(letter)));
}

// The questions of one row, put with those of all others when the row turns out to be sound.
struct RowQuestions {
  std::vector<std::string> out_of_range, age_ups, over_limits;
};

class Planner {
 public:
  Planner(ImportState meet, const ImportContext& context)
      : plan_(PlanOf(std::move(meet))), context_(context), roster_(plan_.state, context) {
    IndexMeet();
  }

  ImportPlan Plan(const ImportRows& rows) {
    plan_.faults = rows.faults;
    std::vector<Match<size_t>> events = EventMatcher(plan_.state, context_).MatchAll(rows.rows);
    event_used_.resize(plan_.state.events.size());
    for (const bool relays : {false, true}) {
      for (size_t i = 0; i < rows.rows.size(); ++i) {
        if (rows.rows[i].is_relay() == relays) PlanRow(rows.rows[i], events[i]);
      }
    }
    Finish();
    return std::move(plan_);
  }

 private:
  using Result = Match<Fate>;

  static ImportPlan PlanOf(ImportState meet) {
    ImportPlan plan;
    plan.state = std::move(meet);
    return plan;
  }
  ImportState& state() { return plan_.state; }

  void IndexMeet() {
    for (const Event& event : state().events)
      events_by_ptr_[event.event_ptr] = &event - state().events.data();
    for (size_t i = 0; i < state().entries.size(); ++i) {
      const ImportedEntry& entry = state().entries[i];
      entries_.emplace(PairKey(entry.event_ptr, entry.ath_no), i);
      CountEntry(entry.event_ptr, entry.ath_no);
    }
    for (size_t i = 0; i < state().relays.size(); ++i) {
      const ImportedRelay& relay = state().relays[i];
      relays_.emplace(RelayKeyOf(relay.event_ptr, relay.team_no, relay.team_ltr), i);
    }
    for (size_t i = 0; i < state().names.size(); ++i) NoteRunner(i);
  }

  void CountEntry(int event_ptr, int ath_no) {
    if (const auto event = events_by_ptr_.find(event_ptr); event != events_by_ptr_.end()) {
      counts_[ath_no].Add(state().events[static_cast<size_t>(event->second)]);
    }
  }

  // A runner is in the relay once, however many rounds it has.
  void NoteRunner(size_t at) {
    const RelayName& name = state().names[at];
    names_.emplace(name.relay_no, at);
    const auto [place, is_new] = runs_for_.emplace(PairKey(name.event_ptr, name.ath_no), name.relay_no);
    if (is_new) CountEntry(name.event_ptr, name.ath_no);
  }

  void PlanRow(const ImportRow& row, const Match<size_t>& event) {
    questions_ = {};
    Result result = Fate::Fault;
    if (const RowFault* fault = std::get_if<RowFault>(&event)) {
      result = *fault;
    } else {
      const size_t at = std::get<size_t>(event);
      result = row.is_relay() ? PlanRelay(row, at) : PlanEntry(row, at);
      if (std::holds_alternative<Fate>(result)) event_used_[at] = true;
    }
    if (const RowFault* fault = std::get_if<RowFault>(&result)) {
      plan_.faults.push_back(FaultAt(row.line, *fault));
      return;
    }
    const Fate fate = std::get<Fate>(result);
    plan_.rows.push_back({row.line, fate, ""});
    plan_.has_changes = plan_.has_changes || fate != Fate::Unchanged;
    if (fate == Fate::Unchanged) return;  // what is there already was agreed to before
    const auto ask = [&](std::vector<RowQuestion>& all, const std::vector<std::string>& texts) {
      for (const std::string& text : texts) all.push_back({row.line, text});
    };
    ask(plan_.out_of_range, questions_.out_of_range);
    ask(plan_.age_ups, questions_.age_ups);
    ask(plan_.over_limits, questions_.over_limits);
  }

  // Whether the athlete may be in the event; for a new entry also whether that is one too many.
  std::optional<RowFault> CheckAthlete(const Athlete& athlete, const Event& event, bool is_new, Column column,
                                       bool& age_up) {
    const Misfit misfit =
        CheckFit(athlete, event, FindDivision(context_.divisions, event.div_no), context_.rules);
    if (misfit.refusal) return RowFault{column, *misfit.refusal};
    age_up = misfit.age_up.has_value();
    if (age_up) questions_.age_ups.push_back(misfit.age_up->text);
    if (!is_new) return std::nullopt;
    EntryCounts counts;
    if (const auto had = counts_.find(athlete.ath_no); had != counts_.end()) counts = had->second;
    counts.Add(event);
    const std::optional<Notice> limit = CheckLimits(athlete, counts, context_.rules);
    if (limit && !context_.rules.limits_warn) return RowFault{column, *limit};
    if (limit) questions_.over_limits.push_back(limit->text);
    return std::nullopt;
  }

  Result PlanEntry(const ImportRow& row, size_t event_at) {
    const Event event = state().events[event_at];
    Match<TeamChoice> team_match = roster_.TeamOf(row);
    if (const RowFault* fault = std::get_if<RowFault>(&team_match)) return *fault;
    TeamChoice& team = std::get<TeamChoice>(team_match);
    Match<AthleteChoice> athlete_match = roster_.AthleteOf(row, team, event);
    if (const RowFault* fault = std::get_if<RowFault>(&athlete_match)) return *fault;
    AthleteChoice& athlete = std::get<AthleteChoice>(athlete_match);

    const auto found = entries_.find(PairKey(event.event_ptr, athlete.row.ath_no));
    const bool is_new = !athlete.at || found == entries_.end();
    const uint64_t key = PairKey(event.event_ptr, athlete.row.ath_no);
    if (!is_new && !seen_entries_.emplace(key).second) {
      return RowFault{Column::LastName, AlreadyInEvent(PlainName(athlete.row), EventLabel(event))};
    }
    ImportedEntry entry = is_new ? ImportedEntry() : state().entries[found->second];
    const ImportedEntry before = entry;
    bool age_up = false;
    if (auto fault = CheckAthlete(athlete.row, event, is_new, Column::LastName, age_up)) return *fault;
    if (is_new && age_up) entry.team_age = event.low_age;
    if (auto fault = ApplyRow(row, event, is_new, entry, entry)) return *fault;

    const int team_no = roster_.Keep(team);
    entry.ath_no = roster_.Keep(athlete, team_no);
    if (is_new) {
      AddEntry(entry, event_at);
      return Fate::Added;
    }
    const bool same = SameRow(before, entry) && !team.changed && !athlete.changed;
    state().entries[found->second] = entry;
    return same ? Fate::Unchanged : Fate::Updated;
  }

  void AddEntry(const ImportedEntry& entry, size_t event_at) {
    const uint64_t key = PairKey(entry.event_ptr, entry.ath_no);
    seen_entries_.insert(key);
    entries_.emplace(key, state().entries.size());
    state().entries.push_back(entry);
    counts_[entry.ath_no].Add(state().events[event_at]);
    ++new_entries_;
    NoteUnseeded(entry, event_at);
  }

  void NoteUnseeded(const EntryCommon& entry, size_t event_at) {
    Event& event = state().events[event_at];
    if (IsLeftUnseeded(entry, event, context_.rules)) event.unseeded_stat = 'U';
  }

  static bool SameRow(const ImportedEntry& a, const ImportedEntry& b) {
    return SameCommon(a, b) && a.pre_exh == b.pre_exh && a.fin_exh == b.fin_exh;
  }
  static bool SameCommon(const EntryCommon& a, const EntryCommon& b) {
    return a.actualseed_time == b.actualseed_time && a.actseed_course == b.actseed_course &&
           a.hand_time == b.hand_time && a.video_time == b.video_time && a.div_no == b.div_no;
  }

  // Seed mark, division and exhibition. A blank cell says nothing about an entry that is there.
  std::optional<RowFault> ApplyRow(const ImportRow& row, const Event& event, bool is_new, EntryCommon& entry,
                                   ExhibitionFlags& flags) {
    entry.event_ptr = event.event_ptr;
    bool exhibition = row.exhibition.value_or(false);
    if (is_new || !row.seed_mark.empty()) {
      const TypedSeed seed = ReadSeed(row.seed_mark, row.seed_unit, event, context_.marks);
      if (seed.refusal) return RowFault{Column::SeedMark, *seed.refusal};
      if (is_new || !HasSeed(entry, seed)) {
        SetSeed(entry, seed, event, context_.conversions, context_.marks);
        if (seed.range_question) questions_.out_of_range.push_back(row.seed_mark);
      }
      exhibition = exhibition || seed.exhibition;
    }
    if (exhibition) flags.OfFirstRound(event) = 'X';
    if (!exhibition && row.exhibition) flags.OfFirstRound(event) = ' ';
    return ApplyDivision(row, entry);
  }

  std::optional<RowFault> ApplyDivision(const ImportRow& row, EntryCommon& entry) {
    const bool elsewhere =
        context_.division_level == kDivisionsByEvent || context_.division_level == kDivisionsByTeam;
    if (row.division.empty() || elsewhere) return std::nullopt;
    const DatedDivision* dated = FindDivision(context_.divisions, row.division);
    if (dated == nullptr) return RowFault{Column::Division, NoSuchDivision(row.division)};
    const int div_no = dated->division.div_no;
    if (entry.div_no != 0 && entry.div_no != div_no) return RowFault{Column::Division, EntryDiffers()};
    entry.div_no = div_no;
    return std::nullopt;
  }

  struct Runner {
    int leg;
    AthleteChoice athlete;
  };

  Match<std::vector<Runner>> RunnersOf(const ImportRow& row, const TeamChoice& team, const Event& event,
                                       int relay_no) {
    std::vector<Runner> runners;
    for (int leg = 0; leg < kMostLegs; ++leg) {
      const std::string& typed = row.legs[static_cast<size_t>(leg)];
      if (typed.empty()) continue;
      const Column column = static_cast<Column>(static_cast<int>(Column::Leg1) + leg);
      Match<AthleteChoice> match = roster_.RunnerOf(typed, column, team, event);
      if (const RowFault* fault = std::get_if<RowFault>(&match)) return *fault;
      AthleteChoice& athlete = std::get<AthleteChoice>(match);
      for (const Runner& other : runners) {
        if (SameAthlete(other.athlete, athlete))
          return RowFault{column, TwiceInRelay(PlainName(athlete.row))};
      }
      const auto runs = runs_for_.find(PairKey(event.event_ptr, athlete.row.ath_no));
      const bool elsewhere = athlete.at && runs != runs_for_.end() && runs->second != relay_no;
      if (elsewhere && !context_.several_relays_each) {
        return RowFault{column, AlreadyInEvent(PlainName(athlete.row), EventLabel(event))};
      }
      bool age_up = false;
      const bool is_new = !athlete.at || runs == runs_for_.end();
      if (auto fault = CheckAthlete(athlete.row, event, is_new, column, age_up)) return *fault;
      runners.push_back({leg + 1, std::move(athlete)});
    }
    return runners;
  }

  static bool SameAthlete(const AthleteChoice& a, const AthleteChoice& b) {
    if (a.at || b.at) return a.at == b.at;
    return SameText(a.row.last_name, b.row.last_name) && SameText(a.row.first_name, b.row.first_name);
  }

  Result PlanRelay(const ImportRow& row, size_t event_at) {
    const Event event = state().events[event_at];
    Match<TeamChoice> team_match = roster_.TeamOf(row);
    if (const RowFault* fault = std::get_if<RowFault>(&team_match)) return *fault;
    TeamChoice& team = std::get<TeamChoice>(team_match);
    const auto found =
        team.at ? relays_.find(RelayKeyOf(event.event_ptr, team.row.team_no, row.relay_ltr)) : relays_.end();
    const bool is_new = found == relays_.end();
    if (!is_new && !seen_relays_.insert(found->second).second) {
      return RowFault{Column::RelayLtr,
                      AlreadyInEvent(team.row.name + " " + row.relay_ltr, EventLabel(event))};
    }
    ImportedRelay relay = is_new ? ImportedRelay() : state().relays[found->second];
    const ImportedRelay before = relay;
    if (auto fault = ApplyRow(row, event, is_new, relay, relay)) return *fault;
    auto runners = RunnersOf(row, team, event, is_new ? 0 : relay.relay_no);
    if (const RowFault* fault = std::get_if<RowFault>(&runners)) return *fault;

    relay.team_no = roster_.Keep(team);
    relay.team_ltr = row.relay_ltr;
    relay.rel_sex = event.event_gender;
    if (is_new) {
      relay.relay_no = -static_cast<int>(state().relays.size()) - 1;
      seen_relays_.insert(state().relays.size());
      relays_.emplace(RelayKeyOf(relay.event_ptr, relay.team_no, relay.team_ltr), state().relays.size());
      NoteUnseeded(relay, event_at);
    }
    const bool new_names = KeepRunners(std::get<std::vector<Runner>>(runners), event, relay);
    if (is_new) {
      state().relays.push_back(relay);
      return Fate::Added;
    }
    state().relays[found->second] = relay;
    const bool same =
        SameCommon(before, relay) && before.pre_exh == relay.pre_exh && before.fin_exh == relay.fin_exh;
    return same && !team.changed && !new_names ? Fate::Unchanged : Fate::Updated;
  }

  // The runners of the first round. Those that the file names replace those of the same leg; true when
  // anything changes.
  bool KeepRunners(std::vector<Runner>& runners, const Event& event, ImportedRelay& relay) {
    const char round = event.event_rounds > 1 ? 'P' : 'F';
    bool changed = false;
    std::vector<const Athlete*> members;
    for (Runner& runner : runners) {
      const int ath_no = roster_.Keep(runner.athlete, relay.team_no);
      members.push_back(&runner.athlete.row);
      changed = KeepRunner({event.event_ptr, relay.team_no, relay.team_ltr, ath_no, runner.leg, round,
                            relay.relay_no}) ||
                changed;
    }
    if (changed) relay.rel_age = RelayAge(members, context_.defaults.meet_class, context_.rules.calc_date);
    return changed;
  }

  bool KeepRunner(const RelayName& name) {
    const auto [begin, end] = names_.equal_range(name.relay_no);
    for (auto i = begin; i != end; ++i) {
      RelayName& stored = state().names[i->second];
      if (stored.pos_no != name.pos_no || stored.event_round != name.event_round) continue;
      const bool changed = stored.ath_no != name.ath_no;
      stored.ath_no = name.ath_no;
      return changed;
    }
    state().names.push_back(name);
    NoteRunner(state().names.size() - 1);
    return true;
  }

  void Finish() {
    for (const ImportFault& fault : plan_.faults)
      plan_.rows.push_back({fault.line, Fate::Fault, fault.notice.text});
    const auto by_line = [](const auto& a, const auto& b) { return a.line < b.line; };
    std::stable_sort(plan_.faults.begin(), plan_.faults.end(), by_line);
    std::stable_sort(plan_.rows.begin(), plan_.rows.end(), by_line);
    for (auto* questions : {&plan_.out_of_range, &plan_.age_ups, &plan_.over_limits}) {
      std::stable_sort(questions->begin(), questions->end(), by_line);
    }
    std::vector<Event> events;
    for (size_t at = 0; at < state().events.size(); ++at) {
      if (state().events[at].event_ptr > 0 || event_used_[at]) events.push_back(state().events[at]);
    }
    state().events = std::move(events);
    const auto made = [](const auto& rows, auto number) {
      return static_cast<int>(
          std::count_if(rows.begin(), rows.end(), [&](const auto& row) { return row.*number < 0; }));
    };
    plan_.counts.teams = made(state().teams, &Team::team_no);
    plan_.counts.athletes = made(state().athletes, &Athlete::ath_no);
    plan_.counts.events = made(state().events, &Event::event_ptr);
    plan_.counts.relays = made(state().relays, &Relay::relay_no);
    plan_.counts.entries = new_entries_;
  }

  ImportPlan plan_;
  const ImportContext& context_;
  RosterMatcher roster_;
  std::unordered_map<int, ptrdiff_t> events_by_ptr_;  // those the meet holds
  std::vector<bool> event_used_;
  std::unordered_map<uint64_t, size_t> entries_;    // by event and athlete
  std::unordered_map<std::string, size_t> relays_;  // by event, team and letter
  std::unordered_multimap<int, size_t> names_;      // by relay
  std::unordered_map<uint64_t, int> runs_for_;      // relay by event and athlete
  std::unordered_map<int, EntryCounts> counts_;     // by athlete
  std::set<uint64_t> seen_entries_;                 // that a row of the file is about
  std::set<size_t> seen_relays_;
  int new_entries_ = 0;
  RowQuestions questions_;
};

}  // namespace

std::string_view FateName(Fate fate) {
  switch (fate) {
    case Fate::Added:
      return "added";
    case Fate::Updated:
      return "updated";
    case Fate::Unchanged:
      return "unchanged";
    case Fate::Fault:
      return "fault";
  }
  return "";
}

ImportPlan PlanImport(const ImportRows& rows, ImportState meet, const ImportContext& context) {
  return Planner(std::move(meet), context).Plan(rows);
}

}  // namespace tarvex::setup
