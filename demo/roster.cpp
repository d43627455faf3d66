#include "demo/roster.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <span>
#include <string>
#include <tuple>

#include "database/date.h"
#include "demo/names.h"
#include "demo/seed.h"
#include "setup/age.h"

namespace tarvex::demo {
namespace {

using std::chrono::days;
using std::chrono::year;

constexpr std::array<int, kFamilies> kFamilyShares = {300, 170, 150, 90, 150, 140};
constexpr std::array<int, 4> kEventsEach = {220, 400, 280, 100};  // one to four events
constexpr int kUnattached = 10, kExhibition = 6;                  // in a thousand athletes
constexpr int kFirstCompNo = 101;

const year kMeetYear{2026};

// Seniors of a high school are in their twelfth year and turn 18 between two Septembers.
constexpr int kFirstSchoolYear = 9, kLastSchoolYear = 12, kYearsBeforeSchool = 7;

class Inventing {
 public:
  Inventing(const Plan& plan, const std::vector<PlannedEvent>& events, Chance& chance)
      : plan_(plan), events_(events), chance_(chance) {}

  Roster Do() {
    InventTeams();
    InventAthletes();
    Number();
    EnterAthletes();
    EnterRelays();
    return std::move(roster_);
  }

 private:
  // An athlete with the events chosen for him.
  struct Chosen {
    MadeAthlete athlete;
    std::vector<size_t> events;
  };

  void InventTeams() {
    constexpr std::string_view kSchools[] = {" High School", " Central", " Academy", " Prep", " Regional"};
    constexpr std::string_view kClubs[] = {" Track Club", " Harriers", " Striders",
                                           " AC",         " Flyers",   " Spikes"};
    roster_.teams.push_back({});
    team_sizes_.push_back(0);
    for (const Town& town : InventTowns(plan_.teams, chance_)) {
      setup::Team team;
      team.name = town.name;
      team.name += plan_.is_school_meet ? chance_.Pick(std::span(kSchools)) : chance_.Pick(std::span(kClubs));
      team.short_name = town.name;
      team.abbr = team.alt_abbr = town.abbr;
      roster_.teams.push_back(std::move(team));
      team_sizes_.push_back(3 + chance_.Below(5) * chance_.Below(5));
    }
  }

  void InventAthletes() {
    int entries = 0;
    while (entries < plan_.entries) {
      Chosen chosen = InventAthlete();
      entries += static_cast<int>(chosen.events.size());
      chosen_.push_back(std::move(chosen));
    }
    for (int i = 0; i < plan_.foreign_athletes; ++i) {
      chosen_[static_cast<size_t>(chance_.Below(static_cast<int>(chosen_.size())))].athlete.row.stat = '*';
    }
  }

  Chosen InventAthlete() {
    Chosen chosen;
    MadeAthlete& athlete = chosen.athlete;
    athlete.team = chance_.PerMille(kUnattached) ? 0 : chance_.Weighted(team_sizes_);
    athlete.row.sex = chance_.PerMille(500) ? 'F' : 'M';
    NameSomebodyNew(athlete);
    std::vector<int> shares;
    for (const AgeGroup& group : plan_.groups) shares.push_back(group.share);
    athlete.group = chance_.Weighted(shares);
    GiveAge(athlete);
    athlete.family = static_cast<Family>(chance_.Weighted(kFamilyShares));
    athlete.ability = chance_.Normal();
    if (chance_.PerMille(kExhibition)) athlete.row.stat = 'X';
    chosen.events = ChooseEvents(athlete);
    return chosen;
  }

  // Nobody of a team shares a name with another.
  void NameSomebodyNew(MadeAthlete& athlete) {
    PersonName name;
    do {
      name = InventPerson(athlete.row.sex, chance_);
    } while (!names_.insert({athlete.team, name}).second);
    athlete.row.first_name = name.first;
    athlete.row.last_name = name.last;
  }

  void GiveAge(MadeAthlete& athlete) {
    using std::chrono::September;
    const double meet_day = kFirstMeetDay;
    if (plan_.is_school_meet) {
      const int school_year = chance_.Between(kFirstSchoolYear, kLastSchoolYear);
      const setup::Date oldest =
          (kMeetYear - std::chrono::years(school_year + kYearsBeforeSchool)) / September / 1;
      athlete.row.schl_yr = std::to_string(school_year);
      athlete.row.birth_date = database::DaysOf(oldest) + chance_.Below(365);
    } else {
      const AgeGroup& group = plan_.groups[athlete.group];
      // Few compete on and on.
      constexpr int kOldest = 38;
      const bool grown = group.high_age > kOldest;
      const int age =
          grown ? std::min(chance_.Between(group.low_age, kOldest), chance_.Between(group.low_age, kOldest))
                : chance_.Between(group.low_age, group.high_age);
      const setup::Date day = database::DateOf(meet_day);
      const setup::Date birthday = (day.year() - std::chrono::years(age)) / day.month() / day.day();
      athlete.row.birth_date = database::DaysOf(birthday) - chance_.Below(365);
    }
    athlete.row.age = setup::AgeOn(database::DateOf(athlete.row.birth_date), database::DateOf(meet_day));
  }

  std::vector<size_t> ChooseEvents(const MadeAthlete& athlete) {
    std::vector<int> weights;
    int left = 0;
    for (const PlannedEvent& event : events_) {
      const bool open = !event.discipline->is_relay() && event.group == athlete.group &&
                        event.row.event_gender == athlete.row.sex;
      weights.push_back(open ? event.discipline->affinity[static_cast<size_t>(athlete.family)] : 0);
      left += weights.back() > 0 ? 1 : 0;
    }
    std::vector<size_t> events;
    for (int wanted = std::min(left, 1 + static_cast<int>(chance_.Weighted(kEventsEach))); wanted > 0;
         --wanted) {
      events.push_back(chance_.Weighted(weights));
      weights[events.back()] = 0;
    }
    std::sort(events.begin(), events.end());
    return events;
  }

  void Number() {
    std::stable_sort(chosen_.begin(), chosen_.end(), [&](const Chosen& a, const Chosen& b) {
      const auto key = [&](const Chosen& chosen) {
        const MadeAthlete& athlete = chosen.athlete;
        return std::tie(roster_.teams[athlete.team].abbr, athlete.row.last_name, athlete.row.first_name);
      };
      return key(a) < key(b);
    });
    int number = kFirstCompNo;
    for (Chosen& chosen : chosen_) chosen.athlete.row.comp_no = number++;
  }

  void EnterAthletes() {
    for (Chosen& chosen : chosen_) {
      for (const size_t event : chosen.events) {
        MadeEntry entry;
        entry.event = event;
        entry.athlete = roster_.athletes.size();
        entry.potential = PotentialOf(*events_[event].discipline, chosen.athlete, chance_);
        entry.seed = InventSeed(*events_[event].discipline, entry.potential, chance_);
        entry.scratched = chance_.PerMille(kScratched);
        roster_.entries.push_back(entry);
      }
      roster_.athletes.push_back(std::move(chosen.athlete));
    }
    chosen_.clear();
  }

  void EnterRelays() {
    std::vector<std::vector<size_t>> members(roster_.teams.size());
    for (size_t i = 0; i < roster_.athletes.size(); ++i) members[roster_.athletes[i].team].push_back(i);
    for (size_t team = 1; team < members.size(); ++team) {
      for (size_t event = 0; event < events_.size(); ++event) {
        if (events_[event].discipline->is_relay()) EnterRelaysOf(team, members[team], event);
      }
    }
  }

  // The best runners make the A relay; a large team may have a second one.
  void EnterRelaysOf(size_t team, const std::vector<size_t>& members, size_t event) {
    constexpr int kSecondRelay = 300;
    const PlannedEvent& planned = events_[event];
    std::vector<size_t> runners;
    size_t of_group = 0;
    for (const size_t member : members) {
      const MadeAthlete& athlete = roster_.athletes[member];
      if (athlete.group != planned.group || athlete.row.sex != planned.row.event_gender) continue;
      // Foreign and exhibition athletes would take the team's points away.
      if (athlete.row.stat != ' ') continue;
      ++of_group;
      if (planned.discipline->affinity[static_cast<size_t>(athlete.family)] > 0) runners.push_back(member);
    }
    if (of_group < static_cast<size_t>(plan_.fewest_for_relay) || runners.size() < 4) return;
    if (!chance_.PerMille(plan_.relay_share)) return;
    const auto fitness = [&](size_t member) {
      const MadeAthlete& athlete = roster_.athletes[member];
      return athlete.ability + 200 * planned.discipline->affinity[static_cast<size_t>(athlete.family)];
    };
    std::stable_sort(runners.begin(), runners.end(),
                     [&](size_t a, size_t b) { return fitness(a) > fitness(b); });
    AddRelay(team, 'A', event, std::span(runners).subspan(0, 4));
    if (runners.size() >= 8 && chance_.PerMille(kSecondRelay)) {
      AddRelay(team, 'B', event, std::span(runners).subspan(4, 4));
    }
  }

  void AddRelay(size_t team, char letter, size_t event, std::span<const size_t> runners) {
    MadeRelay relay;
    relay.team = team;
    relay.letter = letter;
    relay.event = event;
    int ability = 0;
    for (size_t i = 0; i < relay.runners.size(); ++i) {
      const MadeAthlete& runner = roster_.athletes[runners[i]];
      relay.runners[i] = runners[i];
      relay.age = std::max(relay.age, runner.row.age);
      ability += runner.ability / 4;
    }
    const Discipline& discipline = *events_[event].discipline;
    // Practised hand-overs and team spirit are worth as much as some of the talent.
    ability += chance_.Normal() / 3;
    relay.potential = TypicalMark(discipline, events_[event].row.event_gender, relay.age, ability);
    relay.seed = InventSeed(discipline, relay.potential, chance_);
    relay.scratched = chance_.PerMille(kScratched);
    roster_.relays.push_back(relay);
  }

  const Plan& plan_;
  const std::vector<PlannedEvent>& events_;
  Chance& chance_;
  Roster roster_;
  std::vector<int> team_sizes_;
  std::set<std::pair<size_t, PersonName>> names_;
  std::vector<Chosen> chosen_;
};

}  // namespace

Roster InventRoster(const Plan& plan, const std::vector<PlannedEvent>& events, Chance& chance) {
  return Inventing(plan, events, chance).Do();
}

}  // namespace tarvex::demo
