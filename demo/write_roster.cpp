#include "demo/write_roster.h"

#include "base/decimal.h"
#include "database/identifier.h"
#include "demo/session_store.h"
#include "setup/event_store.h"
#include "setup/roster_store.h"
#include "setup/seed_marks.h"

namespace tarvex::demo {
namespace {

class Writing {
 public:
  Writing(jet::Transaction& write, const database::Meet& meet, const std::vector<PlannedEvent>& events,
          const Roster& roster, Progress& progress)
      : write_(write),
        meet_(meet),
        events_(events),
        roster_(roster),
        progress_(progress),
        settings_(meet.mark_settings()),
        potentials_(events.size()) {
    total_ = static_cast<int>(roster.athletes.size() + roster.entries.size() + roster.relays.size());
  }

  Status Write(const std::vector<MadeSession>& sessions) {
    TRY(WriteEvents());
    TRY(WriteSessions(write_, meet_, sessions, event_ptrs_));
    TRY(WriteTeams());
    TRY(WriteAthletes());
    TRY(WriteEntries());
    return WriteRelays();
  }

  std::vector<Potentials> TakePotentials() { return std::move(potentials_); }

 private:
  std::string NewIdentifier() const { return database::NewIdentifier(meet_.session().random_bits); }
  void CountRow() { progress_.ShowProgress(++done_, total_); }

  Status WriteEvents() {
    for (const PlannedEvent& event : events_) {
      TRY_ASSIGN(const int event_ptr, setup::InsertEvent(write_, meet_, event.row));
      event_ptrs_.push_back(event_ptr);
    }
    return Ok();
  }

  // The team of those without a team is there already.
  Status WriteTeams() {
    TRY_ASSIGN(const auto table, setup::Teams(meet_));
    TRY_ASSIGN(const auto present, table.All());
    if (present.empty()) return {Fault::NotFound, "the table Team has no row for unattached athletes"};
    team_nos_.push_back(present.front().row.team_no);
    for (size_t i = 1; i < roster_.teams.size(); ++i) {
      setup::Team team = roster_.teams[i];
      team.guid = NewIdentifier();
      TRY_ASSIGN(const int team_no, table.Insert(write_, team));
      team_nos_.push_back(team_no);
    }
    return Ok();
  }

  Status WriteAthletes() {
    TRY_ASSIGN(const auto table, setup::Athletes(meet_));
    for (const MadeAthlete& made : roster_.athletes) {
      setup::Athlete athlete = made.row;
      athlete.team_no = team_nos_[made.team];
      athlete.guid = NewIdentifier();
      TRY_ASSIGN(const int ath_no, table.Insert(write_, athlete));
      ath_nos_.push_back(ath_no);
      CountRow();
    }
    return Ok();
  }

  void Fill(setup::EntryCommon& entry, const MadeEntryCommon& made) const {
    setup::Event event = events_[made.event].row;
    event.event_ptr = entry.event_ptr = event_ptrs_[made.event];
    setup::TypedSeed seed;
    seed.unit = made.seed.quarter_inches > 0 ? 'E' : event.seed_meas;
    seed.value = made.seed.quarter_inches > 0 ? static_cast<float>(made.seed.quarter_inches) / 4
                                              : Decimal::Of(made.seed.hundredths, 2).ToSingle();
    seed.hand = made.seed.hand;
    setup::SetSeed(entry, seed, event, {}, settings_);
    entry.scr_stat = made.scratched;
  }

  Status WriteEntries() {
    TRY_ASSIGN(const auto table, setup::Entries(meet_));
    for (const MadeEntry& made : roster_.entries) {
      setup::Entry entry;
      Fill(entry, made);
      entry.ath_no = ath_nos_[made.athlete];
      potentials_[made.event][entry.ath_no] = made.potential;
      TRY(table.Insert(write_, entry).status());
      CountRow();
    }
    return Ok();
  }

  Status WriteRelays() {
    TRY_ASSIGN(const auto table, setup::Relays(meet_));
    for (const MadeRelay& made : roster_.relays) {
      setup::Relay relay;
      Fill(relay, made);
      relay.team_no = team_nos_[made.team];
      relay.team_ltr = std::string(1, made.letter);
      relay.rel_age = made.age;
      relay.rel_sex = events_[made.event].row.event_gender;
      TRY_ASSIGN(relay.relay_no, table.Insert(write_, relay));
      potentials_[made.event][relay.relay_no] = made.potential;
      TRY(WriteRunners(made, relay));
      CountRow();
    }
    return Ok();
  }

  Status WriteRunners(const MadeRelay& made, const setup::Relay& relay) {
    TRY_ASSIGN(const auto table, setup::RelayNames(meet_));
    int position = 0;
    for (const size_t runner : made.runners) {
      setup::RelayName name;
      name.event_ptr = relay.event_ptr;
      name.team_no = relay.team_no;
      name.team_ltr = relay.team_ltr;
      name.relay_no = relay.relay_no;
      name.ath_no = ath_nos_[runner];
      name.pos_no = ++position;
      TRY(table.Insert(write_, name).status());
    }
    return Ok();
  }

  jet::Transaction& write_;
  const database::Meet& meet_;
  const std::vector<PlannedEvent>& events_;
  const Roster& roster_;
  Progress& progress_;
  marks::MarkSettings settings_;
  std::vector<int> event_ptrs_, team_nos_, ath_nos_;  // by position
  std::vector<Potentials> potentials_;
  int done_ = 0, total_ = 0;
};

}  // namespace

Expected<std::vector<Potentials>> WriteRoster(const database::Meet& meet,
                                              const std::vector<PlannedEvent>& events,
                                              const std::vector<MadeSession>& sessions, const Roster& roster,
                                              Progress& progress) {
  TRY_ASSIGN(const auto write, meet.Begin("demo"));
  Writing writing(*write, meet, events, roster, progress);
  TRY(writing.Write(sessions));
  TRY(write->Commit());
  return writing.TakePotentials();
}

}  // namespace tarvex::demo
