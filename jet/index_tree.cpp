#include "jet/index_tree.h"

#include <algorithm>
#include <cstring>

namespace tarvex::jet {
namespace {

// A tree of real size has three or four levels; more than this is a loop.
constexpr size_t kDeepest = 24;
constexpr size_t kPreviousAt = 12, kNextAt = 16, kTailAt = 20;
constexpr size_t kNodeTail = kRowPart + kChildPart;

Status CorruptPage(PageNumber page, const char* what) {
  return {Fault::Corrupt, "page " + std::to_string(page) + ": " + what};
}

Bytes NodeEntry(const Bytes& largest, PageNumber child) {
  Bytes entry = largest;
  entry.resize(entry.size() + kChildPart);
  StoreBig32(entry.data() + entry.size() - kChildPart, child);
  return entry;
}

// Where to cut n entries or children in two, each side with at least one: at `preferred` if both sides then
// fit on a page, else at the place nearest to the middle where they do. With entries of very different
// lengths under one long prefix neither half of the bytes nor half of the count need fit.
template <class Fits>
size_t ChooseCut(size_t n, size_t preferred, Fits fits) {
  if (fits(preferred)) return preferred;
  const size_t middle = n / 2;
  for (size_t away = 0; away <= middle; ++away) {
    if (middle > away && fits(middle - away)) return middle - away;
    if (middle + away < n && fits(middle + away)) return middle + away;
  }
  return preferred;
}

std::vector<Bytes> Slice(const std::vector<Bytes>& entries, size_t from, size_t to) {
  return {entries.begin() + static_cast<std::ptrdiff_t>(from),
          entries.begin() + static_cast<std::ptrdiff_t>(to)};
}

}  // namespace

Expected<IndexCursor> IndexCursor::At(Pager& pager, const IndexPlace& place, std::span<const uint8_t> from) {
  IndexCursor cursor(pager);
  PageNumber number = place.root;
  for (size_t depth = 0;; ++depth) {
    if (depth > kDeepest) return CorruptPage(place.root, "the index is a loop");
    TRY_ASSIGN(cursor.ref_, pager.Read(number));
    TRY(IndexPage::Parse(cursor.ref_, cursor.page_));
    cursor.position_ = cursor.page_.LowerBound(from);
    if (cursor.page_.is_leaf()) break;
    int child = cursor.position_;
    if (child == cursor.page_.count() && cursor.page_.tail() == 0) --child;
    if (child < 0) return CorruptPage(number, "an index node has no children");
    number = cursor.page_.Child(child);
  }
  TRY(cursor.SkipEmpty());
  return cursor;
}

// Goes on to the next leaf while the position is past the end of this one.
Status IndexCursor::SkipEmpty() {
  while (position_ >= page_.count()) {
    const PageNumber next = page_.next();
    if (next == 0) {
      at_end_ = true;
      return Ok();
    }
    if (++pages_seen_ > pager_->page_count()) return CorruptPage(next, "the index leaves run in a loop");
    TRY_ASSIGN(ref_, pager_->Read(next));
    TRY(IndexPage::Parse(ref_, page_));
    if (!page_.is_leaf()) return CorruptPage(next, "is not an index leaf");
    position_ = 0;
  }
  return Ok();
}

Status IndexCursor::Next() {
  ++position_;
  return SkipEmpty();
}

int IndexCursor::CompareHead(std::span<const uint8_t> bytes) const {
  const Bytes entry = page_.Entry(position_);
  const size_t size = std::min(entry.size(), bytes.size());
  const int order = size == 0 ? 0 : std::memcmp(entry.data(), bytes.data(), size);
  return order != 0 ? order : entry.size() < bytes.size() ? -1 : 0;
}

bool IndexCursor::BeginsWith(std::span<const uint8_t> bytes) const {
  return CompareHead(bytes) == 0;
}

// The leaf where `entry` is or belongs. `path` gets the nodes above it.
Expected<PageNumber> IndexTree::Descend(std::span<const uint8_t> entry, Path& path) {
  PageNumber number = place_.root;
  while (true) {
    if (path.size() > kDeepest) return CorruptPage(place_.root, "the index is a loop");
    TRY_ASSIGN(const PageRef ref, pager_.Read(number));
    IndexPage page;
    TRY(IndexPage::Parse(ref, page));
    if (page.is_leaf()) return number;
    int child = page.LowerBound(entry);
    if (child == page.count() && page.tail() == 0) --child;
    if (child < 0) return CorruptPage(number, "an index node has no children");
    path.push_back({number, child});
    number = page.Child(child);
  }
}

Status IndexTree::Insert(std::span<const uint8_t> entry) {
  Path path;
  TRY_ASSIGN(const PageNumber leaf, Descend(entry, path));
  TRY_ASSIGN(const PageWriter writer, pager_.Write(leaf));
  IndexPage page;
  TRY(IndexPage::Parse(writer, page));
  const int at = page.LowerBound(entry);
  if (at < page.count() && page.Compare(at, entry) == 0) {
    return {Fault::Duplicate, "page " + std::to_string(leaf) + ": the index holds this entry already"};
  }
  const bool grows_end = at == page.count();
  // Larger than all below its ancestors: that happens on the right edge of the tree, where entries are
  // missing and nothing is to be written, and under nodes with a lone child, which has an entry.
  if (grows_end && !path.empty()) TRY(FixLargest(path, Bytes(entry.begin(), entry.end())));
  if (page.TryInsert(writer.mutable_bytes(), at, entry)) return Ok();
  std::vector<Bytes> entries = page.Entries();
  entries.insert(entries.begin() + at, Bytes(entry.begin(), entry.end()));
  const bool appended = grows_end && page.next() == 0;
  return Rewrite(leaf, std::move(path), std::move(entries), appended);
}

Status IndexTree::Erase(std::span<const uint8_t> entry) {
  Path path;
  TRY_ASSIGN(const PageNumber leaf, Descend(entry, path));
  TRY_ASSIGN(const PageWriter writer, pager_.Write(leaf));
  IndexPage page;
  TRY(IndexPage::Parse(writer, page));
  const int at = page.LowerBound(entry);
  if (at == page.count() || page.Compare(at, entry) != 0) {
    return CorruptPage(leaf, "the index lacks the entry of a row");
  }
  if (page.count() == 1 && !path.empty()) {
    TRY(Unlink(leaf));
    TRY(FreePage(leaf));
    return RemoveChild(std::move(path));
  }
  const bool was_last = at + 1 == page.count();
  if (!page.TryErase(writer.mutable_bytes(), at)) {
    std::vector<Bytes> entries = page.Entries();
    entries.erase(entries.begin() + at);
    IndexPage::WriteEntries(writer.mutable_bytes(), entries, kRowPart);
    TRY(IndexPage::Parse(writer, page));
  }
  return was_last && !path.empty() ? FixLargest(path, page.Entry(page.count() - 1)) : Ok();
}

// Writes a leaf's entries, on two pages when they do not fit on one. An entry that was appended to the whole
// index goes on a page of its own, so that a growing index has full leaves.
Status IndexTree::Rewrite(PageNumber leaf, Path path, std::vector<Bytes> entries, bool appended) {
  if (IndexPage::Fits(entries, kRowPart)) {
    TRY_ASSIGN(const PageWriter writer, pager_.Write(leaf));
    IndexPage::WriteEntries(writer.mutable_bytes(), entries, kRowPart);
    return Ok();
  }
  if (path.empty()) {
    TRY_ASSIGN(leaf, PushDownRoot());
    path.push_back({place_.root, 0});
  }
  // The new page takes the lower half and stands before the old one; appended, it takes the new entry and
  // stands behind.
  const size_t cut =
      ChooseCut(entries.size(), appended ? entries.size() - 1 : entries.size() / 2, [&](size_t at) {
        return IndexPage::Fits(Slice(entries, 0, at), kRowPart) &&
               IndexPage::Fits(Slice(entries, at, entries.size()), kRowPart);
      });
  const std::vector<Bytes> lower = Slice(entries, 0, cut);
  const std::vector<Bytes> upper = Slice(entries, cut, entries.size());
  if (lower.empty() || !IndexPage::Fits(lower, kRowPart) || !IndexPage::Fits(upper, kRowPart)) {
    return CorruptPage(leaf, "has index entries that are too long");
  }
  TRY_ASSIGN(const PageWriter fresh, NewPage(0));
  TRY_ASSIGN(const PageWriter old, pager_.Write(leaf));
  IndexPage::WriteEntries(fresh.mutable_bytes(), appended ? upper : lower, kRowPart);
  IndexPage::WriteEntries(old.mutable_bytes(), appended ? lower : upper, kRowPart);
  const PageNumber node = path.back().page;
  const auto place = static_cast<size_t>(path.back().child);
  TRY_ASSIGN(std::vector<Child> children, ChildrenOf(node));
  if (place >= children.size()) return CorruptPage(node, "lacks a child");
  if (appended) {
    TRY(SetLink(fresh.number(), kPreviousAt, leaf));
    TRY(SetLink(leaf, kNextAt, fresh.number()));
    children[place].largest = lower.back();
    children.push_back({upper.back(), fresh.number()});
  } else {
    TRY(LinkBefore(fresh.number(), leaf));
    children[place].largest = upper.back();
    children.insert(children.begin() + static_cast<std::ptrdiff_t>(place), {lower.back(), fresh.number()});
  }
  path.pop_back();
  return WriteNode(std::move(path), node, std::move(children));
}

// Moves the root's content to a new page, which becomes its only child. The caller writes the root's children
// next.
Expected<PageNumber> IndexTree::PushDownRoot() {
  TRY_ASSIGN(const PageWriter root, pager_.Write(place_.root));
  TRY_ASSIGN(const PageWriter below, NewPage(0));
  std::memcpy(below.mutable_bytes(), root.bytes(), kPageSize);
  TRY_ASSIGN(const Bytes largest, LargestBelow(below.number()));
  const std::vector<Bytes> entries = {NodeEntry(largest, below.number())};
  if (!IndexPage::Fits(entries, kNodeTail))
    return CorruptPage(place_.root, "has index entries that are too long");
  // Other programs leave the level of nodes at 0.
  const int level = below.bytes()[0] == kIndexLeaf ? 1 : std::max(below.bytes()[26] + 1, 2);
  IndexPage::Format(root.mutable_bytes(), place_.table, level);
  root.ClearChecked();
  IndexPage::WriteEntries(root.mutable_bytes(), entries, kNodeTail);
  return below.number();
}

Expected<PageWriter> IndexTree::NewPage(int level) {
  TRY_ASSIGN(PageWriter page, allocator_.Allocate());
  IndexPage::Format(page.mutable_bytes(), place_.table, level);
  TRY(allocator_.MapAdd(place_.map, page.number()));
  return page;
}

Expected<std::vector<IndexTree::Child>> IndexTree::ChildrenOf(PageNumber node) {
  TRY_ASSIGN(const PageRef ref, pager_.Read(node));
  IndexPage page;
  TRY(IndexPage::Parse(ref, page));
  if (page.is_leaf()) return CorruptPage(node, "is not an index node");
  std::vector<Child> children;
  for (int i = 0; i < page.count(); ++i) {
    Bytes entry = page.Entry(i);
    const PageNumber child = LoadBig32(entry.data() + entry.size() - kChildPart);
    entry.resize(entry.size() - kChildPart);
    children.push_back({std::move(entry), child});
  }
  if (page.tail() != 0) children.push_back({{}, page.tail()});
  return children;
}

// Writes a node with these children. `path` leads to the node.
Status IndexTree::WriteNode(Path path, PageNumber node, std::vector<Child> children) {
  if (children.empty()) return CorruptPage(node, "has no children");
  const bool has_tail = children.size() >= 2;
  if (!has_tail && children[0].largest.empty()) {
    TRY_ASSIGN(children[0].largest, LargestBelow(children[0].page));
  }
  std::vector<Bytes> entries;
  for (size_t i = 0; i + (has_tail ? 1 : 0) < children.size(); ++i) {
    entries.push_back(NodeEntry(children[i].largest, children[i].page));
  }
  if (!IndexPage::Fits(entries, kNodeTail)) return SplitNode(std::move(path), node, std::move(children));
  TRY_ASSIGN(const PageWriter writer, pager_.Write(node));
  IndexPage::WriteEntries(writer.mutable_bytes(), entries, kNodeTail);
  Store<uint32_t>(writer.mutable_bytes() + kTailAt, has_tail ? children.back().page : 0);
  return Ok();
}

Status IndexTree::SplitNode(Path path, PageNumber node, std::vector<Child> children) {
  if (path.empty()) {
    TRY_ASSIGN(node, PushDownRoot());
    path.push_back({place_.root, 0});
  }
  TRY_ASSIGN(const PageRef ref, pager_.Read(node));
  const int level = std::max<int>(ref.bytes()[26], 1);
  if (children.size() < 2) return CorruptPage(node, "has index entries that are too long");
  // A node that grows at its end keeps most of its children, so that a growing index has full nodes.
  const bool at_end = Load32(ref.bytes() + kNextAt) == 0 && children.size() > 8;
  std::vector<Bytes> entries;
  for (const Child& child : children) entries.push_back(NodeEntry(child.largest, child.page));
  const size_t cut =
      ChooseCut(children.size(), at_end ? children.size() - 4 : children.size() / 2, [&](size_t at) {
        return IndexPage::Fits(Slice(entries, 0, at - 1), kNodeTail) &&
               IndexPage::Fits(Slice(entries, at, std::max(at, entries.size() - 1)), kNodeTail);
      });
  std::vector<Child> lower(children.begin(), children.begin() + static_cast<std::ptrdiff_t>(cut));
  std::vector<Child> upper(children.begin() + static_cast<std::ptrdiff_t>(cut), children.end());
  const Bytes lower_largest = lower.back().largest;
  TRY_ASSIGN(const PageWriter fresh, NewPage(level));
  TRY(LinkBefore(fresh.number(), node));
  TRY_ASSIGN(const PageRef below, pager_.Read(lower.back().page));
  if (below.bytes()[0] == kIndexNode) {
    // Nodes are chained under one parent only.
    TRY(SetLink(lower.back().page, kNextAt, 0));
    TRY(SetLink(upper.front().page, kPreviousAt, 0));
  }
  const PageNumber parent = path.back().page;
  const auto place = static_cast<size_t>(path.back().child);
  TRY_ASSIGN(std::vector<Child> siblings, ChildrenOf(parent));
  if (place >= siblings.size()) return CorruptPage(parent, "lacks a child");
  siblings.insert(siblings.begin() + static_cast<std::ptrdiff_t>(place), {lower_largest, fresh.number()});
  Path to_fresh = path, to_node = path;
  to_node.back().child += 1;
  // Each half fits: both are written whole before the parent, which may split in its turn.
  TRY(WriteNode(to_fresh, fresh.number(), std::move(lower)));
  TRY(WriteNode(to_node, node, std::move(upper)));
  path.pop_back();
  return WriteNode(std::move(path), parent, std::move(siblings));
}

Status IndexTree::SetLink(PageNumber page, size_t offset, PageNumber to) {
  TRY_ASSIGN(const PageWriter writer, pager_.Write(page));
  if (writer.bytes()[0] != kIndexLeaf && writer.bytes()[0] != kIndexNode) {
    return CorruptPage(page, "is not an index page");
  }
  Store<uint32_t>(writer.mutable_bytes() + offset, to);
  return Ok();
}

Status IndexTree::LinkBefore(PageNumber page, PageNumber before) {
  TRY_ASSIGN(const PageRef ref, pager_.Read(before));
  const PageNumber previous = Load32(ref.bytes() + kPreviousAt);
  TRY(SetLink(page, kPreviousAt, previous));
  TRY(SetLink(page, kNextAt, before));
  TRY(SetLink(before, kPreviousAt, page));
  return previous != 0 ? SetLink(previous, kNextAt, page) : Ok();
}

Status IndexTree::Unlink(PageNumber page) {
  TRY_ASSIGN(const PageRef ref, pager_.Read(page));
  const PageNumber previous = Load32(ref.bytes() + kPreviousAt);
  const PageNumber next = Load32(ref.bytes() + kNextAt);
  if (previous != 0) TRY(SetLink(previous, kNextAt, next));
  if (next != 0) TRY(SetLink(next, kPreviousAt, previous));
  return Ok();
}

// The page under the last step of `path` has a new largest entry: its entry above is made equal, and further
// up as long as the page is its parent's last child.
Status IndexTree::FixLargest(Path path, const Bytes& largest) {
  while (!path.empty()) {
    const Step step = path.back();
    path.pop_back();
    TRY_ASSIGN(const PageRef ref, pager_.Read(step.page));
    IndexPage page;
    TRY(IndexPage::Parse(ref, page));
    const bool is_tail = step.child == page.count();
    if (is_tail) continue;
    if (page.is_leaf() || step.child > page.count()) return CorruptPage(step.page, "lacks a child");
    const bool is_last = page.tail() == 0 && step.child + 1 == page.count();
    if (page.Compare(step.child, largest) != 0) {
      TRY_ASSIGN(std::vector<Child> children, ChildrenOf(step.page));
      if (static_cast<size_t>(step.child) >= children.size()) return CorruptPage(step.page, "lacks a child");
      children[static_cast<size_t>(step.child)].largest = largest;
      TRY(WriteNode(path, step.page, std::move(children)));
    }
    if (!is_last) break;
  }
  return Ok();
}

// The page under the last step of `path` is gone: so is its place in the node above.
Status IndexTree::RemoveChild(Path path) {
  const Step step = path.back();
  path.pop_back();
  TRY_ASSIGN(std::vector<Child> children, ChildrenOf(step.page));
  if (static_cast<size_t>(step.child) >= children.size()) return CorruptPage(step.page, "lacks a child");
  const bool was_last = static_cast<size_t>(step.child) + 1 == children.size();
  children.erase(children.begin() + step.child);
  if (children.empty()) {
    if (path.empty()) {
      TRY_ASSIGN(const PageWriter root, pager_.Write(place_.root));
      IndexPage::Format(root.mutable_bytes(), place_.table, 0);
      root.ClearChecked();
      return Ok();
    }
    TRY(Unlink(step.page));
    TRY(FreePage(step.page));
    return RemoveChild(std::move(path));
  }
  const Bytes largest = children.back().largest;
  TRY(WriteNode(path, step.page, std::move(children)));
  return was_last && !path.empty() ? FixLargest(std::move(path), largest) : Ok();
}

Expected<Bytes> IndexTree::LargestBelow(PageNumber number) {
  for (size_t depth = 0; depth <= kDeepest; ++depth) {
    TRY_ASSIGN(const PageRef ref, pager_.Read(number));
    IndexPage page;
    TRY(IndexPage::Parse(ref, page));
    if (page.count() == 0 && page.tail() == 0) return CorruptPage(number, "an index page is empty");
    if (page.is_leaf()) return page.Entry(page.count() - 1);
    number = page.tail() != 0 ? page.tail() : page.Child(page.count() - 1);
  }
  return CorruptPage(number, "the index is a loop");
}

Status IndexTree::FreePage(PageNumber page) {
  TRY(allocator_.MapRemove(place_.map, page));
  return allocator_.Free(page);
}

Status IndexTree::CollectPages(PageNumber number, int depth, std::vector<PageNumber>& pages) {
  if (depth > static_cast<int>(kDeepest) || pages.size() > pager_.page_count()) {
    return CorruptPage(number, "the index is a loop");
  }
  pages.push_back(number);
  TRY_ASSIGN(const PageRef ref, pager_.Read(number));
  IndexPage page;
  TRY(IndexPage::Parse(ref, page));
  if (page.is_leaf()) return Ok();
  TRY_ASSIGN(const std::vector<Child> children, ChildrenOf(number));
  for (const Child& child : children) TRY(CollectPages(child.page, depth + 1, pages));
  return Ok();
}

Status IndexTree::Clear() {
  std::vector<PageNumber> pages;
  TRY(CollectPages(place_.root, 0, pages));
  for (size_t i = 1; i < pages.size(); ++i) TRY(FreePage(pages[i]));
  TRY_ASSIGN(const PageWriter root, pager_.Write(place_.root));
  IndexPage::Format(root.mutable_bytes(), place_.table, 0);
  root.ClearChecked();
  return Ok();
}

Status IndexTree::Free() {
  TRY(Clear());
  return FreePage(place_.root);
}

}  // namespace tarvex::jet
