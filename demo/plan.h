#pragma once

#include <string_view>
#include <vector>

#include "demo/demo_meet.h"
#include "demo/discipline.h"
#include "setup/event.h"
#include "setup/event_proposal.h"

// The frame of a made-up meet, before anybody is entered.
namespace tarvex::demo {

struct AgeGroup {
  char letter = ' ';  // as in Discipline::groups
  int low_age = 0;    // of its events; 0 to 109 when the meet has no age groups
  int high_age = 109;
  int share = 0;  // of the athletes, in a thousand
};

struct Plan {
  std::string_view meet_name, meet_location;
  int meet_class = 1;  // 1 high school, 3 USATF
  bool is_school_meet = true;
  int lanes = 8;
  int teams = 0;
  int entries = 0;           // of athletes; relays come on top
  int relay_share = 0;       // of the teams that have the runners, in a thousand
  int fewest_for_relay = 0;  // athletes of a team's group and sex
  int foreign_athletes = 0;
  std::vector<AgeGroup> groups;
};
Plan PlanOf(Size size);

// The first day of every made-up meet, a Saturday: 2026-05-16, in days since 1899-12-30. Ages are those of
// this day.
inline constexpr double kFirstMeetDay = 46158;

struct PlannedEvent {
  const Discipline* discipline = nullptr;
  size_t group = 0;  // of Plan::groups
  setup::Event row;  // numbered from 1; event_ptr is given by the file
};

// The events in the order of their numbers: by discipline, from the youngest, women first.
std::vector<PlannedEvent> PlanEvents(const Plan& plan, const setup::MeetDefaults& defaults);

}  // namespace tarvex::demo
