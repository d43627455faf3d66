#include "setup/event_checks.h"

#include <gtest/gtest.h>

#include <functional>

#include "setup/event_proposal.h"

namespace tarvex::setup {
namespace {

EventForm GoodForm() {
  EventForm form;
  form.event.event_no = 12;
  form.event.event_stroke = 'A';
  form.event.event_dist = 100;
  form.event.event_gender = 'M';
  return form;
}

std::string Refused(const std::function<void(EventForm&)>& change) {
  EventForm form = GoodForm();
  change(form);
  const std::optional<Notice> notice = CheckEvent(form);
  return notice ? notice->text : "";
}

TEST(ReadEventNumber, TakesALetterAndKeepsTheRange) {
  EXPECT_EQ(std::get<EventNumber>(ReadEventNumber("12")), (EventNumber{12, ""}));
  EXPECT_EQ(std::get<EventNumber>(ReadEventNumber(" 5a ")), (EventNumber{5, "A"}));
  EXPECT_EQ(std::get<EventNumber>(ReadEventNumber("999")), (EventNumber{999, ""}));
  for (const char* typed : {"1000", "0", "-3", "99999999999"}) {
    EXPECT_EQ(std::get<Notice>(ReadEventNumber(typed)).text, "Event number range is 1 to 999 !") << typed;
  }
  for (const char* typed : {"", "A", "1.5", "12AB", "1 2"}) {
    EXPECT_EQ(std::get<Notice>(ReadEventNumber(typed)).text, "Invalid event number") << typed;
  }
}

TEST(CheckEvent, AcceptsWhatIsProposed) {
  EXPECT_EQ(Refused([](EventForm&) {}), "");
  EventForm form = GoodForm();
  form.event = ProposeEvent({'F', 'R', 0, false, 4, std::nullopt, 0, 109}, {});
  form.event.event_no = 1;
  EXPECT_FALSE(CheckEvent(form));
}

TEST(CheckEvent, RefusesWithTheTextOfTheFirstFailure) {
  EXPECT_EQ(Refused([](EventForm& f) { f.event.event_no = 1000; }), "Event number range is 1 to 999 !");
  EXPECT_EQ(Refused([](EventForm& f) {
              f.event.low_age = 15;
              f.event.high_age = 14;
            }),
            "Age group High age cannot be lower than Low age !");
  EXPECT_EQ(Refused([](EventForm& f) { f.event.event_dist = 0; }),
            "Please select a distance for this event !");
  EXPECT_EQ(Refused([](EventForm& f) {
              f.event.event_stroke = 'C';
              f.event.event_dist = 201;
            }),
            "Distance cannot exceed 200 when using Mile for a running event !");
  EXPECT_EQ(Refused([](EventForm& f) { f.cross_country = f.road_race = true; }),
            "Please select either Cross Country, Road Race or neither, but not both !");
  EXPECT_EQ(Refused([](EventForm& f) {
              f.cross_country = true;
              f.event.event_rounds = 2;
            }),
            "When selecting Cross Country or Road Race, please select Finals Only for Rounds !");
  EXPECT_EQ(Refused([](EventForm& f) {
              f.event.trk_field = 'F';
              f.event.event_stroke = 'M';
              f.event.event_rounds = 3;
            }),
            "Field events are limited to 2 rounds !\nNormally field events are set-up as one round.");
  EXPECT_EQ(Refused([](EventForm& f) {
              f.event.event_rounds = 3;
              f.event.finals_setup = 'B';
              f.event.heats_insemi = 1;
            }),
            "Number of semi-final heats must equal or exceed number of heats in finals !");
  EXPECT_EQ(Refused([](EventForm& f) { f.event.serp_type = '3'; }),
            "One round events cannot select Seed Prelims as Timed Finals for Heat/Flight Assignment !");
  EXPECT_EQ(Refused([](EventForm& f) {
              f.event.event_rounds = 2;
              f.event.serp_type = '4';
            }),
            "Multiple round events cannot select Seed Timed Finals as Prelims for Heat/Flight Assignment !");
  EXPECT_EQ(Refused([](EventForm& f) {
              f.event.event_rounds = 2;
              f.event.finals_setup = 'C';
              f.event.heats_infinal = 2;
            }),
            "Please enter a 3 or more for the number of 3+ heats in finals !");
  EXPECT_EQ(Refused([](EventForm& f) {
              f.event.event_stroke = '2';
              f.event.event_gender = 'X';
            }),
            "Mixed sexes not permitted in Combined Events !");
  EXPECT_EQ(
      Refused([](EventForm& f) { f.random_select = true; }),
      "Meet is set-up for Random Select, so enter the number of athletes (1-5) for computerized seeding "
      "of each team.");
  EXPECT_EQ(Refused([](EventForm& f) { f.entry_fee = "5.5.0"; }), "Invalid Entry Fee");
  // Two things wrong: the earlier check speaks.
  EXPECT_EQ(Refused([](EventForm& f) {
              f.entry_fee = "five";
              f.event.event_dist = 0;
            }),
            "Please select a distance for this event !");
}

TEST(CheckEvent, RefusesANumberThatAnotherEventHas) {
  const EventNumber others[] = {{12, "A"}, {13, ""}};
  EventForm form = GoodForm();
  form.other_events = others;
  EXPECT_FALSE(CheckEvent(form));
  form.event.event_ltr = "A";
  EXPECT_EQ(CheckEvent(form)->text, "Invalid event number");
}

TEST(CheckEvent, KeepsWhatEntriesAndSeedingDependOn) {
  Event before = GoodForm().event;
  EventForm form = GoodForm();
  form.before = &before;
  form.has_entries = true;
  form.event.event_stroke = 'E';  // another race is still a race
  EXPECT_FALSE(CheckEvent(form));
  form.event.ind_rel = 'R';
  EXPECT_EQ(CheckEvent(form)->text,
            "Entries have already been entered in this event.\nTherefore the event cannot be changed from an "
            "individual event to a relay event unless you delete all entries in this event.");
  form.event.trk_field = 'F';
  form.event.event_stroke = 'K';
  EXPECT_EQ(CheckEvent(form)->text,
            "Entries have already been entered in this event.\nTherefore the type of event cannot be changed "
            "unless you delete all entries in this event.");
  form = GoodForm();
  form.before = &before;
  before.event_rounds = 2;
  EXPECT_FALSE(CheckEvent(form));
  before.event_stat = '1';
  EXPECT_EQ(CheckEvent(form)->text.substr(0, 66),
            "This event has already been seeded or already has results.\nTherefo");
}

TEST(CheckAgeGroups, MustCoverTheEventWithoutGaps) {
  Event event;
  event.low_age = 30;
  const auto refused = [&](std::vector<AgeGroup> groups) {
    const std::optional<Notice> notice = CheckAgeGroups(event, groups);
    return notice ? notice->text : "";
  };
  EXPECT_EQ(refused({{30, 39}, {40, 109}}), "");
  EXPECT_EQ(refused({{31, 39}, {40, 109}}),
            "Multi-Age Group problem: The first age group must contain 30 for the low age !");
  EXPECT_EQ(refused({{30, 39}, {41, 109}}),
            "Multi-Age Group problem: Age groups must not overlap and there can be no age gaps !");
  EXPECT_EQ(refused({{30, 39}, {39, 109}}),
            "Multi-Age Group problem: Age groups must not overlap and there can be no age gaps !");
  EXPECT_EQ(refused({{30, 39}, {40, 99}}),
            "Multi-Age Group problem: Last high age must equal overall event high age of 109 !");
}

struct ProposalCase {
  char kind;
  float distance;
  bool relay;
  char course;
  char std_lanes;
  int lanes;
  int alleys;
};

TEST(ProposeEvent, ChoosesLanesByTheLegs) {
  constexpr ProposalCase kCases[] = {
      {'A', 400, false, 'M', '1', 8, 0},  {'B', 800, false, 'M', '4', 8, 4},
      {'B', 1000, false, 'M', '4', 8, 4}, {'B', 1500, false, 'M', '6', 16, 0},
      {'C', 1, false, 'E', '6', 16, 0},   {'A', 440, false, 'E', '1', 8, 0},
      {'W', 1600, true, 'M', '1', 8, 0},  {'W', 3200, true, 'M', '4', 8, 4},
      {'W', 6000, true, 'M', '6', 16, 0}, {'R', 0, false, 'M', '1', 16, 0},
  };
  for (const ProposalCase& c : kCases) {
    const Event event =
        ProposeEvent({'M', c.kind, c.distance, c.relay, 4, std::nullopt, 0, 109}, {'T', 1, 8, c.course});
    EXPECT_EQ(event.std_lanes, c.std_lanes) << c.kind << c.distance;
    EXPECT_EQ(event.num_finlanes, c.lanes) << c.kind << c.distance;
    EXPECT_EQ(event.rnd_alleys[0], c.alleys) << c.kind << c.distance;
  }
}

TEST(ProposeEvent, BuildsFieldEventsUpToTheBestFlight) {
  const Event shot = ProposeEvent({'F', 'R', 0, false, 4, std::nullopt, 0, 109}, {});
  EXPECT_EQ(shot.trk_field, 'F');
  EXPECT_EQ(shot.finheat_order, '2');
  EXPECT_EQ(shot.adv_how, '1');
  EXPECT_EQ(shot.event_sex, 'G');
  const Event other = ProposeEvent({'M', 'T', 60, false, 4, 'T', 0, 109}, {});
  EXPECT_EQ(other.trk_field, 'T');
}

}  // namespace
}  // namespace tarvex::setup
