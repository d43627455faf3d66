#pragma once

#include <bitset>
#include <functional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "jet/data_page.h"
#include "jet/row.h"
#include "jet/table.h"
#include "jet/verify.h"

// The parts of Verify(). Each returns a failure only when the disk fails; what is wrong with the file goes
// into the report.
namespace tarvex::jet::verify {

class Report {
 public:
  void Error(PageNumber page, std::string text) { Add('E', page, std::move(text)); }
  void Warn(PageNumber page, std::string text) { Add('W', page, std::move(text)); }
  // Takes a failure that the file's bytes explain as an error found, and returns any other.
  Status Absorb(PageNumber page, const Status& status);

  std::vector<Finding> Take() { return std::move(findings_); }

 private:
  void Add(char severity, PageNumber page, std::string text);
  std::vector<Finding> findings_;
};

// Who uses each page of the file.
class Ledger {
 public:
  using Owner = uint32_t;
  static constexpr Owner kNobody = 0;

  explicit Ledger(PageNumber pages) : owners_(pages, kNobody), names_{"nobody"} {}
  Owner NewOwner(std::string name) {
    names_.push_back(std::move(name));
    return static_cast<Owner>(names_.size() - 1);
  }
  Owner OwnerOf(PageNumber page) const { return page < owners_.size() ? owners_[page] : kNobody; }
  const std::string& NameOf(Owner owner) const { return names_[owner]; }
  PageNumber pages() const { return static_cast<PageNumber>(owners_.size()); }
  // False, with a finding, when the page lies beyond the end or belongs to somebody already.
  bool Claim(PageNumber page, Owner owner, Report& report);

 private:
  std::vector<Owner> owners_;
  std::vector<std::string> names_;
};

struct Context {
  Database& database;
  Pager& pager;
  Report report;
  Ledger ledger;
  std::set<uint32_t> map_rows;  // packed rowids of the maps met so far
  Ledger::Owner maps = 0;       // owner of all map pages
  std::vector<bool> free;       // pages that the global map gives as free
};

// Calls `visit` for every page in a map. The row, its page and its bitmap pages are checked and claimed.
Status VisitMap(Context& context, RowId map, const std::string& whose,
                const std::function<void(PageNumber)>& visit);
Status CheckGlobalMap(Context& context);
// Pages used and free at once, and pages that nobody uses.
Status CheckOwnership(Context& context);

// One table while it is checked.
struct TableCheck {
  Context& context;
  Table table;
  bool is_system = false;
  Ledger::Owner data = Ledger::kNobody;
  std::vector<PageNumber> data_pages;

  struct LongColumn {
    Ledger::Owner owner = Ledger::kNobody;
    std::vector<PageNumber> pages;
  };
  std::unordered_map<uint16_t, LongColumn> long_columns;  // by column number
  using Slots = std::unordered_map<PageNumber, std::bitset<256>>;
  Slots long_rows;  // that rows of the table lead to
};

// The bytes of the definition: chain, marks, lengths. False when it cannot be read, with a finding.
Expected<bool> CheckDefinition(Context& context, PageNumber page, const std::string& name);
// What the definition says: columns, indexes and names.
void CheckSchema(Context& context, const Table& table);
// Claims the pages in the table's maps.
Status ClaimPages(TableCheck& check);
// Data pages, rows, long values, counts.
Status CheckRows(TableCheck& check);
Status CheckIndexes(TableCheck& check);

// Calls `visit` for every row that can be read, with its home.
Status ForEachRow(TableCheck& check, const std::function<Status(RowId, const RowView&)>& visit);

Status CheckCatalog(Context& context, std::vector<CatalogEntry>& tables);
Status CheckTable(Context& context, const CatalogEntry& entry);

}  // namespace tarvex::jet::verify
