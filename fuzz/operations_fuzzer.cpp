#include <cstdio>
#include <cstdlib>

#include "tests/jet/model.h"

// The input chooses operations on a table; the table must tell the same as a map that got the same
// operations.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace tarvex::jet;
  MemoryDisk disk;
  Model model(disk, size % 2 == 0 ? 64 : Pager::kDefaultCache);
  Choices choices({data, size});
  const std::string fault = model.Run(choices);
  if (!fault.empty()) {
    std::fprintf(stderr, "%s\n", fault.c_str());
    std::abort();
  }
  return 0;
}
