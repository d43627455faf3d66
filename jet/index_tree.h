#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "jet/index_page.h"
#include "jet/pager.h"
#include "jet/usage_map.h"

namespace tarvex::jet {

// Where an index stands in the file.
struct IndexPlace {
  PageNumber table = 0;  // definition page of the table
  PageNumber root = 0;
  RowId map;
};

// Walks the entries of an index in order. Any change of the index makes it invalid.
class IndexCursor {
 public:
  // Stands on the first entry that is not less than `from` (an entry or the beginning of one).
  static Expected<IndexCursor> At(Pager& pager, const IndexPlace& place, std::span<const uint8_t> from);

  bool AtEnd() const { return at_end_; }
  RowId row() const { return page_.Row(position_); }
  // Whether the entry begins with these bytes.
  bool BeginsWith(std::span<const uint8_t> bytes) const;
  // As memcmp of the entry's beginning, as long as `bytes`, with `bytes`.
  int CompareHead(std::span<const uint8_t> bytes) const;
  Status Next();

 private:
  explicit IndexCursor(Pager& pager) : pager_(&pager) {}
  Status SkipEmpty();

  Pager* pager_;
  PageRef ref_;
  IndexPage page_;
  int position_ = 0;
  bool at_end_ = false;
  size_t pages_seen_ = 0;
};

// Changes a B-tree so that every reader of the format still finds its way:
// the root stays where it is; a node's last child has no entry but stands in the tail field, a lone child has
// an entry; a child's entry equals the largest entry below it; leaves are chained through the whole index,
// nodes only under one parent; no page but an empty root is empty; every page is in the index's map.
class IndexTree {
 public:
  IndexTree(Pager& pager, PageAllocator& allocator, const IndexPlace& place)
      : pager_(pager), allocator_(allocator), place_(place) {}

  // Fault::Duplicate when the very entry (key and row) is there already.
  Status Insert(std::span<const uint8_t> entry);
  // Fault::Corrupt when it is not there.
  Status Erase(std::span<const uint8_t> entry);
  // Gives all pages but the root back and leaves an empty leaf.
  Status Clear();
  // Gives all pages back.
  Status Free();

 private:
  // One step down: the page and which of its children was taken.
  struct Step {
    PageNumber page;
    int child;
  };
  struct Child {
    Bytes largest;  // the largest entry below; may be empty for the last child of a node
    PageNumber page;
  };
  using Path = std::vector<Step>;

  Expected<PageNumber> Descend(std::span<const uint8_t> entry, Path& path);
  Status Rewrite(PageNumber leaf, Path path, std::vector<Bytes> entries, bool appended);
  Expected<PageNumber> PushDownRoot();
  Expected<PageWriter> NewPage(int level);
  Expected<std::vector<Child>> ChildrenOf(PageNumber node);
  Status WriteNode(Path path, PageNumber node, std::vector<Child> children);
  Status SplitNode(Path path, PageNumber node, std::vector<Child> children);
  Status LinkBefore(PageNumber page, PageNumber before);
  Status Unlink(PageNumber page);
  Status FixLargest(Path path, const Bytes& largest);
  Status RemoveChild(Path path);
  Expected<Bytes> LargestBelow(PageNumber page);
  Status FreePage(PageNumber page);
  Status CollectPages(PageNumber page, int depth, std::vector<PageNumber>& pages);
  Status SetLink(PageNumber page, size_t offset, PageNumber to);

  Pager& pager_;
  PageAllocator& allocator_;
  IndexPlace place_;
};

}  // namespace tarvex::jet
