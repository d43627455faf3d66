#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace tarvex::cli {

// What a script sees of a command.
enum ExitCode : int {
  kDone = 0,
  kRefused = 1,     // by a rule, or faults in the input
  kWrongUsage = 2,  // or an input file that cannot be read
  kUnanswered = 3,  // a question was left without an answer
  kFailed = 4,      // the meet file or the engine failed
};

// Runs one command of tarvexctl, `arguments` without the program's name, and gives its exit code. Output goes
// to `out`, messages for the person to `err`; questions are read from `in` when a person sits there.
int RunCommandLine(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
                   std::ostream& err);

}  // namespace tarvex::cli
