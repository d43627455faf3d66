#pragma once

#include <string_view>

#include "base/message.h"

// The texts of this folder.
namespace tarvex::marks {

struct Text {
  int number;
  std::string_view english;

  Notice Shown() const { return Message(number, english); }
};

inline constexpr Text kUnclear{9001, " meaning unclear, re-enter, please !"};  // follows what was typed
inline constexpr Text kNotAValid{9002, "Not a valid"};  // followed by one of the next two
inline constexpr Text kTime{9003, " Time"};
inline constexpr Text kMark{9004, " Mark"};
inline constexpr Text kHandAndVideo{9005, "Time cannot be both a hand time and a video time."};
inline constexpr Text kInchesTooMany{9006, "Inches cannot exceed 11 !"};
inline constexpr Text kFeetTooMany{9007, "Maximum permitted is 999 feet !"};
inline constexpr Text kMetersTooMany{9008, "Maximum permitted is 300 meters !"};

// The range questions, three lines each.
inline constexpr Text kTimeOutOfRange{9009, "Time entered is out of range for this event !"};
inline constexpr Text kRangeFrom{9010, "Range permitted is from "};
inline constexpr Text kRangeTo{9011, " to "};
inline constexpr Text kAcceptTime{9012, "Accept the time anyway ?"};
inline constexpr Text kMarkOutOfRange{9013, "Mark entered is out of range for this event !"};
inline constexpr Text kAcceptMark{9014, "Accept the Mark anyway ?"};

inline constexpr Text kHeight350{9015, "Maximum height is 3.50 meters"};
inline constexpr Text kHeight11Feet{9016, "Maximum height is 11 feet"};
inline constexpr Text kHeight900{9017, "Maximum height is 9.00 meters"};
inline constexpr Text kHeight27Feet{9018, "Maximum height is 27 feet"};
inline constexpr Text kJump1200{9019, "Maximum jump is 12.00 meters"};
inline constexpr Text kJump40Feet{9020, "Maximum jump is 40 feet"};
inline constexpr Text kJump2400{9021, "Maximum jump is 24.00 meters"};
inline constexpr Text kJump80Feet{9022, "Maximum jump is 80 feet"};
inline constexpr Text kThrow10000{9023, "Maximum throw is 100.00 meters"};
inline constexpr Text kThrow320Feet{9024, "Maximum throw is 320 feet"};
inline constexpr Text kThrow12000{9025, "Maximum throw is 120.00 meters"};
inline constexpr Text kThrow375Feet{9026, "Maximum throw is 375 feet"};
inline constexpr Text kThrow3000{9027, "Maximum throw is 30.00 meters"};
inline constexpr Text kThrow100Feet{9028, "Maximum throw is 100 feet"};

// Limits of the time ranges that are words.
inline constexpr Text k7Seconds{9029, "7 seconds"};
inline constexpr Text k10Seconds{9030, "10 seconds"};
inline constexpr Text k20Seconds{9031, "20 seconds"};
inline constexpr Text k48Minutes{9032, "48 minutes"};
inline constexpr Text k50Seconds{9033, "50 seconds"};
inline constexpr Text k3Minutes{9034, "3 minutes"};
inline constexpr Text k6Minutes{9035, "6 minutes"};
inline constexpr Text k8Minutes{9036, "8 minutes"};
inline constexpr Text k10Minutes{9037, "10 minutes"};
inline constexpr Text k12Minutes{9038, "12 minutes"};
inline constexpr Text k13Minutes{9039, "13 minutes"};
inline constexpr Text k22Minutes{9040, "22 minutes"};
inline constexpr Text k24Minutes{9041, "24 minutes"};
inline constexpr Text k40Minutes{9042, "40 minutes"};
inline constexpr Text k60Minutes{9043, "60 minutes"};
inline constexpr Text k1Hour20{9044, "1 hr 20 minutes"};
inline constexpr Text k1Hour30{9045, "1 hr 30 minutes"};
inline constexpr Text k2Hours{9046, "2 hours"};
inline constexpr Text k3Hours{9047, "3 hours"};
inline constexpr Text k10Hours{9048, "10 hours"};
inline constexpr Text k26Hours{9049, "26 hours"};

}  // namespace tarvex::marks
