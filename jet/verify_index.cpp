#include <algorithm>

#include "jet/bytes.h"
#include "jet/index_key.h"
#include "jet/verify_parts.h"

namespace tarvex::jet::verify {
namespace {

constexpr int kDeepest = 24;
// One damaged page can put thousands of entries out of place; a few show where.
constexpr int kShownPerIndex = 5;

class IndexChecker {
 public:
  IndexChecker(TableCheck& check, size_t which)
      : check_(check),
        report_(check.context.report),
        index_(check.table.def().indexes[which]),
        owner_(check.context.ledger.NewOwner("index " + NameOf(check, which) + " of " + check.table.name())) {
  }

  Status Check();

 private:
  // What the walk knows of a subtree.
  struct Below {
    Bytes largest;
    int height = 0;
  };

  static std::string NameOf(const TableCheck& check, size_t which) {
    const LogicalIndex* name = check.table.def().NameOf(which);
    return name ? name->name : std::to_string(which);
  }
  Status CollectExpected();
  void CheckUnique();
  Expected<Below> Visit(PageNumber number, int depth);
  Expected<Below> VisitLeaf(PageNumber number, int depth, const IndexPage& page);
  Expected<Below> VisitNode(PageNumber number, int depth, const IndexPage& page);
  Status CheckSiblings(const std::vector<PageNumber>& nodes);
  void CheckHeader(PageNumber number, const uint8_t* bytes, const IndexPage& page);
  void TakeEntry(PageNumber number, const Bytes& entry);
  void Differs(PageNumber page, const std::string& what);
  std::string Whose() const { return check_.context.ledger.NameOf(owner_); }

  TableCheck& check_;
  Report& report_;
  const RealIndex& index_;
  const Ledger::Owner owner_;
  std::vector<PageNumber> pages_;  // of the index's map
  std::vector<bool> reached_;      // by page
  bool keys_are_known_ = true;
  std::vector<Bytes> expected_;  // entries, in order; without known keys only their rows
  size_t next_expected_ = 0;
  std::vector<Bytes> unknown_;  // the rows met, when keys are not known
  int differences_ = 0;
  int out_of_order_ = 0;
  int leaf_depth_ = -1;
  PageNumber last_leaf_ = 0;
  PageNumber last_next_ = 0;
  Bytes last_entry_;
};

void IndexChecker::Differs(PageNumber page, const std::string& what) {
  if (++differences_ <= kShownPerIndex) report_.Error(page, Whose() + " " + what);
}

Status IndexChecker::CollectExpected() {
  const TableDef& def = check_.table.def();
  keys_are_known_ = std::all_of(index_.columns.begin(), index_.columns.end(), [&](const IndexColumn& part) {
    return HasKnownKeys(def.columns[static_cast<size_t>(part.column)]);
  });
  TRY(ForEachRow(check_, [&](RowId id, const RowView& row) -> Status {
    if (!keys_are_known_) {
      expected_.push_back(LeafEntry({}, id));
      return Ok();
    }
    const auto key = check_.table.KeyOfRow(index_, row);
    // A row whose key cannot be made has been reported with the rows.
    if (!key.ok()) return key.status().fault == Fault::Corrupt ? Ok() : key.status();
    if (key->any_null && index_.is_required()) {
      Differs(id.page, "takes no nulls, but row " + std::to_string(id.slot) + " has one");
    }
    if (!key->all_null || !index_.ignores_nulls()) expected_.push_back(LeafEntry(key->bytes, id));
    return Ok();
  }));
  std::sort(expected_.begin(), expected_.end());
  return Ok();
}

void IndexChecker::CheckUnique() {
  if (!index_.is_unique() || !keys_are_known_) return;
  for (size_t i = 1; i < expected_.size(); ++i) {
    const Bytes &a = expected_[i - 1], &b = expected_[i];
    const bool all_null = a.size() - kRowPart == index_.columns.size();
    if (!all_null && std::equal(a.begin(), a.end() - kRowPart, b.begin(), b.end() - kRowPart)) {
      Differs(RowOfEntry(b).page,
              "is unique, but row " + std::to_string(RowOfEntry(b).slot) + " has the value of another");
    }
  }
}

void IndexChecker::TakeEntry(PageNumber number, const Bytes& entry) {
  if (!last_entry_.empty() && !(last_entry_ < entry) && ++out_of_order_ <= kShownPerIndex) {
    report_.Error(number, Whose() + " has entries out of order");
  }
  last_entry_ = entry;
  if (!keys_are_known_) {
    unknown_.emplace_back(entry.end() - kRowPart, entry.end());
    return;
  }
  const auto where = [](const Bytes& e) {
    const RowId row = RowOfEntry(e);
    return "row " + std::to_string(row.slot) + " of page " + std::to_string(row.page);
  };
  while (next_expected_ < expected_.size() && expected_[next_expected_] < entry) {
    Differs(number, "lacks the entry of " + where(expected_[next_expected_++]));
  }
  if (next_expected_ < expected_.size() && expected_[next_expected_] == entry) {
    ++next_expected_;
  } else {
    Differs(number, "has an entry too many for " + where(entry));
  }
}

void IndexChecker::CheckHeader(PageNumber number, const uint8_t* bytes, const IndexPage& page) {
  if (bytes[1] != 1) report_.Error(number, "is marked as unused");
  if (page.table() != check_.table.def().page)
    report_.Error(number, "names another table than the one it indexes");
  if (Load16(bytes + 2) != IndexPage::kAreaSize - page.used())
    report_.Error(number, "states a wrong number of free bytes");
  const size_t tail = kRowPart + (page.is_leaf() ? 0 : kChildPart);
  if (page.count() > 1 && page.prefix() + tail > page.Stored(0).size()) {
    report_.Error(number, "has an index prefix that is longer than a key");
  }
}

Expected<IndexChecker::Below> IndexChecker::Visit(PageNumber number, int depth) {
  if (check_.context.ledger.OwnerOf(number) != owner_) {
    report_.Error(number, "is used by " + Whose() + " but is not in its map");
    return Below{};
  }
  if (depth > kDeepest || reached_[number]) {
    report_.Error(number, "is reached twice in " + Whose());
    return Below{};
  }
  reached_[number] = true;
  TRY_ASSIGN(const PageRef ref, check_.context.pager.Read(number));
  IndexPage page;
  if (const Status status = IndexPage::Parse(ref, page); !status.ok()) {
    TRY(report_.Absorb(number, status));
    return Below{};
  }
  CheckHeader(number, ref.bytes(), page);
  return page.is_leaf() ? VisitLeaf(number, depth, page) : VisitNode(number, depth, page);
}

Expected<IndexChecker::Below> IndexChecker::VisitLeaf(PageNumber number, int depth, const IndexPage& page) {
  if (leaf_depth_ < 0) leaf_depth_ = depth;
  if (depth != leaf_depth_) report_.Error(number, Whose() + " has leaves at different depths");
  if (page.previous() != last_leaf_) report_.Error(number, "does not follow the leaf before it");
  if (last_leaf_ != 0 && last_next_ != number)
    report_.Error(last_leaf_, "does not lead to the leaf after it");
  last_leaf_ = number;
  last_next_ = page.next();
  if (page.tail() != 0) report_.Error(number, "is a leaf with a child");
  if (page.level() != 0) report_.Warn(number, "is a leaf that states another level");
  if (page.count() == 0 && depth > 0) report_.Error(number, "is an empty index page");
  for (int i = 0; i < page.count(); ++i) TakeEntry(number, page.Entry(i));
  return Below{page.count() > 0 ? page.Entry(page.count() - 1) : Bytes(), 0};
}

Expected<IndexChecker::Below> IndexChecker::VisitNode(PageNumber number, int depth, const IndexPage& page) {
  if (page.count() == 0) {
    report_.Error(number, "is an index node without entries");
    return Below{};
  }
  if (page.count() > 1 && page.tail() == 0) report_.Error(number, "is an index node without a last child");
  Below below;
  std::vector<PageNumber> children;
  for (int i = 0; i < page.count() + (page.tail() != 0 ? 1 : 0); ++i) {
    children.push_back(page.Child(i));
    TRY_ASSIGN(below, Visit(children.back(), depth + 1));
    if (i == page.count()) break;
    Bytes entry = page.Entry(i);
    entry.resize(entry.size() - kChildPart);
    if (entry != below.largest)
      report_.Error(number, "entry " + std::to_string(i) + " is not the largest below it");
  }
  below.height += 1;
  if (page.level() != below.height) report_.Warn(number, "is an index node that states another level");
  if (below.height > 1) TRY(CheckSiblings(children));
  return below;
}

// Nodes are chained under their parent. Searches do not use the chain.
Status IndexChecker::CheckSiblings(const std::vector<PageNumber>& nodes) {
  for (size_t i = 0; i < nodes.size(); ++i) {
    if (check_.context.ledger.OwnerOf(nodes[i]) != owner_) continue;
    TRY_ASSIGN(const PageRef ref, check_.context.pager.Read(nodes[i]));
    const PageNumber previous = Load32(ref.bytes() + 12), next = Load32(ref.bytes() + 16);
    if (previous != (i > 0 ? nodes[i - 1] : 0) || next != (i + 1 < nodes.size() ? nodes[i + 1] : 0)) {
      report_.Warn(nodes[i], "is an index node that is not chained to its neighbours");
    }
  }
  return Ok();
}

Status IndexChecker::Check() {
  Context& context = check_.context;
  TRY(VisitMap(context, index_.map, Whose(), [&](PageNumber page) {
    if (context.ledger.Claim(page, owner_, report_)) pages_.push_back(page);
  }));
  reached_.assign(context.ledger.pages(), false);
  TRY(CollectExpected());
  CheckUnique();
  TRY(Visit(index_.root, 0).status());
  if (last_leaf_ != 0 && last_next_ != 0) report_.Error(last_leaf_, "is the last leaf but leads to another");
  if (!keys_are_known_) {
    std::sort(unknown_.begin(), unknown_.end());
    const bool may_lack = index_.ignores_nulls();
    if (may_lack ? unknown_.size() > expected_.size() : unknown_ != expected_) {
      Differs(index_.root, "does not have one entry for each row");
    }
  } else {
    for (; next_expected_ < expected_.size(); ++next_expected_) {
      const RowId row = RowOfEntry(expected_[next_expected_]);
      Differs(index_.root,
              "lacks the entry of row " + std::to_string(row.slot) + " of page " + std::to_string(row.page));
    }
  }
  if (differences_ > kShownPerIndex) {
    report_.Error(index_.root,
                  Whose() + " has " + std::to_string(differences_ - kShownPerIndex) + " more such faults");
  }
  for (const PageNumber page : pages_) {
    if (!reached_[page]) report_.Warn(page, "is in the map of " + Whose() + " but not in its tree");
  }
  return Ok();
}

}  // namespace

Status CheckIndexes(TableCheck& check) {
  for (size_t i = 0; i < check.table.def().indexes.size(); ++i) TRY(IndexChecker(check, i).Check());
  return Ok();
}

}  // namespace tarvex::jet::verify
