#pragma once

#include <string>
#include <vector>

namespace tarvex::seeding {

// An entry or relay that waits for its heat and lane.
struct Seed {
  int id = 0;                    // ath_no, or relay_no of a relay
  float mark = 0;                // converted seed mark, in the event's unit; 0: none
  int seed_place = 0;            // 0: none
  bool exhibition = false;       // see IsExhibition
  int comp_no = 0;               // competitor number, of a relay its own; 0: none
  std::string name = {};         // last name; team name of a relay
  std::string second_name = {};  // first name; letter of a relay
};

// Where it was put. Lane is the position of a field event, and the alley position as one number.
struct Place {
  int id = 0;
  int heat = 0;
  int lane = 0;

  bool operator==(const Place&) const = default;
};

// A heat or flight, best first.
using Heat = std::vector<Seed>;

}  // namespace tarvex::seeding
