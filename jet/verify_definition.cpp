#include <algorithm>

#include "jet/bytes.h"
#include "jet/verify_parts.h"

namespace tarvex::jet::verify {
namespace {

constexpr uint32_t kColumnMark = 1625;
constexpr uint32_t kIndexMark = 1923;
constexpr size_t kPageHead = 8;
constexpr size_t kLongestStream = 128 * 1024;

// Steps through the stream; past its end it stays there.
class Walk {
 public:
  explicit Walk(const std::vector<uint8_t>& stream) : stream_(stream) {}
  // The next `size` bytes, or null when the stream is too short.
  const uint8_t* Take(size_t size) {
    if (stream_.size() - at_ < size) {
      at_ = stream_.size();
      cut_off_ = true;
      return nullptr;
    }
    at_ += size;
    return stream_.data() + at_ - size;
  }
  void SkipName() {
    if (const uint8_t* length = Take(2)) Take(Load16(length));
  }
  size_t left() const { return stream_.size() - at_; }
  bool cut_off() const { return cut_off_; }

 private:
  const std::vector<uint8_t>& stream_;
  size_t at_ = 0;
  bool cut_off_ = false;
};

// What is wrong with the constants and the length of a definition; empty when nothing is.
std::string StreamFault(const std::vector<uint8_t>& stream) {
  Walk walk(stream);
  const uint8_t* head = walk.Take(TableDef::kFixedPart);
  if (!head) return "is cut off";
  if (Load32(head + 12) != kColumnMark) return "lacks its mark";
  if (head[40] != 'N' && head[40] != 'S') return "is of an unknown kind";
  const size_t columns = Load16(head + 45);
  const size_t names = Load32(head + 47);
  const size_t indexes = Load32(head + 51);
  if (columns > Load16(head + 41) || Load16(head + 41) > kMostColumns) return "counts its columns wrong";
  if (names > 1000 || indexes > 256) return "counts its indexes wrong";
  walk.Take(12 * indexes);
  size_t long_values = 0;
  for (size_t i = 0; i < columns && !walk.cut_off(); ++i) {
    const uint8_t* column = walk.Take(25);
    if (column && Load32(column + 1) != kColumnMark) return "has a column without its mark";
    if (column && (column[0] == 0x0B || column[0] == 0x0C)) ++long_values;
  }
  for (size_t i = 0; i < columns; ++i) walk.SkipName();
  for (size_t i = 0; i < indexes; ++i) {
    const uint8_t* index = walk.Take(52);
    if (index && Load32(index) != kIndexMark) return "has an index without its mark";
  }
  for (size_t i = 0; i < names; ++i) {
    const uint8_t* name = walk.Take(28);
    if (name && Load32(name) != kColumnMark) return "has an index name without its mark";
  }
  for (size_t i = 0; i < names; ++i) walk.SkipName();
  walk.Take(10 * long_values);
  const uint8_t* end = walk.Take(2);
  if (walk.cut_off()) return "is cut off";
  if (Load16(end) != 0xFFFF || walk.left() != 0) return "does not end where it says";
  return {};
}

bool LengthFits(const Column& column) {
  switch (column.type) {
    case ColumnType::Boolean:
      return column.length == 1;
    case ColumnType::Text:
      return column.length > 0 && column.length <= 510 && column.length % 2 == 0;
    case ColumnType::Binary:
      return column.length > 0 && column.length <= 510;
    case ColumnType::Internal:
      return true;
    default:
      return column.length == FixedSize(column.type, 0);
  }
}

void CheckColumns(Context& context, const TableDef& def) {
  const auto error = [&](const Column& column, const char* what) {
    context.report.Error(def.page, "column " + column.name + " " + what);
  };
  std::vector<const Column*> fixed;
  for (size_t i = 0; i < def.columns.size(); ++i) {
    const Column& column = def.columns[i];
    if (column.name.empty()) error(column, "has no name");
    for (size_t k = 0; k < i; ++k) {
      if (SameName(def.columns[k].name, column.name)) error(column, "is there twice");
    }
    if (!LengthFits(column)) error(column, "has a length that its type does not have");
    if (column.is_fixed() && column.type != ColumnType::Boolean) fixed.push_back(&column);
    if (column.is_long_value() && !def.MapsOf(column)) error(column, "has no pages of its own");
  }
  std::sort(fixed.begin(), fixed.end(),
            [](const Column* a, const Column* b) { return a->fixed_offset < b->fixed_offset; });
  for (size_t i = 1; i < fixed.size(); ++i) {
    const size_t end = fixed[i - 1]->fixed_offset + FixedSize(fixed[i - 1]->type, fixed[i - 1]->length);
    if (fixed[i]->fixed_offset < end) error(*fixed[i], "overlaps another");
  }
  for (size_t i = 0; i < def.long_values.size(); ++i) {
    const uint16_t number = def.long_values[i].column_number;
    const int column = def.ColumnWithNumber(number);
    const bool twice =
        std::any_of(def.long_values.begin(), def.long_values.begin() + static_cast<std::ptrdiff_t>(i),
                    [&](const LongValueMaps& other) { return other.column_number == number; });
    if (twice || column < 0 || !def.columns[static_cast<size_t>(column)].is_long_value()) {
      context.report.Error(def.page,
                           "column number " + std::to_string(number) + " has pages for long values wrongly");
    }
  }
}

}  // namespace

Expected<bool> CheckDefinition(Context& context, PageNumber first, const std::string& name) {
  Report& report = context.report;
  const Ledger::Owner owner = context.ledger.NewOwner("the definition of " + name);
  std::vector<uint8_t> stream;
  size_t length = kPageSize;
  for (PageNumber number = first; stream.size() < length;) {
    if (number == 0) {
      report.Error(first, "the definition of " + name + " is cut off");
      return false;
    }
    if (!context.ledger.Claim(number, owner, report)) return false;
    TRY_ASSIGN(const PageRef page, context.pager.Read(number));
    const uint8_t* bytes = page.bytes();
    if (bytes[0] != kDefinitionPage || bytes[1] != 1) {
      report.Error(number, "is no table definition, but " + name + " uses it as one");
      return false;
    }
    if (number == first) {
      length = Load32(bytes + 8);
      if (length < TableDef::kFixedPart || length > kLongestStream) {
        report.Error(number, "states a wrong length of the definition");
        return false;
      }
    }
    stream.insert(stream.end(), bytes + (number == first ? 0 : kPageHead), bytes + kPageSize);
    const size_t unused = stream.size() > length ? stream.size() - length : 0;
    if (Load16(bytes + 2) != (unused > kPageHead ? unused - kPageHead : 0)) {
      report.Error(number, "states a wrong number of free bytes");
    }
    number = Load32(bytes + 4);
    if (stream.size() >= length && number != 0) report.Error(number, "follows a definition that has ended");
  }
  stream.resize(length);
  if (const std::string fault = StreamFault(stream); !fault.empty()) {
    report.Error(first, "the definition of " + name + " " + fault);
  }
  return true;
}

void CheckSchema(Context& context, const Table& table) {
  const TableDef& def = table.def();
  CheckColumns(context, def);
  int primaries = 0;
  for (size_t i = 0; i < def.names.size(); ++i) {
    const LogicalIndex& name = def.names[i];
    if (name.name.empty()) context.report.Error(def.page, "an index has no name");
    for (size_t k = 0; k < i; ++k) {
      if (SameName(def.names[k].name, name.name)) {
        context.report.Error(def.page, "index name " + name.name + " is there twice");
      }
    }
    if (name.kind != LogicalIndex::Relationship && name.number != name.real) {
      context.report.Warn(def.page, "index " + name.name + " has another number than place");
    }
    if (name.kind != LogicalIndex::Primary) continue;
    if (++primaries == 2) context.report.Error(def.page, table.name() + " has two primary indexes");
    if (!def.indexes[name.real].is_unique()) {
      context.report.Error(def.page, "primary index " + name.name + " is not unique");
    }
  }
  for (size_t i = 0; i < def.indexes.size(); ++i) {
    if (!def.NameOf(i)) context.report.Error(def.page, "index " + std::to_string(i) + " has no name");
  }
}

Status ClaimPages(TableCheck& check) {
  Context& context = check.context;
  const TableDef& def = check.table.def();
  const auto claim = [&](RowId owned, RowId free, const std::string& whose, Ledger::Owner owner,
                         std::vector<PageNumber>& pages) -> Status {
    TRY(VisitMap(context, owned, whose, [&](PageNumber page) {
      if (context.ledger.Claim(page, owner, context.report)) pages.push_back(page);
    }));
    if (free.Pack() == 0) return Ok();
    return VisitMap(context, free, "the free space of " + whose, [&](PageNumber page) {
      if (context.ledger.OwnerOf(page) == owner) return;
      context.report.Error(page,
                           "is listed for its free space by " + whose + ", to which it does not belong");
    });
  };
  const std::string data = "the rows of " + check.table.name();
  check.data = context.ledger.NewOwner(data);
  TRY(claim(def.owned_map, def.free_map, data, check.data, check.data_pages));
  for (const LongValueMaps& maps : def.long_values) {
    const int column = def.ColumnWithNumber(maps.column_number);
    if (column < 0 || check.long_columns.contains(maps.column_number)) continue;
    const std::string whose =
        "column " + def.columns[static_cast<size_t>(column)].name + " of " + check.table.name();
    TableCheck::LongColumn& known = check.long_columns[maps.column_number];
    known.owner = context.ledger.NewOwner(whose);
    TRY(claim(maps.owned, maps.free, whose, known.owner, known.pages));
  }
  return Ok();
}

}  // namespace tarvex::jet::verify
