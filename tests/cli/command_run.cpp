#include "tests/cli/command_run.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include "base/platform.h"
#include "cli/command_line.h"
#include "jet/verify.h"

namespace tarvex::cli {

json CommandRun::Document() const {
  json document = json::parse(out, nullptr, false);
  EXPECT_FALSE(document.is_discarded()) << out << err;
  return document;
}

bool IsQuick() {
  return std::getenv("TARVEX_QUICK") != nullptr;
}

std::string FileText(const std::string& path) {
  if (!std::filesystem::is_regular_file(path)) return "";
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void WriteFileText(const std::string& path, std::string_view text) {
  std::ofstream(path, std::ios::binary) << text;
}

std::string ErrorsIn(const std::string& path) {
  const auto findings = jet::VerifyFile(platform::Files(), path);
  if (!findings.ok()) return path + ": " + findings.status().detail;
  std::string errors;
  for (const jet::Finding& finding : *findings) {
    if (finding.severity != 'E') continue;
    errors += "page " + std::to_string(finding.page) + ": " + finding.text + "\n";
  }
  return errors;
}

std::string FieldsOf(const json& object) {
  std::string fields;
  for (const auto& [name, value] : object.items()) fields += (fields.empty() ? "" : " ") + name;
  return fields;
}

CommandTest::CommandTest() {
  std::string pattern = (std::filesystem::temp_directory_path() / "cli.XXXXXX").string();
  folder_ = mkdtemp(pattern.data());
}

CommandTest::~CommandTest() {
  std::filesystem::remove_all(folder_);
}

std::string CommandTest::File(std::string_view name, std::string_view text) const {
  WriteFileText(Path(name), text);
  return Path(name);
}

CommandRun CommandTest::Run(const std::vector<std::string>& arguments) {
  std::istringstream in;
  std::ostringstream out, err;
  CommandRun run;
  run.code = RunCommandLine(arguments, in, out, err);
  run.out = out.str();
  run.err = err.str();
  return run;
}

json CommandTest::Done(std::vector<std::string> arguments) {
  const std::string path = arguments.at(1);
  arguments.insert(arguments.begin(), "--json");
  const CommandRun run = Run(arguments);
  EXPECT_EQ(run.code, kDone) << arguments[1] << ": " << run.err;
  EXPECT_EQ(ErrorsIn(path), "") << "after " << arguments[1];
  return run.Document();
}

json CommandTest::Rows(const std::string& path, const std::string& table) {
  const CommandRun run = Run({"--json", "dump", path, table});
  EXPECT_EQ(run.code, kDone) << run.err;
  return run.Document()["rows"];
}

}  // namespace tarvex::cli
