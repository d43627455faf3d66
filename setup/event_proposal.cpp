#include "setup/event_proposal.h"

#include <string_view>

#include "setup/event_kind.h"
#include "setup/sex.h"

namespace tarvex::setup {
namespace {

constexpr int kPerFlight = 16;
constexpr int kPerArcStart = 16;

// One lap is run in lanes; up to a little over two laps start from alleys, longer races from an arc. In yards
// the laps are 440.
char ProposedLaneMethod(float leg, bool yards) {
  const float lap = yards ? 440.0F : 400.0F;
  const float longest_in_alleys = yards ? 1100.0F : 1000.0F;
  if (leg <= lap) return '1';
  return leg <= longest_in_alleys ? '4' : '6';
}

void SetAllLanes(Event& event, int lanes) {
  event.num_prelanes = event.num_qtrlanes = event.num_semlanes = event.num_finlanes = lanes;
}

void ProposeTrack(Event& event, const MeetDefaults& meet) {
  const bool miles = IsInMiles(meet.meet_type, event.event_stroke, event.event_dist);
  const float leg = event.event_dist / static_cast<float>(Legs(event));
  event.std_lanes = miles ? '6' : ProposedLaneMethod(leg, event.res_meas == 'E');
  SetAllLanes(event, event.std_lanes == '6' ? kPerArcStart : meet.num_lanes);
  if (event.std_lanes == '4') event.rnd_alleys[0] = meet.num_lanes / 2;
  event.preheat_order = event.finheat_order = '1';
  event.adv_how = '2';
}

void ProposeField(Event& event) {
  SetAllLanes(event, kPerFlight);
  event.std_lanes = '1';
  event.preheat_order = event.finheat_order = '2';  // the best flight last
  event.adv_how = '1';
}

}  // namespace

char TrackOrField(char meet_type, char kind) {
  if (meet_type == 'L' || meet_type == 'S') return 'T';  // every surf and triathlon event is a race
  const bool field = (kind >= 'K' && kind <= 'S') || kind == 'U' || IsCombinedKind(kind);
  return field ? 'F' : 'T';
}

Event ProposeEvent(const EventRequest& request, const MeetDefaults& meet) {
  Event event;
  event.ind_rel = request.relay ? 'R' : 'I';
  event.relay_size = request.relay ? request.relay_size : 0;
  event.event_gender = request.gender;
  event.event_sex = ProposedSex(request.gender, meet.meet_class, request.high_age);
  event.event_stroke = request.kind;
  event.event_dist = request.distance;
  event.low_age = request.low_age;
  event.high_age = request.high_age;
  event.res_meas = event.seed_meas = meet.course;
  event.score_event = true;
  event.trk_field = request.trk_field.value_or(TrackOrField(meet.meet_type, request.kind));
  if (event.trk_field == 'F') {
    ProposeField(event);
  } else {
    ProposeTrack(event, meet);
  }
  return event;
}

}  // namespace tarvex::setup
