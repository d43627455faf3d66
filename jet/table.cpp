#include "jet/table.h"

#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/index_key.h"
#include "jet/long_value.h"
#include "jet/text_codec.h"

namespace tarvex::jet {
namespace {

Status AtRow(RowId row, const Status& status) {
  return {status.fault,
          "page " + std::to_string(row.page) + ": row " + std::to_string(row.slot) + " " + status.detail};
}

}  // namespace

std::span<const uint8_t> Record::Raw(int column, size_t size) const {
  const Column& field = table_->def().columns[static_cast<size_t>(column)];
  if (!row_.Has(field)) return {};
  auto raw = row_.Raw(field);
  if (!raw.ok()) {
    status_ = AtRow(id_, raw.status());
    return {};
  }
  if (size > 0 && raw->size() != size) {
    status_ = AtRow(id_, {Fault::Corrupt, "has a value of the wrong size in " + field.name});
    return {};
  }
  return *raw;
}

bool Record::IsNull(int column) const {
  const Column& field = table_->def().columns[static_cast<size_t>(column)];
  return field.type != ColumnType::Boolean && !row_.Has(field);
}

bool Record::Boolean(int column) const {
  return row_.Has(table_->def().columns[static_cast<size_t>(column)]);
}

int32_t Record::Long(int column) const {
  switch (table_->def().columns[static_cast<size_t>(column)].type) {
    case ColumnType::Byte: {
      const auto raw = Raw(column, 1);
      return raw.empty() ? 0 : raw[0];
    }
    case ColumnType::Integer: {
      const auto raw = Raw(column, 2);
      return raw.empty() ? 0 : Load<int16_t>(raw.data());
    }
    default: {
      const auto raw = Raw(column, 4);
      return raw.empty() ? 0 : Load<int32_t>(raw.data());
    }
  }
}

float Record::Single(int column) const {
  const auto raw = Raw(column, 4);
  return raw.empty() ? 0 : Load<float>(raw.data());
}

double Record::Double(int column) const {
  const auto raw = Raw(column, 8);
  return raw.empty() ? 0 : Load<double>(raw.data());
}

int64_t Record::Money(int column) const {
  const auto raw = Raw(column, 8);
  return raw.empty() ? 0 : Load<int64_t>(raw.data());
}

std::string Record::Text(int column) const {
  const auto value = Get(column);
  if (!value.ok()) {
    status_ = value.status();
    return {};
  }
  const auto* text = std::get_if<std::string>(&*value);
  return text ? *text : std::string();
}

Expected<Value> Record::Get(int column) const {
  const struct Column& field = table_->def().columns[static_cast<size_t>(column)];
  if (field.type == ColumnType::Boolean) return Value(row_.Has(field));
  if (!row_.Has(field)) return Value(Null{});
  const auto raw = row_.Raw(field);
  if (!raw.ok()) return AtRow(id_, raw.status());
  Expected<Value> value = Value(Null{});
  if (field.is_long_value()) {
    auto content = ReadLongValue(table_->pager(), *raw);
    if (!content.ok())
      return AtRow(id_, {content.status().fault, "column " + field.name + ": " + content.status().detail});
    value = DecodeValue(field, *content);
  } else {
    value = DecodeValue(field, *raw);
  }
  if (!value.ok()) return AtRow(id_, value.status());
  return value;
}

Expected<bool> TableScan::Next() {
  while (true) {
    if (page_) {
      TRY_ASSIGN(const DataPage rows, DataPage::Parse(page_));
      while (slot_ < rows.slots()) {
        const RowId id{page_.number(), static_cast<uint8_t>(slot_)};
        const uint16_t state = rows.state(slot_++);
        if (state == DataPage::kDeleted || state == DataPage::kBody) continue;
        if (state == DataPage::kMoved) {
          TRY_ASSIGN(record_, table_->Get(id));
          return true;
        }
        record_.table_ = table_;
        record_.page_ = page_;
        record_.id_ = id;
        auto row = RowView::Parse(table_->def(), rows.Row(slot_ - 1));
        if (!row.ok()) return AtRow(id, row.status());
        record_.row_ = *row;
        return true;
      }
    }
    TRY_ASSIGN(const auto next, MapNext(table_->pager(), table_->def().owned_map, next_page_));
    if (!next) return false;
    next_page_ = *next + 1;
    TRY_ASSIGN(page_, table_->pager().Read(*next));
    TRY_ASSIGN(const DataPage rows, DataPage::Parse(page_));
    if (rows.owner() != table_->def().page) {
      return Status{Fault::Corrupt,
                    "page " + std::to_string(*next) + ": belongs to another table than " + table_->name()};
    }
    slot_ = 0;
  }
}

Expected<uint32_t> Table::RowCount() const {
  TRY_ASSIGN(const PageRef page, pager_->Read(def_.page));
  return Load32(page.bytes() + TableDef::kRowCount);
}

Expected<uint32_t> Table::LastCounter() const {
  TRY_ASSIGN(const PageRef page, pager_->Read(def_.page));
  return Load32(page.bytes() + TableDef::kLastCounter);
}

Expected<Record> Table::Get(RowId id) const {
  Record record;
  record.table_ = this;
  record.id_ = id;
  const auto fail = [&](const char* what) { return AtRow(id, {Fault::Corrupt, what}); };
  TRY_ASSIGN(record.page_, pager_->Read(id.page));
  TRY_ASSIGN(DataPage rows, DataPage::Parse(record.page_));
  if (rows.owner() != def_.page) return fail("belongs to another table");
  if (id.slot >= rows.slots()) return fail("does not exist");
  std::span<const uint8_t> bytes = rows.Row(id.slot);
  switch (rows.state(id.slot)) {
    case DataPage::kDeleted:
      return AtRow(id, {Fault::NotFound, "is deleted"});
    case DataPage::kBody:
      return fail("is the body of a moved row");
    case DataPage::kMoved: {
      if (bytes.size() < 4) return fail("is too short for a pointer");
      const RowId body = RowId::Unpack(Load32(bytes.data()));
      TRY_ASSIGN(record.page_, pager_->Read(body.page));
      TRY_ASSIGN(rows, DataPage::Parse(record.page_));
      if (rows.owner() != def_.page || body.slot >= rows.slots() ||
          rows.state(body.slot) != DataPage::kBody) {
        return fail("points at no row body");
      }
      bytes = rows.Row(body.slot);
      break;
    }
    default:
      break;
  }
  auto row = RowView::Parse(def_, bytes);
  if (!row.ok()) return AtRow(id, row.status());
  record.row_ = *row;
  return record;
}

Expected<Bytes> Table::KeyOf(const RealIndex& index, std::span<const Value> values) const {
  if (values.size() > index.columns.size()) return Status{Fault::Invalid, "more values than index columns"};
  Bytes key;
  Bytes raw;
  for (size_t i = 0; i < values.size(); ++i) {
    const struct Column& column = def_.columns[static_cast<size_t>(index.columns[i].column)];
    raw.clear();
    bool present = !jet::IsNull(values[i]);
    if (column.type == ColumnType::Boolean) {
      const bool* flag = std::get_if<bool>(&values[i]);
      present = flag && *flag;
    } else if (column.type == ColumnType::Memo && present) {
      const auto* text = std::get_if<std::string>(&values[i]);
      if (!text) return Status{Fault::Invalid, "a value for " + column.name + " has the wrong type"};
      AppendText(*text, raw);
    } else if (present) {
      // A text longer than its field cannot be found, which is no failure.
      if (Status status = EncodeValue(column, values[i], raw); !status.ok() && status.fault != Fault::Range)
        return status;
    }
    TRY(AppendColumnKey(column, index.columns[i].ascending, present, raw, key));
  }
  return key;
}

Expected<Table::RowKey> Table::KeyOfRow(const RealIndex& index, const RowView& row) const {
  RowKey key;
  for (const IndexColumn& part : index.columns) {
    const struct Column& column = def_.columns[static_cast<size_t>(part.column)];
    const bool present = row.Has(column);
    const bool is_null = !present && column.type != ColumnType::Boolean;
    key.all_null &= is_null;
    key.any_null |= is_null;
    std::span<const uint8_t> raw;
    Bytes content;
    if (present) {
      TRY_ASSIGN(raw, row.Raw(column));
      if (column.is_long_value()) {
        TRY_ASSIGN(content, ReadLongValue(*pager_, raw));
        raw = content;
      }
    }
    TRY(AppendColumnKey(column, part.ascending, present, raw, key.bytes));
  }
  return key;
}

Expected<IndexRange> Table::Range(int index, std::span<const Value> from, std::span<const Value> to) const {
  const RealIndex& real = def_.indexes[static_cast<size_t>(index)];
  TRY_ASSIGN(const Bytes first, KeyOf(real, from));
  TRY_ASSIGN(Bytes last, KeyOf(real, to));
  TRY_ASSIGN(IndexCursor cursor, IndexCursor::At(*pager_, PlaceOf(real), first));
  return IndexRange(std::move(cursor), std::move(last));
}

Expected<std::vector<RowId>> Table::Find(int index, std::span<const Value> values) const {
  std::vector<RowId> rows;
  TRY_ASSIGN(IndexRange range, Range(index, values, values));
  while (!range.AtEnd()) {
    rows.push_back(range.row());
    TRY(range.Next());
  }
  return rows;
}

Expected<RowId> Table::FindFirst(int index, std::span<const Value> values) const {
  TRY_ASSIGN(const IndexRange range, Range(index, values, values));
  if (range.AtEnd()) return Status{Fault::NotFound, "no such row in " + name_};
  return range.row();
}

}  // namespace tarvex::jet
