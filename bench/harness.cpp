#include "bench/harness.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace tarvex::bench {

double Timing::Median() const {
  std::vector<double> sorted = runs;
  std::sort(sorted.begin(), sorted.end());
  return sorted.empty() ? 0 : sorted[sorted.size() / 2];
}
double Timing::Least() const {
  return runs.empty() ? 0 : *std::min_element(runs.begin(), runs.end());
}
double Timing::Greatest() const {
  return runs.empty() ? 0 : *std::max_element(runs.begin(), runs.end());
}

double Milliseconds(const std::function<void()>& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

void Require(bool holds, const std::string& what) {
  if (holds) return;
  std::fprintf(stderr, "benchmark failed: %s\n", what.c_str());
  std::exit(1);
}

ScratchFolder::ScratchFolder() {
  // Beside the program and not in the system's folder for temporary files, which may lie in memory.
  std::string pattern = (std::filesystem::current_path() / "bench.XXXXXX").string();
  Require(mkdtemp(pattern.data()) != nullptr, "no folder for the files");
  path_ = pattern;
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string ScratchFolder::File(const std::string& name) const {
  return path_ + "/" + name;
}

}  // namespace tarvex::bench
