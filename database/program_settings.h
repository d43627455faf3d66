#pragma once

#include <string_view>

namespace tarvex::database {

// What the user of a computer chose for the program, whatever meet is open.
struct ProgramSettings {
  bool multi_user = false;       // meet files are opened for several users at once
  char decimal_separator = '.';  // or ',': of marks
  bool thousandths = false;      // track races are timed to the thousandth
  bool user_login = false;       // users log in after a meet file is opened
};

// Reads the settings file's text: lines KEY=VALUE with the keys MultiUser, Thousandths, UserLogin (0 or 1)
// and DecimalSep ("." or ","), in any order and case. Other lines are passed over, and a value that makes no
// sense leaves the default.
ProgramSettings ParseProgramSettings(std::string_view text);

}  // namespace tarvex::database
