#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tarvex::bench {

// Times of several runs of one piece of work, in milliseconds.
struct Timing {
  std::vector<double> runs;

  double Median() const;
  double Least() const;
  double Greatest() const;
};

// Wall-clock time of `work`.
double Milliseconds(const std::function<void()>& work);

// Ends the program with a message when what was measured is not what was meant to be.
void Require(bool holds, const std::string& what);

// A new folder for files of this run; removed with everything in it by the destructor.
class ScratchFolder {
 public:
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  std::string File(const std::string& name) const;

 private:
  std::string path_;
};

}  // namespace tarvex::bench
