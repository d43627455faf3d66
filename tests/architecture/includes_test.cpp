// Holds the shape of the program: who may include whom, and that no message number is given twice.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace tarvex {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = TARVEX_ROOT;
const std::vector<std::string> kFolders = {"base",    "jet",     "marks",   "database", "setup", "scoring",
                                           "seeding", "running", "reports", "demo",     "print", "cli"};

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> SourcesOf(const std::string& folder) {
  std::vector<fs::path> sources;
  for (const auto& entry : fs::directory_iterator(kRoot / folder)) {
    const std::string extension = entry.path().extension().string();
    if (extension == ".cpp" || extension == ".h") sources.push_back(entry.path());
  }
  return sources;
}

// The folders that the DEPS line of a folder names.
std::set<std::string> PermissionOf(const std::string& folder) {
  const std::string text = ReadFile(kRoot / folder / "CMakeLists.txt");
  const std::regex line(R"(tarvex_library\(\s*\w+\s+DEPS([\w\s]*?)(LINK|\)))");
  std::smatch match;
  std::set<std::string> folders;
  if (!std::regex_search(text, match, line)) return folders;
  std::istringstream words(match[1].str());
  for (std::string word; words >> word;) folders.insert(word);
  return folders;
}

// Folder names at the head of a file's own includes.
std::vector<std::string> IncludedFolders(const std::string& text) {
  static const std::regex include("#include \"(\\w+)/");
  std::vector<std::string> folders;
  for (std::sregex_iterator at(text.begin(), text.end(), include), end; at != end; ++at)
    folders.push_back((*at)[1]);
  return folders;
}

TEST(Includes, StayWithinTheFoldersPermission) {
  size_t looked_at = 0;
  for (const std::string& folder : kFolders) {
    std::set<std::string> permitted = PermissionOf(folder);
    permitted.insert(folder);
    for (const fs::path& source : SourcesOf(folder)) {
      for (const std::string& included : IncludedFolders(ReadFile(source))) {
        EXPECT_TRUE(permitted.contains(included)) << source << " includes " << included;
        ++looked_at;
      }
    }
  }
  EXPECT_GT(looked_at, 500u);
}

TEST(Includes, PointDownwardsOnly) {
  for (size_t i = 0; i < kFolders.size(); ++i) {
    for (const std::string& dep : PermissionOf(kFolders[i])) {
      const auto place = std::find(kFolders.begin(), kFolders.end(), dep);
      EXPECT_LT(place - kFolders.begin(), static_cast<std::ptrdiff_t>(i))
          << kFolders[i] << " depends on " << dep;
    }
  }
  EXPECT_FALSE(PermissionOf("seeding").contains("running"));
  EXPECT_FALSE(PermissionOf("running").contains("seeding"));
  EXPECT_FALSE(PermissionOf("seeding").contains("scoring"));
}

// Rules stay free of storage: outside database/, only files that load and save know the engine.
TEST(Includes, LeaveTheEngineToStoresAndTheRawFileCommands) {
  const std::set<std::string> others = {"cli/commands_file.cpp", "cli/value_json.h"};
  for (const std::string folder : {"marks", "scoring", "seeding", "running", "reports", "print", "cli"}) {
    for (const fs::path& source : SourcesOf(folder)) {
      const std::string name = folder + "/" + source.filename().string();
      const bool is_store = name.find("_store.") != std::string::npos;
      if (is_store || others.contains(name)) continue;
      EXPECT_EQ(ReadFile(source).find("#include \"jet/"), std::string::npos) << name;
    }
  }
}

TEST(OperatingSystem, IsKnownToOneFileOnly) {
  static const std::regex system_header(R"(#include <(unistd|fcntl|windows|dirent|sys/\w+)\.?h?>)");
  for (const std::string& folder : kFolders) {
    for (const fs::path& source : SourcesOf(folder)) {
      if (source.filename() == "platform.cpp") continue;
      EXPECT_FALSE(std::regex_search(ReadFile(source), system_header)) << source;
    }
  }
}

// Pieces that several messages share may be written again with the very same text.
TEST(MessageNumbers, StandForOneTextEach) {
  static const std::regex message(R"((?:Message\(|Text k\w+\{)\s*(\d{4,5}),\s*((?:"(?:[^"\\]|\\.)*"\s*)+))");
  std::map<int, std::string> texts;
  for (const std::string& folder : kFolders) {
    for (const fs::path& source : SourcesOf(folder)) {
      const std::string text = ReadFile(source);
      for (std::sregex_iterator at(text.begin(), text.end(), message), end; at != end; ++at) {
        const int number = std::stoi((*at)[1]);
        const std::string english = std::regex_replace((*at)[2].str(), std::regex("\"\\s*\"|\\s+$"), "");
        const auto [known, is_new] = texts.emplace(number, english);
        EXPECT_EQ(known->second, english) << "number " << number << " in " << source;
      }
    }
  }
  EXPECT_GT(texts.size(), 200u);
}

}  // namespace
}  // namespace tarvex
