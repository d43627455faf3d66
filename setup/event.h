#pragma once

#include <array>
#include <string>
#include <string_view>

namespace tarvex::setup {

// One event: the fields of its row that the rules read. One-letter fields are upper-case, ' ' when blank,
// except that reading replaces a blank where a meaning is fixed (see ReadCode).
struct Event {
  int event_ptr = 0;
  int event_no = 0;         // 1 to 999
  std::string event_ltr;    // "" or one letter
  char ind_rel = 'I';       // 'I' individual, 'R' relay
  char event_sex = 'X';     // the word in its name: 'B', 'G', 'M', 'W', 'X'
  char event_gender = 'X';  // who competes: 'M', 'F', 'X'
  float event_dist = 0;     // metres, yards when res_meas is 'E', miles for some kinds; relays: all legs
  char event_stroke = ' ';  // kind letter
  int low_age = 0;
  int high_age = 109;
  bool multi_age = false;
  char event_stat = 'U';
  char unseeded_stat = ' ';
  char adv_how = '1';
  char serp_type = '1';  // seeding method
  char trk_field = 'T';  // 'T' track, 'F' field
  char seed_meas = 'M';
  char res_meas = 'M';  // unit of results: 'M' metric, 'E' English
  int event_rounds = 1;
  int num_prelanes = 0;  // lanes, or athletes per heat or flight, of each round
  int num_qtrlanes = 0;
  int num_semlanes = 0;
  int num_finlanes = 0;
  char finals_setup = 'A';
  int heats_infinal = 0;  // 0: as many as the entries need
  int heats_insemi = 0;
  int heats_inqtr = 0;
  char std_lanes = '1';      // lane method
  char preheat_order = '1';  // every round but the last
  char finheat_order = '1';  // the last round, also the only one
  bool score_event = false;
  int div_no = 0;  // 0: none
  int relay_size = 0;
  char event_type = ' ';               // ' ' track or field, 'C' cross country, 'R' road race
  char event_type2 = ' ';              // 'A' relay scored by adding, 'J' jump-off held
  std::array<int, 4> rnd_alleys = {};  // alleys of round 1 to 4; 0: the lanes of the meet
  std::array<int, 3> top_no = {};      // advancement formulas 1 to 3
  std::array<int, 3> next_best = {};
  std::array<int, 3> heatsin_rnd = {};
};

// The one-letter code that a text field holds: upper-cased, `when_blank` for an empty or blank text.
char ReadCode(std::string_view field, char when_blank);

// The high age of an event or division whose field may be empty: no high age means no limit.
constexpr int HighAge(int stored) {
  return stored == 0 ? 109 : stored;
}

}  // namespace tarvex::setup
