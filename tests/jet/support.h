#pragma once

#include <gtest/gtest.h>
#include <cstdlib>

#include <memory>
#include <string>
#include <vector>

#include "jet/database.h"
#include "jet/verify.h"
#include "tests/jet/memory_disk.h"

namespace tarvex::jet {

// Under sanitizers everything takes many times as long: TARVEX_QUICK asks for fewer repetitions.
inline uint32_t Repetitions(uint32_t usual, uint32_t quick) {
  return std::getenv("TARVEX_QUICK") ? quick : usual;
}

inline constexpr double kNow = 45000.25;
inline const std::string kFile = "meet.mdb";

inline std::string Described(const Status& status) {
  return status.ok() ? "ok" : status.detail;
}

#define ASSERT_OK(expression)                      \
  do {                                             \
    const ::tarvex::Status status_ = (expression); \
    ASSERT_TRUE(status_.ok()) << status_.detail;   \
  } while (false)

#define EXPECT_FAULT(wanted, expression)                                                    \
  do {                                                                                      \
    const ::tarvex::Status status_ = (expression);                                          \
    EXPECT_EQ(static_cast<int>(status_.fault), static_cast<int>(wanted)) << status_.detail; \
  } while (false)

// The value; a failed test and a default when there is none.
template <class T>
T Must(Expected<T> result) {
  if (result.ok()) return std::move(result).value();
  ADD_FAILURE() << result.status().detail;
  if constexpr (std::is_default_constructible_v<T>) {
    return T();
  } else {
    throw std::runtime_error(result.status().detail);
  }
}

// One line a finding; empty for a sound file. Warnings count only when wanted.
std::string Findings(Database& database, bool with_warnings = true);

// A new file on `disk` with one table made to `spec`, committed.
std::unique_ptr<Database> NewDatabase(MemoryDisk& disk, const TableSpec& spec);
std::unique_ptr<Database> OpenDatabase(MemoryDisk& disk, size_t cache_pages = Pager::kDefaultCache);

std::unique_ptr<Transaction> Begin(Database& database);
Table& TableOf(Database& database, const std::string& name);
// All rows of a table in the file's order.
std::vector<std::vector<Value>> Rows(const Table& table);
std::vector<RowId> RowIds(const Table& table);

std::string Hex(std::span<const uint8_t> bytes);
Bytes FromHex(std::string_view text);

// A text that is different for each `n` and as long as wanted.
std::string Filler(int n, size_t length);

}  // namespace tarvex::jet
