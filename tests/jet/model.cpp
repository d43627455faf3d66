#include "tests/jet/model.h"

#include <algorithm>

#include "jet/verify.h"

namespace tarvex::jet {
namespace {

const std::string kPath = "model.mdb";
constexpr double kDay = 45000;
enum Field { kId, kName, kCode, kPoints, kMark, kFlag, kNote, kPicture, kWhen, kFee, kFields };

Value RandomText(Choices& choices, uint32_t longest, bool upper) {
  if (choices.Byte() % 8 == 0) return Null{};
  std::string text;
  const uint32_t length = 1 + choices.Below(longest);
  uint32_t letter = choices.Byte();
  for (uint32_t i = 0; i < length; ++i) {
    text += static_cast<char>((upper || letter % 2 == 0 ? 'A' : 'a') + letter % 26);
    letter = letter * 5 + 3 + (i % 4 == 0 ? choices.Byte() : 0);
  }
  return text;
}

// Text compares without regard to case; nulls come first.
Value Folded(const Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  if (!text) return value;
  std::string upper = *text;
  for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return upper;
}

}  // namespace

TableSpec Model::Spec() {
  return {"Model",
          {{"Id", ColumnType::Long, 0, true},
           {"Name", ColumnType::Text, 255},
           {"Code", ColumnType::Text, 8},
           {"Points", ColumnType::Integer},
           {"Mark", ColumnType::Double},
           {"Flag", ColumnType::Boolean},
           {"Note", ColumnType::Memo},
           {"Picture", ColumnType::Ole},
           {"When", ColumnType::Date},
           {"Fee", ColumnType::Currency}},
          {{"PrimaryKey", {"Id"}, true},
           {"ByName", {"Name"}},
           {"ByCode", {"Code"}, false, true},
           {"ByPointsAndName", {"Points", "Name"}},
           {"ByNote", {"Note"}}}};
}

Model::Model(MemoryDisk& disk, size_t cache_pages) : disk_(disk), cache_pages_(cache_pages) {}

std::string Model::Open() {
  table_ = nullptr;
  transaction_.reset();
  database_.reset();
  auto opened = Database::Open(disk_, kPath, OpenMode::ReadWrite, cache_pages_);
  if (!opened.ok()) return "opening: " + opened.status().detail;
  database_ = std::move(*opened);
  auto table = database_->FindTable("Model");
  if (!table.ok()) return "finding: " + table.status().detail;
  table_ = *table;
  auto transaction = database_->Begin({"model", ""}, kDay);
  if (!transaction.ok()) return "beginning: " + transaction.status().detail;
  transaction_ = std::move(*transaction);
  return {};
}

std::string Model::Run(Choices& choices) {
  {
    auto created = Database::Create(disk_, kPath, kDay);
    if (!created.ok()) return created.status().detail;
    auto transaction = (*created)->Begin({"create", ""}, kDay);
    if (!transaction.ok()) return transaction.status().detail;
    if (const auto table = (*transaction)->CreateTable(Spec()); !table.ok()) return table.status().detail;
    if (const Status status = (*transaction)->Commit(); !status.ok()) return status.detail;
  }
  if (std::string fault = Open(); !fault.empty()) return fault;
  while (!choices.Done()) {
    if (std::string fault = Step(choices); !fault.empty()) return fault;
  }
  if (std::string fault = Check(); !fault.empty()) return fault;
  if (std::string fault = EndTransaction(true); !fault.empty()) return fault;
  if (std::string fault = Open(); !fault.empty()) return fault;
  return Check();
}

std::string Model::Step(Choices& choices) {
  const uint32_t kind = choices.Below(1000);
  if (kind < 430 || (rows_.empty() && kind < 900)) return Insert(choices);
  if (kind < 680) return Update(choices);
  if (kind < 900) return Delete(choices);
  if (kind < 930) {
    if (savepoints_.size() < 5) savepoints_.emplace_back(transaction_->Savepoint(), rows_);
    return {};
  }
  if (kind < 970) {
    if (savepoints_.empty()) return {};
    const bool undo = choices.Byte() % 2 == 0;
    const size_t which = choices.Below(static_cast<uint32_t>(savepoints_.size()));
    if (undo) {
      if (const Status status = transaction_->RollbackTo(savepoints_[which].first); !status.ok())
        return status.detail;
      rows_ = savepoints_[which].second;
    } else {
      transaction_->Release(savepoints_[which].first);
    }
    savepoints_.resize(which);
    return {};
  }
  if (kind < 990) return EndTransaction(choices.Byte() % 4 != 0);
  if (kind < 994) {
    if (std::string fault = EndTransaction(true); !fault.empty()) return fault;
    return Open();
  }
  return Check();
}

std::vector<FieldValue> Model::Fields(Choices& choices, bool all) {
  std::vector<FieldValue> fields;
  for (int field = kName; field < kFields; ++field) {
    if (!all && choices.Byte() % 3 != 0) continue;
    Value value = Null{};
    switch (field) {
      case kName:
        value = RandomText(choices, choices.Byte() % 4 == 0 ? 255 : 20, false);
        break;
      case kCode:
        value = RandomText(choices, 3, true);
        break;
      case kPoints:
        value = static_cast<int32_t>(choices.Below(50)) - 25;
        break;
      case kMark:
        value = static_cast<double>(choices.Below(1000)) / 8;
        break;
      case kFlag:
        value = choices.Byte() % 2 == 0;
        break;
      case kNote:
        value = RandomText(choices, choices.Byte() % 16 == 0 ? 6000 : 60, false);
        break;
      case kPicture:
        if (const uint32_t byte = choices.Byte(); byte % 4 != 0) {
          value = Bytes(byte % 8 == 1 ? choices.Below(9000) : choices.Below(200), static_cast<uint8_t>(byte));
        }
        break;
      case kWhen:
        value = Date{static_cast<double>(choices.Below(60000)) + 0.5};
        break;
      case kFee:
        value = Currency{static_cast<int64_t>(choices.Below(60000)) - 30000};
        break;
      default:
        break;
    }
    fields.push_back({field, std::move(value)});
  }
  return fields;
}

bool Model::Collides(const Row& row, const RowId* itself) const {
  if (IsNull(row[kCode])) return false;
  return std::any_of(rows_.begin(), rows_.end(), [&](const auto& other) {
    return !(itself && other.first == *itself) && Folded(other.second[kCode]) == Folded(row[kCode]);
  });
}

RowId Model::Pick(Choices& choices) const {
  return std::next(rows_.begin(), choices.Below(static_cast<uint32_t>(rows_.size())))->first;
}

std::string Model::Insert(Choices& choices) {
  Row row(kFields, Null{});
  row[kFlag] = false;
  const std::vector<FieldValue> fields = Fields(choices, true);
  for (const FieldValue& field : fields) row[static_cast<size_t>(field.column)] = field.value;
  const bool collides = Collides(row, nullptr);
  const auto inserted = transaction_->Insert(*table_, fields);
  if (!inserted.ok()) {
    return collides && inserted.status().fault == Fault::Duplicate ? ""
                                                                   : "inserting: " + inserted.status().detail;
  }
  if (collides) return "a duplicate was inserted";
  row[kId] = inserted->counter;
  if (!rows_.emplace(inserted->row, std::move(row)).second)
    return "an inserted row took the place of another";
  return {};
}

std::string Model::Update(Choices& choices) {
  if (rows_.empty()) return {};
  const RowId id = Pick(choices);
  Row row = rows_[id];
  const std::vector<FieldValue> fields = Fields(choices, false);
  for (const FieldValue& field : fields) row[static_cast<size_t>(field.column)] = field.value;
  const bool collides = Collides(row, &id);
  const Status status = transaction_->Update(*table_, id, fields);
  if (!status.ok()) return collides && status.fault == Fault::Duplicate ? "" : "updating: " + status.detail;
  if (collides) return "a duplicate came in by an update";
  rows_[id] = std::move(row);
  return {};
}

std::string Model::Delete(Choices& choices) {
  if (rows_.empty()) return {};
  // Sometimes many at a time, so that pages and subtrees empty.
  const uint32_t count = choices.Byte() % 16 == 0 ? choices.Below(100) + 1 : 1;
  for (uint32_t i = 0; i < count && !rows_.empty(); ++i) {
    const RowId id = Pick(choices);
    if (const Status status = transaction_->Delete(*table_, id); !status.ok())
      return "deleting: " + status.detail;
    rows_.erase(id);
  }
  return {};
}

std::string Model::EndTransaction(bool commit) {
  const Status status = commit ? transaction_->Commit() : transaction_->Rollback();
  if (!status.ok()) return "ending: " + status.detail;
  savepoints_.clear();
  (commit ? committed_ : rows_) = commit ? rows_ : committed_;
  auto transaction = database_->Begin({"model", ""}, kDay);
  if (!transaction.ok()) return transaction.status().detail;
  transaction_ = std::move(*transaction);
  return {};
}

std::string Model::CheckIndex(int index, const std::vector<int>& columns, bool unique) {
  const auto key_of = [&](const Row& row) {
    Row key;
    for (const int column : columns) key.push_back(Folded(row[static_cast<size_t>(column)]));
    return key;
  };
  std::vector<std::pair<Row, RowId>> wanted;
  for (const auto& [id, row] : rows_) wanted.emplace_back(key_of(row), id);
  std::sort(wanted.begin(), wanted.end());
  auto range = table_->Range(index, {}, {});
  if (!range.ok()) return range.status().detail;
  for (const auto& [key, id] : wanted) {
    if (range->AtEnd()) return "index " + std::to_string(index) + " ends early";
    if (range->row() != id) return "index " + std::to_string(index) + " is in another order";
    if (const Status status = range->Next(); !status.ok()) return status.detail;
  }
  if (!range->AtEnd()) return "index " + std::to_string(index) + " has more rows";
  for (size_t i = 0; i < wanted.size(); i += 7) {
    const auto found = table_->Find(index, wanted[i].first);
    if (!found.ok()) return found.status().detail;
    std::vector<RowId> same;
    for (const auto& [key, id] : wanted) {
      if (key == wanted[i].first) same.push_back(id);
    }
    if (*found != same) return "seeking in index " + std::to_string(index) + " finds other rows";
    if (unique && same.size() > 1 && !IsNull(wanted[i].first[0])) return "a unique index has a value twice";
  }
  return {};
}

std::string Model::Check() {
  State found;
  TableScan scan = table_->Scan();
  while (true) {
    const auto more = scan.Next();
    if (!more.ok()) return "scanning: " + more.status().detail;
    if (!*more) break;
    Row row;
    for (int field = 0; field < kFields; ++field) {
      auto value = scan.record().Get(field);
      if (!value.ok()) return "reading: " + value.status().detail;
      row.push_back(std::move(*value));
    }
    found.emplace(scan.record().id(), std::move(row));
  }
  if (found != rows_) return "the table has other rows than the model";
  const auto findings = Verify(*database_);
  if (!findings.ok()) return findings.status().detail;
  if (!findings->empty())
    return "page " + std::to_string(findings->front().page) + ": " + findings->front().text;
  const std::vector<std::pair<std::vector<int>, bool>> indexes = {
      {{kId}, true}, {{kName}, false}, {{kCode}, true}, {{kPoints, kName}, false}};
  for (size_t i = 0; i < indexes.size(); ++i) {
    if (std::string fault = CheckIndex(static_cast<int>(i), indexes[i].first, indexes[i].second);
        !fault.empty())
      return fault;
  }
  return {};
}

}  // namespace tarvex::jet
