#include "tests/jet/damage.h"

#include "jet/verify.h"
#include "tests/jet/model.h"

namespace tarvex::jet {
namespace {

const std::string kPath = "damaged.mdb";

std::string Text(int n, size_t length) {
  std::string text;
  for (size_t i = 0; text.size() < length; ++i)
    text += static_cast<char>('a' + (i * 3 + static_cast<size_t>(n) * 7) % 26);
  return text;
}

Status Build(MemoryDisk& disk) {
  TRY_ASSIGN(auto database, Database::Create(disk, kPath, 45000));
  TRY_ASSIGN(auto transaction, database->Begin({"build", ""}, 45000));
  TRY_ASSIGN(Table * table, transaction->CreateTable(Model::Spec()));
  TableSpec wide{"Wide", {}, {{"ByFirst", {"Column 0"}}}};
  for (int i = 0; i < 90; ++i) {
    wide.columns.push_back(
        {"Column " + std::to_string(i), i % 3 == 0 ? ColumnType::Text : ColumnType::Long, 30});
  }
  TRY(transaction->CreateTable(wide).status());
  std::vector<RowId> rows;
  for (int i = 0; i < 150; ++i) {
    TRY_ASSIGN(const auto inserted,
               transaction->Insert(*table, std::vector<FieldValue>{{1, Text(i, 100)},
                                                                   {2, std::to_string(i)},
                                                                   {3, i % 9},
                                                                   {6, Text(i, i % 50 == 0  ? 9000
                                                                               : i % 5 == 0 ? 200
                                                                                            : 20)},
                                                                   {7, Bytes(i % 4 == 0 ? 300 : 10)},
                                                                   {8, Date{1.0 * i}}}));
    rows.push_back(inserted.row);
  }
  for (size_t i = 0; i < rows.size(); i += 10) {
    TRY(transaction->Update(*table, rows[i], std::vector<FieldValue>{{1, Text(static_cast<int>(i), 250)}}));
  }
  for (size_t i = 5; i < rows.size(); i += 10) TRY(transaction->Delete(*table, rows[i]));
  return transaction->Commit();
}

void Read(Table& table) {
  TableScan scan = table.Scan();
  for (int rows = 0; rows < 2000; ++rows) {
    const auto more = scan.Next();
    if (!more.ok() || !*more) break;
    for (size_t i = 0; i < table.def().columns.size(); ++i) (void)scan.record().Get(static_cast<int>(i));
  }
  for (size_t i = 0; i < table.def().indexes.size(); ++i) {
    auto range = table.Range(static_cast<int>(i), {}, {});
    for (int rows = 0; range.ok() && !range->AtEnd() && rows < 2000; ++rows) {
      (void)table.Get(range->row());
      if (!range->Next().ok()) break;
    }
  }
}

// Some rows in, changed and out again; a failure ends the transaction.
Status Change(Database& database, const std::string& name) {
  TRY_ASSIGN(auto transaction, database.Begin({"change", ""}, 45000));
  TRY_ASSIGN(Table * table, database.FindTable(name));
  std::vector<RowId> rows;
  TableScan scan = table->Scan();
  while (rows.size() < 40) {
    TRY_ASSIGN(const bool more, scan.Next());
    if (!more) break;
    rows.push_back(scan.record().id());
  }
  const auto refused = [](const Status& status) {
    return status.ok() || status.fault == Fault::Duplicate || status.fault == Fault::Invalid ||
           status.fault == Fault::Range;
  };
  for (size_t i = 0; i < rows.size(); ++i) {
    std::vector<FieldValue> fields;
    for (size_t c = 0; c < table->def().columns.size(); ++c) {
      const Column& column = table->def().columns[c];
      if (column.is_text())
        fields.push_back({static_cast<int>(c), Text(static_cast<int>(i + c), i % 7 == 0 ? 100 : 5)});
      if (column.type == ColumnType::Ole) fields.push_back({static_cast<int>(c), Bytes(i * 200)});
    }
    Status status = transaction->Insert(*table, fields).status();
    if (refused(status)) status = transaction->Update(*table, rows[i], fields);
    if (refused(status) && i % 2 == 0) status = transaction->Delete(*table, rows[i]);
    if (!refused(status)) return status;
  }
  return transaction->Commit();
}

}  // namespace

MemoryDisk::Content RichFile() {
  static const MemoryDisk::Content content = [] {
    MemoryDisk disk;
    const Status status = Build(disk);
    return status.ok() ? disk.At(kPath) : MemoryDisk::Content();
  }();
  return content;
}

int Exercise(MemoryDisk::Content content) {
  MemoryDisk disk;
  disk.Put(kPath, std::move(content));
  auto opened = Database::Open(disk, kPath, OpenMode::ReadWrite, 64);
  if (!opened.ok()) return -1;
  Database& database = **opened;
  auto names = database.TableNames();
  if (!names.ok()) names = std::vector<std::string>{"Model", "MSysObjects", "MSysACEs"};
  for (const std::string& name : *names) {
    if (const auto table = database.FindTable(name); table.ok()) Read(**table);
  }
  const auto findings = Verify(database);
  for (const std::string& name : *names) (void)Change(database, name);
  if (auto transaction = database.Begin({"create", ""}, 45000); transaction.ok()) {
    TableSpec spec = Model::Spec();
    spec.name = "Another";
    if ((*transaction)->CreateTable(spec).ok()) (void)(*transaction)->Commit();
  }
  (void)Verify(database);
  return findings.ok() ? static_cast<int>(findings->size()) : -1;
}

}  // namespace tarvex::jet
