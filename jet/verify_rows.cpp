#include <algorithm>

#include "jet/bytes.h"
#include "jet/long_value.h"
#include "jet/text_codec.h"
#include "jet/verify_parts.h"

namespace tarvex::jet::verify {
namespace {

constexpr uint16_t kNeverSet = 0x2000;

// What is checked while all rows of a table pass by.
class RowChecker {
 public:
  explicit RowChecker(TableCheck& check)
      : check_(check), report_(check.context.report), def_(check.table.def()) {}

  Status CheckDataPage(PageNumber number);
  Status CheckLongPages();
  Status CheckTotals();

 private:
  Status CheckSlot(RowId id, const DataPage& rows);
  Status CheckMoved(RowId home, std::span<const uint8_t> pointer);
  Status CheckRow(RowId id, std::span<const uint8_t> bytes);
  void CheckLayout(RowId id, const RowView& row);
  Status CheckField(RowId id, const RowView& row, const Column& column);
  Status CheckLongValue(RowId id, const Column& column, std::span<const uint8_t> raw);
  // Walks the rows of a long value; gives its content as far as it goes.
  Status WalkLongValue(const Column& column, std::span<const uint8_t> raw, Bytes& content,
                       std::string& fault);
  void Error(RowId id, const std::string& what) {
    report_.Error(id.page, "row " + std::to_string(id.slot) + " " + what);
  }

  TableCheck& check_;
  Report& report_;
  const TableDef& def_;
  uint32_t live_rows_ = 0;
  int32_t largest_counter_ = 0;
  TableCheck::Slots bodies_;      // bodies of moved rows
  TableCheck::Slots pointed_to_;  // by homes
};

// Slots, free bytes and owner of a page with rows; null with findings when it cannot be used.
Expected<std::optional<DataPage>> CheckPage(Context& context, const PageRef& page, uint32_t owner) {
  const auto rows = DataPage::Parse(page);
  if (!rows.ok()) {
    TRY(context.report.Absorb(page.number(), rows.status()));
    return std::optional<DataPage>();
  }
  const auto error = [&](const std::string& what) { context.report.Error(page.number(), what); };
  if (page.bytes()[1] != 1) error("is marked as unused");
  if (rows->stated_free() != rows->free()) error("states a wrong number of free bytes");
  if (rows->slots() > DataPage::kMostSlots) error("has more rows than a page may have");
  for (int slot = 0; slot < rows->slots(); ++slot) {
    const uint16_t bits = Load16(page.bytes() + DataPage::kSlots + 2 * slot);
    if ((bits & kNeverSet) != 0) error("has an unknown row state");
  }
  if (rows->owner() != owner) {
    error("names another owner than the one whose map has it");
    return std::optional<DataPage>();
  }
  return std::optional<DataPage>(*rows);
}

Status RowChecker::CheckDataPage(PageNumber number) {
  TRY_ASSIGN(const PageRef page, check_.context.pager.Read(number));
  TRY_ASSIGN(const auto rows, CheckPage(check_.context, page, def_.page));
  if (!rows) return Ok();
  for (int slot = 0; slot < rows->slots(); ++slot)
    TRY(CheckSlot({number, static_cast<uint8_t>(slot)}, *rows));
  return Ok();
}

Status RowChecker::CheckSlot(RowId id, const DataPage& rows) {
  switch (rows.state(id.slot)) {
    case DataPage::kDeleted:
      return Ok();
    case DataPage::kBody:
      bodies_[id.page].set(id.slot);
      return Ok();
    case DataPage::kMoved:
      ++live_rows_;
      return CheckMoved(id, rows.Row(id.slot));
    default:
      ++live_rows_;
      return CheckRow(id, rows.Row(id.slot));
  }
}

Status RowChecker::CheckMoved(RowId home, std::span<const uint8_t> pointer) {
  if (pointer.size() < 4) return Error(home, "is too short to point at its body"), Ok();
  const RowId body = RowId::Unpack(Load32(pointer.data()));
  if (check_.context.ledger.OwnerOf(body.page) != check_.data) {
    return Error(home, "points at a page of another table"), Ok();
  }
  TRY_ASSIGN(const PageRef page, check_.context.pager.Read(body.page));
  const auto rows = DataPage::Parse(page);
  if (!rows.ok() || body.slot >= rows->slots() || rows->state(body.slot) != DataPage::kBody) {
    return Error(home, "points at no body"), Ok();
  }
  if (pointed_to_[body.page].test(body.slot)) return Error(home, "points at the body of another row"), Ok();
  pointed_to_[body.page].set(body.slot);
  return CheckRow(body, rows->Row(body.slot));
}

Status RowChecker::CheckRow(RowId id, std::span<const uint8_t> bytes) {
  const auto row = RowView::Parse(def_, bytes);
  if (!row.ok()) return Error(id, row.status().detail), Ok();
  CheckLayout(id, *row);
  for (const Column& column : def_.columns) {
    if (row->Has(column) && column.type != ColumnType::Boolean) TRY(CheckField(id, *row, column));
  }
  return Ok();
}

void RowChecker::CheckLayout(RowId id, const RowView& row) {
  if (row.columns() > def_.next_column_number) Error(id, "knows more columns than its table");
  if (row.slots() > def_.var_slots) Error(id, "has more variable columns than its table");
  size_t fixed_end = 2;
  for (const Column& column : def_.columns) {
    if (!column.is_fixed() || column.type == ColumnType::Boolean || column.number >= row.columns()) continue;
    fixed_end = std::max(fixed_end, 2 + column.fixed_offset + FixedSize(column.type, column.length));
  }
  const size_t mask = (row.columns() + 7) / 8;
  const bool has_table = def_.var_slots > 0;
  const size_t data_at = has_table ? row.SlotStart(0) : row.bytes().size() - mask;
  // Columns that were deleted since may have had their place behind the others.
  const bool any_deleted = def_.columns.size() < def_.next_column_number;
  if (data_at < fixed_end) {
    Error(id, "has too few bytes for its fixed columns");
  } else if (data_at > fixed_end && !any_deleted) {
    Error(id, "has bytes between its fixed and its variable columns");
  }
  const uint8_t last = mask == 0 ? 0 : row.bytes().back();
  if (row.columns() % 8 != 0 && last >> (row.columns() % 8) != 0) {
    report_.Warn(id.page,
                 "row " + std::to_string(id.slot) + " has null bits for columns that it does not know");
  }
}

Status RowChecker::CheckField(RowId id, const RowView& row, const Column& column) {
  const auto raw = row.Raw(column);
  if (!raw.ok()) return Error(id, raw.status().detail + ": " + column.name), Ok();
  if (column.is_long_value()) return CheckLongValue(id, column, *raw);
  const auto value = DecodeValue(column, *raw);
  if (!value.ok()) return Error(id, value.status().detail + ": " + column.name), Ok();
  size_t size = raw->size();
  if (const auto* text = std::get_if<std::string>(&*value)) size = 2 * ToUtf16(*text).size();
  const bool is_limited = column.type == ColumnType::Text || column.type == ColumnType::Binary;
  if (is_limited && size > column.length) Error(id, "has a value that is too long for " + column.name);
  if (column.is_counter()) largest_counter_ = std::max(largest_counter_, std::get<int32_t>(*value));
  return Ok();
}

Status RowChecker::CheckLongValue(RowId id, const Column& column, std::span<const uint8_t> raw) {
  Bytes content;
  std::string fault;
  TRY(WalkLongValue(column, raw, content, fault));
  if (!fault.empty()) return Error(id, "column " + column.name + ": " + fault), Ok();
  if (column.type != ColumnType::Memo) return Ok();
  const auto text = DecodeText(content);
  if (!text.ok()) Error(id, "column " + column.name + ": " + text.status().detail);
  return Ok();
}

Status RowChecker::WalkLongValue(const Column& column, std::span<const uint8_t> raw, Bytes& content,
                                 std::string& fault) {
  const auto fail = [&](const char* what) { return fault = what, Ok(); };
  if (raw.size() < LongValueHeader::kSize) return fail("the long value's header is too short");
  const uint32_t kind = Load32(raw.data()) & ~LongValueHeader::kLength;
  const size_t length = Load32(raw.data()) & LongValueHeader::kLength;
  if (kind == LongValueHeader::kInline) {
    if (raw.size() - LongValueHeader::kSize < length) return fail("the long value is shorter than stated");
    content.assign(raw.begin() + LongValueHeader::kSize,
                   raw.begin() + static_cast<std::ptrdiff_t>(LongValueHeader::kSize + length));
    return Ok();
  }
  if (kind != LongValueHeader::kSingle && kind != 0) return fail("the long value is of an unknown kind");
  const auto known = check_.long_columns.find(column.number);
  if (known == check_.long_columns.end()) return fail("the column has no pages of its own");
  RowId row = RowId::Unpack(Load32(raw.data() + 4));
  // No row is visited twice, so this ends.
  while (row.Pack() != 0) {
    if (check_.context.ledger.OwnerOf(row.page) != known->second.owner)
      return fail("the long value leaves the column's pages");
    TRY_ASSIGN(const PageRef page, check_.context.pager.Read(row.page));
    const auto rows = DataPage::Parse(page);
    if (!rows.ok() || rows->owner() != DataPage::kLongValueOwner || row.slot >= rows->slots() ||
        rows->state(row.slot) != 0) {
      return fail("the long value's row does not exist");
    }
    if (check_.long_rows[row.page].test(row.slot))
      return fail("the long value's row belongs to another value");
    check_.long_rows[row.page].set(row.slot);
    std::span<const uint8_t> part = rows->Row(row.slot);
    row = {};
    if (kind == 0) {
      if (part.size() < 4) return fail("the long value's row is too short");
      row = RowId::Unpack(Load32(part.data()));
      part = part.subspan(4);
    }
    content.insert(content.end(), part.begin(), part.end());
  }
  if (content.size() < length) return fail("the long value is shorter than stated");
  if (content.size() > length) fault = "the long value is longer than stated";
  return Ok();
}

// Long-value pages themselves, and rows on them that no value leads to.
Status RowChecker::CheckLongPages() {
  for (const auto& [number, column] : check_.long_columns) {
    for (const PageNumber page_number : column.pages) {
      TRY_ASSIGN(const PageRef page, check_.context.pager.Read(page_number));
      TRY_ASSIGN(const auto rows, CheckPage(check_.context, page, DataPage::kLongValueOwner));
      if (!rows) continue;
      const auto used = check_.long_rows.find(page_number);
      for (int slot = 0; slot < rows->slots(); ++slot) {
        const RowId id{page_number, static_cast<uint8_t>(slot)};
        if (rows->state(slot) == DataPage::kDeleted) continue;
        if (rows->state(slot) != 0) Error(id, "of a long value is marked as moved");
        if (used == check_.long_rows.end() || !used->second.test(id.slot))
          Error(id, "of a long value is used by no row");
      }
    }
  }
  return Ok();
}

Status RowChecker::CheckTotals() {
  for (const auto& [page, slots] : bodies_) {
    const auto pointed = pointed_to_.find(page);
    const auto lost = pointed == pointed_to_.end() ? slots : slots & ~pointed->second;
    for (size_t slot = 0; lost.any() && slot < lost.size(); ++slot) {
      if (lost.test(slot))
        Error({page, static_cast<uint8_t>(slot)}, "is the body of a moved row, but nothing points at it");
    }
  }
  TRY_ASSIGN(const uint32_t stated, check_.table.RowCount());
  if (stated != live_rows_) {
    std::string text = check_.table.name() + " has " + std::to_string(live_rows_) + " rows but counts " +
                       std::to_string(stated);
    // The original program itself miscounts in its own tables.
    check_.is_system ? report_.Warn(def_.page, std::move(text)) : report_.Error(def_.page, std::move(text));
  }
  TRY_ASSIGN(const uint32_t last, check_.table.LastCounter());
  if (static_cast<int32_t>(last) >= 0 && largest_counter_ > static_cast<int32_t>(last)) {
    report_.Error(def_.page, "the counter of " + check_.table.name() + " stands at " + std::to_string(last) +
                                 " but has given out " + std::to_string(largest_counter_));
  }
  return Ok();
}

}  // namespace

Status CheckRows(TableCheck& check) {
  RowChecker checker(check);
  for (const PageNumber page : check.data_pages) TRY(checker.CheckDataPage(page));
  TRY(checker.CheckLongPages());
  return checker.CheckTotals();
}

Status ForEachRow(TableCheck& check, const std::function<Status(RowId, const RowView&)>& visit) {
  const TableDef& def = check.table.def();
  for (const PageNumber number : check.data_pages) {
    TRY_ASSIGN(const PageRef page, check.context.pager.Read(number));
    const auto rows = DataPage::Parse(page);
    if (!rows.ok() || rows->owner() != def.page) continue;
    for (int slot = 0; slot < rows->slots(); ++slot) {
      const uint16_t state = rows->state(slot);
      if (state == DataPage::kDeleted || state == DataPage::kBody) continue;
      const RowId home{number, static_cast<uint8_t>(slot)};
      PageRef body_page = page;
      std::span<const uint8_t> bytes = rows->Row(slot);
      if (state == DataPage::kMoved) {
        if (bytes.size() < 4) continue;
        const RowId body = RowId::Unpack(Load32(bytes.data()));
        if (check.context.ledger.OwnerOf(body.page) != check.data) continue;
        TRY_ASSIGN(body_page, check.context.pager.Read(body.page));
        const auto body_rows = DataPage::Parse(body_page);
        if (!body_rows.ok() || body.slot >= body_rows->slots() ||
            body_rows->state(body.slot) != DataPage::kBody)
          continue;
        bytes = body_rows->Row(body.slot);
      }
      const auto row = RowView::Parse(def, bytes);
      if (row.ok()) TRY(visit(home, *row));
    }
  }
  return Ok();
}

}  // namespace tarvex::jet::verify
