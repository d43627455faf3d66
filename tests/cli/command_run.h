#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex::cli {

using nlohmann::json;

// What a script sees of one run of the program.
struct CommandRun {
  int code = 0;
  std::string out, err;

  // Of a run with --json; a failed test when the output is no JSON document.
  json Document() const;
};

// TARVEX_QUICK asks for shorter loops, as under sanitizers.
bool IsQuick();

// The bytes of a file; empty when there is none.
std::string FileText(const std::string& path);
void WriteFileText(const std::string& path, std::string_view text);

// The findings of the structural check that are errors, one a line; empty for a sound file.
std::string ErrorsIn(const std::string& path);

// The names of an object's fields, sorted, with a blank between them.
std::string FieldsOf(const json& object);

// A folder of its own for every test, removed afterwards, with the commands run inside this process.
class CommandTest : public testing::Test {
 protected:
  CommandTest();
  ~CommandTest() override;

  std::string Path(std::string_view name) const { return (folder_ / name).string(); }
  // The path of a file with this text.
  std::string File(std::string_view name, std::string_view text) const;

  static CommandRun Run(const std::vector<std::string>& arguments);
  // The document of a run that must be done; the file it worked on, the first argument after the command,
  // must be sound afterwards.
  static json Done(std::vector<std::string> arguments);
  // The rows of a table as `dump` gives them.
  static json Rows(const std::string& path, const std::string& table);

  std::filesystem::path folder_;
};

}  // namespace tarvex::cli
