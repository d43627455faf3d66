#include "setup/event_name.h"

#include <gtest/gtest.h>

namespace tarvex::setup {
namespace {

Event Make(char sex, char kind, float distance, char unit = 'M') {
  Event event;
  event.event_sex = sex;
  event.event_stroke = kind;
  event.event_dist = distance;
  event.res_meas = unit;
  event.trk_field = (kind >= 'K' && kind <= 'S') || kind == '1' ? 'F' : 'T';
  return event;
}

Event MakeRelay(char kind, float distance, int legs) {
  Event event = Make('B', kind, distance);
  event.ind_rel = 'R';
  event.relay_size = legs;
  return event;
}

TEST(EventName, ReadsAsInAProgramme) {
  const NameSettings plain;
  EXPECT_EQ(EventName(Make('G', 'A', 100), plain), "Girls 100 Meter Dash");
  EXPECT_EQ(EventName(Make('M', 'E', 110), plain), "Men 110 Meter Hurdles");
  EXPECT_EQ(EventName(Make('B', 'A', 220, 'E'), plain), "Boys 220 Yard Dash");
  EXPECT_EQ(EventName(Make('W', 'C', 1), plain), "Women 1 Mile Run");
  EXPECT_EQ(EventName(Make('M', 'D', 2), plain), "Men 2 Mile Race Walk");
  EXPECT_EQ(EventName(Make('M', 'D', 20000), plain), "Men 20000 Meter Race Walk");
  EXPECT_EQ(EventName(Make('X', 'J', 42195), plain), "Mixed Marathon");
  EXPECT_EQ(EventName(Make('M', 'R', 0), plain), "Men Shot Put");
  EXPECT_EQ(EventName(Make('M', '1', 0), plain), "Men Decathlon");
}

TEST(EventName, ShowsTheLegsOfARelay) {
  EXPECT_EQ(EventName(MakeRelay('W', 400, 4), {}), "Boys 4x100 Meter Relay");
  EXPECT_EQ(EventName(MakeRelay('W', 1000, 3), {}), "Boys 1000 Meter Relay");  // does not divide
  EXPECT_EQ(EventName(MakeRelay('W', 400, 4), {'T', true}), "Boys 400 Meter Relay");
  EXPECT_EQ(EventName(MakeRelay('X', 1600, 4), {}), "Boys Sprint Medley");
}

TEST(EventName, EndsWithAgesAndDivision) {
  Event event = Make('G', 'A', 100);
  event.low_age = 13;
  event.high_age = 14;
  EXPECT_EQ(EventName(event, {}), "Girls 100 Meter Dash 13-14");
  EXPECT_EQ(EventName(event, {}, "JV"), "Girls 100 Meter Dash 13-14 JV");
}

TEST(AgeText, NamesOpenEnds) {
  EXPECT_EQ(AgeText(0, 109), "");
  EXPECT_EQ(AgeText(0, 8), "8 & Under");
  EXPECT_EQ(AgeText(30, 109), "30 & Over");
  EXPECT_EQ(AgeText(9, 9), "9");
}

}  // namespace
}  // namespace tarvex::setup
