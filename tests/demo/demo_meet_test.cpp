#include "demo/demo_meet.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "base/platform.h"
#include "database/date.h"
#include "database/field_text.h"
#include "database/open.h"
#include "jet/verify.h"
#include "marks/range.h"
#include "running/round_store.h"
#include "scoring/team_scores.h"
#include "seeding/seed_store.h"
#include "setup/age.h"
#include "setup/event_name.h"
#include "setup/event_store.h"
#include "setup/roster_store.h"
#include "tests/database/filling_disk.h"

namespace tarvex::demo {
namespace {

// Watches the progress; any box fails the test.
class Watcher : public UserInterface {
 public:
  void Tell(const Notice& notice) override { ADD_FAILURE() << notice.text; }
  std::optional<Answer> Ask(const Notice& question, Buttons) override {
    ADD_FAILURE() << question.text;
    return std::nullopt;
  }
  std::optional<std::string> AskText(const Notice& question, std::string_view) override {
    ADD_FAILURE() << question.text;
    return std::nullopt;
  }
  void ShowStatus(const Notice&) override {}
  void ShowProgress(int done, int total) override { steps.push_back(1000 * done / total); }

  std::vector<int> steps;
};

class Folder {
 public:
  Folder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "demo.XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  std::string File(const std::string& name) const { return (path_ / name).string(); }
  bool IsEmpty() const { return std::filesystem::is_empty(path_); }

 private:
  std::filesystem::path path_;
};

std::string BytesOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void Make(const std::string& path, Stage stage) {
  Watcher watcher;
  const Outcome made = MakeDemoMeet(platform::Files(), path, {Size::Small, stage}, watcher);
  const auto* status = std::get_if<Status>(&made);
  ASSERT_TRUE(IsDone(made)) << (status ? status->detail : "refused");
}

// One scored meet for all tests that only look.
const std::string& ScoredPath() {
  static const Folder folder;
  static const std::string path = [] {
    Make(folder.File("scored.mdb"), Stage::Scored);
    return folder.File("scored.mdb");
  }();
  return path;
}

std::unique_ptr<database::Meet> OpenAt(const std::string& path) {
  Watcher watcher;
  database::Opened opened = database::OpenMeet(platform::Files(), path, {}, watcher);
  EXPECT_TRUE(IsDone(opened.outcome));
  EXPECT_TRUE(opened.changes.empty()) << opened.changes.front();
  return std::move(opened.meet);
}

// Everything of a meet that the tests look at.
struct Loaded {
  std::unique_ptr<database::Meet> meet;
  std::vector<setup::StoredEvent> events;
  std::map<int, setup::Event> event_of;
  setup::Roster roster;
  std::vector<setup::StoredEntry> entries;
  std::vector<setup::StoredRelay> relays;
  std::vector<setup::StoredRelayName> runners;
};

Loaded Load(const std::string& path) {
  Loaded loaded;
  loaded.meet = OpenAt(path);
  loaded.events = setup::LoadEvents(*loaded.meet).value();
  for (const auto& event : loaded.events) loaded.event_of[event.row.event_ptr] = event.row;
  loaded.roster = setup::LoadRoster(*loaded.meet).value();
  loaded.entries = setup::Entries(*loaded.meet).value().All().value();
  loaded.relays = setup::Relays(*loaded.meet).value().All().value();
  loaded.runners = setup::RelayNames(*loaded.meet).value().All().value();
  return loaded;
}

const Loaded& Scored() {
  static const Loaded loaded = Load(ScoredPath());
  return loaded;
}

std::vector<std::map<std::string, std::string>> RowsOf(const database::Meet& meet, std::string_view name) {
  std::vector<std::map<std::string, std::string>> rows;
  const jet::Table* table = meet.Table(name).value();
  jet::TableScan scan = table->Scan();
  while (scan.Next().value()) {
    auto& row = rows.emplace_back();
    const auto& columns = table->def().columns;
    for (size_t i = 0; i < columns.size(); ++i) {
      row[columns[i].name] = database::ValueText(columns[i], scan.record().Get(static_cast<int>(i)).value());
    }
  }
  return rows;
}

TEST(DemoMeet, IsOfThePromisedSize) {
  EXPECT_NEAR(static_cast<double>(Scored().events.size()), 40, 4);
  EXPECT_NEAR(static_cast<double>(Scored().entries.size() + Scored().relays.size()), 1000, 100);
  EXPECT_NEAR(static_cast<double>(Scored().entries.size()), 1000, 100);
}

TEST(DemoMeet, IsTheSameByteForByteWhenMadeAgain) {
  const Folder folder;
  Make(folder.File("again.mdb"), Stage::Scored);
  // Compared as a whole: a printed difference would be megabytes long.
  EXPECT_TRUE(BytesOf(ScoredPath()) == BytesOf(folder.File("again.mdb")));
}

TEST(DemoMeet, HasTheSamePeopleAtEveryStage) {
  const Folder folder;
  Make(folder.File("entered.mdb"), Stage::Entered);
  const auto entered = OpenAt(folder.File("entered.mdb"));
  for (const char* table : {"Team", "Athlete", "RelayNames", "Session", "Sessitem"}) {
    EXPECT_TRUE(RowsOf(*entered, table) == RowsOf(*Scored().meet, table)) << table;
  }
  const auto events = setup::LoadEvents(*entered).value();
  for (const auto& event : events) EXPECT_EQ(event.row.event_stat, 'U');
}

TEST(DemoMeet, IsASoundFile) {
  const auto findings = jet::Verify(Scored().meet->file()).value();
  for (const jet::Finding& finding : findings) {
    ADD_FAILURE() << finding.severity << " page " << finding.page << ": " << finding.text;
  }
}

TEST(DemoMeet, HasPeopleWhoseDetailsAgree) {
  std::set<int> numbers;
  std::set<std::string> identifiers;
  std::set<std::string> names;  // with the team
  int foreign = 0, exhibition = 0;
  for (const auto& [ath_no, athlete] : Scored().roster.athletes) {
    SCOPED_TRACE(athlete.first_name + " " + athlete.last_name);
    ASSERT_TRUE(Scored().roster.team(athlete.team_no));
    EXPECT_TRUE(numbers.insert(athlete.comp_no).second);
    EXPECT_TRUE(identifiers.insert(athlete.guid).second);
    EXPECT_TRUE(
        names.insert(athlete.last_name + "," + athlete.first_name + "," + std::to_string(athlete.team_no))
            .second);
    EXPECT_TRUE(athlete.sex == 'M' || athlete.sex == 'F');
    using std::chrono::May;
    const setup::Date first_day = std::chrono::year(2026) / May / 16;
    EXPECT_EQ(athlete.age, setup::AgeOn(database::DateOf(athlete.birth_date), first_day));
    // A ninth-grader is 14 or 15 in May, a senior 17 or 18.
    EXPECT_NEAR(athlete.age, std::stoi(athlete.schl_yr) + 5.5, 0.5);
    foreign += athlete.stat == '*' ? 1 : 0;
    exhibition += athlete.stat == 'X' ? 1 : 0;
  }
  EXPECT_GE(foreign, 1);
  EXPECT_GE(exhibition, 2);
}

TEST(DemoMeet, HasEntriesThatFitAthleteAndEvent) {
  std::set<std::pair<int, int>> once;
  std::map<int, int> per_event;
  int no_mark = 0, scratched = 0, by_hand = 0, english = 0;
  for (const auto& [id, entry] : Scored().entries) {
    const setup::Athlete* athlete = Scored().roster.athlete(entry.ath_no);
    ASSERT_TRUE(athlete) << entry.ath_no;
    ASSERT_TRUE(Scored().event_of.contains(entry.event_ptr));
    const setup::Event& event = Scored().event_of.at(entry.event_ptr);
    EXPECT_EQ(event.ind_rel, 'I');
    EXPECT_EQ(athlete->sex, event.event_gender);
    EXPECT_GE(athlete->age, event.low_age);
    EXPECT_LE(athlete->age, event.high_age);
    EXPECT_TRUE(once.insert({entry.event_ptr, entry.ath_no}).second);
    ++per_event[entry.event_ptr];
    no_mark += entry.actualseed_time == 0 ? 1 : 0;
    scratched += entry.scr_stat ? 1 : 0;
    by_hand += entry.hand_time ? 1 : 0;
    english += entry.actseed_course == 'E' && event.trk_field == 'F' ? 1 : 0;
  }
  for (const auto& [event_ptr, entries] : per_event) EXPECT_GE(entries, 3) << event_ptr;
  EXPECT_GT(no_mark, 10);
  EXPECT_GT(scratched, 10);
  EXPECT_GT(by_hand, 5);
  EXPECT_GT(english, 3);
}

TEST(DemoMeet, ConvertsSeedsIntoTheUnitOfTheEvent) {
  for (const auto& [id, entry] : Scored().entries) {
    const float typed = entry.actualseed_time;
    if (entry.actseed_course == 'E') {
      EXPECT_NEAR(entry.convseed_time, typed * 0.0254, 0.0051);
      // Quarters of an inch.
      EXPECT_EQ(typed * 4, static_cast<float>(static_cast<int>(typed * 4)));
    } else {
      EXPECT_NEAR(entry.convseed_time, typed + (entry.hand_time ? 0.24 : 0), 0.0001);
    }
    EXPECT_EQ(entry.convseed_course, 'M');
  }
}

TEST(DemoMeet, HasFourRunnersOfTheTeamInEachRelay) {
  std::map<int, std::set<int>> runners;
  for (const auto& [id, name] : Scored().runners) runners[name.relay_no].insert(name.ath_no);
  ASSERT_GT(Scored().relays.size(), 20u);
  EXPECT_EQ(runners.size(), Scored().relays.size());
  for (const auto& [id, relay] : Scored().relays) {
    EXPECT_EQ(runners[relay.relay_no].size(), 4u);
    EXPECT_EQ(relay.rel_sex, Scored().event_of.at(relay.event_ptr).event_gender);
    int oldest = 0;
    for (const int ath_no : runners[relay.relay_no]) {
      const setup::Athlete* athlete = Scored().roster.athlete(ath_no);
      ASSERT_TRUE(athlete);
      EXPECT_EQ(athlete->team_no, relay.team_no);
      EXPECT_EQ(athlete->sex, relay.rel_sex);
      oldest = std::max(oldest, athlete->age);
    }
    EXPECT_EQ(relay.rel_age, oldest);
  }
}

TEST(DemoMeet, HasEveryEventInOneSessionOfItsDays) {
  std::map<std::string, std::string> day_of;  // of sessions
  const auto sessions = RowsOf(*Scored().meet, "Session");
  for (const auto& session : sessions) day_of[session.at("Sess_ptr")] = session.at("Sess_day");
  std::set<std::string> events;
  for (const auto& item : RowsOf(*Scored().meet, "Sessitem")) {
    EXPECT_TRUE(day_of.contains(item.at("Sess_ptr")));
    EXPECT_TRUE(events.insert(item.at("Event_ptr")).second);
    EXPECT_TRUE(Scored().event_of.contains(std::stoi(item.at("Event_ptr"))));
    EXPECT_EQ(item.at("Start_time").size(), 5u);
    EXPECT_LE(item.at("Start_time"), "12:59");
    EXPECT_GE(item.at("Start_time"), "01:00");
  }
  EXPECT_EQ(events.size(), Scored().events.size());
  const database::MeetSettings& settings = Scored().meet->settings();
  EXPECT_EQ(std::to_string(static_cast<int>(settings.Meet_end - settings.Meet_start) + 1),
            sessions.back().at("Sess_day"));
}

TEST(DemoMeet, HasALaneForEverybodyWhenSeeded) {
  const Folder folder;
  Make(folder.File("seeded.mdb"), Stage::Seeded);
  const auto meet = OpenAt(folder.File("seeded.mdb"));
  const auto events = setup::LoadEvents(*meet).value();
  for (const auto& event : events) {
    SCOPED_TRACE(setup::EventLabel(event.row));
    EXPECT_EQ(event.row.event_stat, '1');
    std::set<std::pair<int, int>> places;
    const auto rows = seeding::LoadSeedRows(*meet, event.row, setup::Round::Finals).value();
    for (const auto& stored : rows) {
      EXPECT_EQ(stored.row.heat == 0, stored.row.scratched);
      EXPECT_EQ(stored.row.lane == 0, stored.row.scratched);
      if (stored.row.scratched) continue;
      EXPECT_TRUE(places.insert({stored.row.heat, stored.row.lane}).second);
    }
  }
}

TEST(DemoMeet, HasResultsOfAllKindsWhenScored) {
  std::map<char, int> statuses;
  int ties = 0, judged = 0, winds = 0, by_hand = 0;
  for (const auto& event : Scored().events) {
    SCOPED_TRACE(setup::EventLabel(event.row));
    EXPECT_EQ(event.row.event_stat, 'S');
    const auto data = running::LoadRound(*Scored().meet, event, setup::Round::Finals).value();
    std::map<int, int> at_place;
    for (const running::RoundRow& row : data.rows) {
      if (row.heat == 0) continue;
      EXPECT_TRUE(row.scratched || row.mark > 0 || row.stat != ' ') << row.id;
      ++statuses[row.stat];
      if (row.place > 0) ++at_place[row.place];
      judged += row.jdplace > 0 ? 1 : 0;
      winds += row.wind.empty() ? 0 : 1;
      by_hand += row.hand ? 1 : 0;
    }
    EXPECT_GE(at_place[1], 1);
    for (const auto& [place, results] : at_place) ties += results - 1;
  }
  // Did not start, disqualified, did not finish, foul, no height.
  for (const char status : {'S', 'Q', 'D', 'F', 'N'}) EXPECT_GE(statuses[status], 2) << status;
  EXPECT_LT(statuses['S'], 80);
  EXPECT_GT(ties, 5);
  EXPECT_GE(judged, 2);
  EXPECT_GT(winds, 100);
  EXPECT_GT(by_hand, 0);
}

// What a winner at an invitational for high schools may do: slower would be odd, faster a sensation.
struct WinnerCase {
  const char* event;
  float least, greatest;
};
constexpr WinnerCase kWinnerCases[] = {{"Boys 100 Meter Dash", 10.4F, 11.5F},
                                       {"Girls 100 Meter Dash", 11.7F, 13.0F},
                                       {"Boys 800 Meter Run", 110, 123},
                                       {"Girls 1500 Meter Run", 265, 305},
                                       {"Boys 5000 Meter Run", 870, 1010},
                                       {"Girls 2000 Meter Steeplechase", 415, 490},
                                       {"Boys 110 Meter Hurdles", 13.8F, 16.5F},
                                       {"Girls 300 Meter Hurdles", 43, 50},
                                       {"Boys 4x100 Meter Relay", 41.5F, 46},
                                       {"Girls 4x400 Meter Relay", 230, 262},
                                       {"Boys High Jump", 1.75F, 2.15F},
                                       {"Girls Pole Vault", 2.6F, 4.0F},
                                       {"Boys Long Jump", 6.1F, 7.5F},
                                       {"Girls Shot Put", 10.0F, 15.0F},
                                       {"Boys Discus Throw", 37, 60},
                                       {"Girls Javelin Throw", 30, 52}};

TEST(DemoMeet, HasBelievableWinners) {
  std::map<std::string, float> winners;
  for (const auto& event : Scored().events) {
    const auto data = running::LoadRound(*Scored().meet, event, setup::Round::Finals).value();
    for (const running::RoundRow& row : data.rows) {
      if (row.place == 1) winners[setup::NameOf(*Scored().meet, event.row).value()] = row.mark;
    }
  }
  for (const WinnerCase& c : kWinnerCases) {
    ASSERT_TRUE(winners.contains(c.event)) << c.event;
    EXPECT_GE(winners[c.event], c.least) << c.event;
    EXPECT_LE(winners[c.event], c.greatest) << c.event;
  }
}

TEST(DemoMeet, HasNoMarkThatTheProgramWouldQuestion) {
  const marks::MarkSettings settings = Scored().meet->mark_settings();
  ASSERT_TRUE(settings.check_ranges);
  for (const auto& stored : Scored().events) {
    const setup::Event& event = stored.row;
    const auto data = running::LoadRound(*Scored().meet, stored, setup::Round::Finals).value();
    for (const running::RoundRow& row : data.rows) {
      for (const float mark : {row.mark, row.convseed_time}) {
        const auto question =
            event.trk_field == 'F'
                ? marks::CheckFieldRange(mark, 'M', event.event_stroke, settings)
                : marks::CheckTimeRange(mark, event.event_dist, event.event_stroke, settings);
        EXPECT_FALSE(question) << setup::EventLabel(event) << " " << mark;
      }
    }
  }
}

TEST(DemoMeet, HasTeamScoresOfBothSexes) {
  std::map<char, float> best;
  std::map<char, int> teams;
  const auto lines = scoring::LoadTeamScores(*Scored().meet, {}).value();
  for (const scoring::TeamScoreLine& line : lines) {
    const char group = "MFC"[static_cast<int>(line.total.group)];
    best[group] = std::max(best[group], line.total.points.ToSingle());
    ++teams[group];
    EXPECT_NE(line.team_abbr, "UNA");
  }
  for (const char group : {'M', 'F', 'C'}) {
    EXPECT_GT(teams[group], 10) << group;
    EXPECT_GT(best[group], 40) << group;
  }
}

TEST(MakeDemoMeet, ShowsProgressFromNothingToAll) {
  const Folder folder;
  Watcher watcher;
  ASSERT_TRUE(
      IsDone(MakeDemoMeet(platform::Files(), folder.File("a.mdb"), {Size::Small, Stage::Entered}, watcher)));
  ASSERT_GT(watcher.steps.size(), 10u);
  EXPECT_TRUE(std::is_sorted(watcher.steps.begin(), watcher.steps.end()));
  EXPECT_EQ(watcher.steps.front(), 0);
  EXPECT_EQ(watcher.steps.back(), 1000);
}

TEST(MakeDemoMeet, RefusesAFileThatExistsAndLeavesIt) {
  const Folder folder;
  const std::string path = folder.File("mine.mdb");
  std::ofstream(path) << "mine";
  Watcher watcher;
  EXPECT_TRUE(std::holds_alternative<Refusal>(MakeDemoMeet(platform::Files(), path, {}, watcher)));
  EXPECT_EQ(BytesOf(path), "mine");
}

TEST(MakeDemoMeet, LeavesNoFileWhereverTheDiskFillsUp) {
  constexpr int kStep = 7, kMore = 100000;
  int failures = 0;
  for (int writes = 0; writes < kMore; writes += kStep, ++failures) {
    const Folder folder;
    database::FillingDisk disk(writes);
    Watcher watcher;
    const Outcome made = MakeDemoMeet(disk, folder.File("full.mdb"), {Size::Small, Stage::Scored}, watcher);
    if (IsDone(made)) break;
    ASSERT_TRUE(std::holds_alternative<Status>(made)) << writes;
    ASSERT_TRUE(folder.IsEmpty()) << writes;
  }
  EXPECT_GT(failures, 10);
}

}  // namespace
}  // namespace tarvex::demo
