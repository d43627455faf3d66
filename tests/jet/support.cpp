#include "tests/jet/support.h"

namespace tarvex::jet {

std::string Findings(Database& database, bool with_warnings) {
  const auto findings = Verify(database);
  if (!findings.ok()) return findings.status().detail;
  std::string text;
  for (const Finding& finding : *findings) {
    if (finding.severity == 'W' && !with_warnings) continue;
    text += std::string(1, finding.severity) + " page " + std::to_string(finding.page) + ": " + finding.text +
            "\n";
  }
  return text;
}

std::unique_ptr<Database> NewDatabase(MemoryDisk& disk, const TableSpec& spec) {
  auto database = Must(Database::Create(disk, kFile, kNow));
  auto transaction = Begin(*database);
  Must(transaction->CreateTable(spec));
  EXPECT_EQ(Described(transaction->Commit()), "ok");
  return database;
}

std::unique_ptr<Database> OpenDatabase(MemoryDisk& disk, size_t cache_pages) {
  return Must(Database::Open(disk, kFile, OpenMode::ReadWrite, cache_pages));
}

std::unique_ptr<Transaction> Begin(Database& database) {
  return Must(database.Begin({"test", "tester"}, kNow));
}

Table& TableOf(Database& database, const std::string& name) {
  return *Must(database.FindTable(name));
}

std::vector<std::vector<Value>> Rows(const Table& table) {
  std::vector<std::vector<Value>> rows;
  TableScan scan = table.Scan();
  while (Must(scan.Next())) {
    std::vector<Value> row;
    for (size_t i = 0; i < table.def().columns.size(); ++i)
      row.push_back(Must(scan.record().Get(static_cast<int>(i))));
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<RowId> RowIds(const Table& table) {
  std::vector<RowId> rows;
  TableScan scan = table.Scan();
  while (Must(scan.Next())) rows.push_back(scan.record().id());
  return rows;
}

std::string Hex(std::span<const uint8_t> bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (const uint8_t byte : bytes) {
    if (!text.empty()) text += ' ';
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

Bytes FromHex(std::string_view text) {
  Bytes bytes;
  for (size_t i = 0; i + 1 < text.size(); i += 3)
    bytes.push_back(static_cast<uint8_t>(std::stoi(std::string(text.substr(i, 2)), nullptr, 16)));
  return bytes;
}

std::string Filler(int n, size_t length) {
  std::string text = std::to_string(n) + " ";
  while (text.size() < length)
    text += static_cast<char>('a' + (text.size() * 7 + static_cast<size_t>(n)) % 26);
  text.resize(length);
  return text;
}

}  // namespace tarvex::jet
