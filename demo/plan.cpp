#include "demo/plan.h"

namespace tarvex::demo {
namespace {

PlannedEvent Propose(const Discipline& discipline, size_t group_index, const AgeGroup& group, char sex,
                     const setup::MeetDefaults& defaults) {
  setup::EventRequest request;
  request.gender = sex;
  request.kind = discipline.kind;
  request.distance = static_cast<float>(discipline.distance);
  request.relay = discipline.is_relay();
  request.relay_size = discipline.runners;
  request.low_age = group.low_age;
  request.high_age = group.high_age;
  return {&discipline, group_index, setup::ProposeEvent(request, defaults)};
}

}  // namespace

Plan PlanOf(Size size) {
  Plan plan;
  if (size == Size::Small) {
    plan.meet_name = "Orms Valley Spring Invitational";
    plan.meet_location = "Ormsgate Stadium, Ormsgate";
    plan.teams = 24;
    plan.entries = 940;
    plan.relay_share = 850;
    plan.fewest_for_relay = 5;
    plan.foreign_athletes = 1;
    plan.groups = {{'S', 0, 109, 1000}};
    return plan;
  }
  plan.meet_name = "Six Counties Age Group Championships";
  plan.meet_location = "Velmholt Athletics Park, Velmholt";
  plan.meet_class = 3;
  plan.is_school_meet = false;
  plan.lanes = 9;
  plan.teams = 200;
  plan.entries = 18800;
  plan.relay_share = 550;
  plan.fewest_for_relay = 5;
  plan.foreign_athletes = 12;
  plan.groups = {
      {'A', 11, 12, 170}, {'B', 13, 14, 220}, {'C', 15, 16, 230}, {'D', 17, 18, 210}, {'E', 19, 109, 170}};
  return plan;
}

std::vector<PlannedEvent> PlanEvents(const Plan& plan, const setup::MeetDefaults& defaults) {
  std::vector<PlannedEvent> events;
  for (const Discipline& discipline : Disciplines()) {
    for (size_t group = 0; group < plan.groups.size(); ++group) {
      if (discipline.groups.find(plan.groups[group].letter) == std::string_view::npos) continue;
      for (const char sex : {'F', 'M'}) {
        if (discipline.sex != 'X' && discipline.sex != sex) continue;
        events.push_back(Propose(discipline, group, plan.groups[group], sex, defaults));
        events.back().row.event_no = static_cast<int>(events.size());
      }
    }
  }
  return events;
}

}  // namespace tarvex::demo
