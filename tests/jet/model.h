#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "jet/database.h"
#include "tests/jet/memory_disk.h"

namespace tarvex::jet {

// Turns bytes, random or a fuzzer's, into choices. At its end it gives zeros.
class Choices {
 public:
  explicit Choices(std::span<const uint8_t> bytes) : bytes_(bytes) {}
  bool Done() const { return at_ >= bytes_.size(); }
  uint32_t Byte() { return Done() ? 0 : bytes_[at_++]; }
  uint32_t Below(uint32_t limit) { return (Byte() << 8 | Byte()) % limit; }

 private:
  std::span<const uint8_t> bytes_;
  size_t at_ = 0;
};

// A table of every kind of column with several indexes, and beside it the same rows in a map. Operations go
// to both; then both must tell the same.
class Model {
 public:
  static TableSpec Spec();
  Model(MemoryDisk& disk, size_t cache_pages);

  // Carries out operations until the choices end, then commits, opens the file anew and checks. The first
  // disagreement in words; empty when there is none.
  std::string Run(Choices& choices);

 private:
  using Row = std::vector<Value>;
  using State = std::map<RowId, Row>;

  std::string Open();
  std::string Step(Choices& choices);
  std::string Insert(Choices& choices);
  std::string Update(Choices& choices);
  std::string Delete(Choices& choices);
  std::string EndTransaction(bool commit);
  std::string Check();
  std::string CheckIndex(int index, const std::vector<int>& columns, bool unique);
  std::vector<FieldValue> Fields(Choices& choices, bool all);
  bool Collides(const Row& row, const RowId* itself) const;
  RowId Pick(Choices& choices) const;

  MemoryDisk& disk_;
  size_t cache_pages_;
  std::unique_ptr<Database> database_;
  std::unique_ptr<Transaction> transaction_;
  Table* table_ = nullptr;
  State rows_;
  State committed_;
  std::vector<std::pair<int, State>> savepoints_;
};

}  // namespace tarvex::jet
