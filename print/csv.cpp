#include "print/csv.h"

#include <unordered_map>
#include <vector>

#include "base/csv.h"

namespace tarvex::print {
namespace {

using reports::Part;
using reports::Report;
using reports::Row;

// The columns of the file by key, in the order in which they were first asked for.
class Header {
 public:
  size_t PositionOf(const std::string& key) {
    const auto [found, is_new] = positions_.emplace(key, keys_.size());
    if (is_new) keys_.push_back(key);
    return found->second;
  }
  const std::vector<std::string>& keys() const { return keys_; }

 private:
  std::unordered_map<std::string, size_t> positions_;
  std::vector<std::string> keys_;
};

template <class Visit>
void ForEachTable(const Report& report, Visit visit) {
  for (const reports::Section& section : report.sections) {
    for (const Part& part : section.parts) {
      if (!part.is_aside) visit(part);
    }
  }
}

void AddKeys(Header& header, const Part& part) {
  for (const reports::DataField& field : part.context) header.PositionOf(field.key);
  for (const reports::Column& column : part.columns) {
    if (!column.key.empty()) header.PositionOf(column.key);
  }
}

std::vector<std::string> CellsOf(Header& header, const Part& part, const Row& row) {
  std::vector<std::string> cells(header.keys().size());
  for (const reports::DataField& field : part.context) cells[header.PositionOf(field.key)] = field.value;
  for (size_t i = 0; i < part.columns.size() && i < row.cells.size(); ++i) {
    if (!part.columns[i].key.empty()) cells[header.PositionOf(part.columns[i].key)] = row.cells[i];
  }
  return cells;
}

}  // namespace

std::string ToCsv(const Report& report) {
  Header header;
  for (const std::string& key : report.data_keys) header.PositionOf(key);
  ForEachTable(report, [&](const Part& part) { AddKeys(header, part); });
  std::string out;
  AppendCsvRow(out, header.keys());
  ForEachTable(report, [&](const Part& part) {
    for (const Row& row : part.rows) AppendCsvRow(out, CellsOf(header, part, row));
  });
  return out;
}

}  // namespace tarvex::print
