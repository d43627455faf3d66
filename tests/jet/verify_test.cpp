#include "jet/verify.h"

#include "tests/jet/damage.h"
#include "tests/jet/support.h"

namespace tarvex::jet {
namespace {

// Where things are in the file to be bent.
struct Places {
  TableDef def;
  RowId row;            // an ordinary one
  RowId moved;          // a row that stands elsewhere
  PageNumber leaf = 0;  // of the first index
};

Places FindPlaces(Database& database) {
  Places places;
  const Table& table = TableOf(database, "Model");
  places.def = table.def();
  for (const RowId id : RowIds(table)) {
    const PageRef page = Must(database.pager().Read(id.page));
    const uint16_t state = Must(DataPage::Parse(page)).state(id.slot);
    (state == DataPage::kMoved ? places.moved : places.row) = id;
  }
  const PageRef root = Must(database.pager().Read(places.def.indexes[1].root));
  IndexPage node;
  EXPECT_EQ(Described(IndexPage::Parse(root, node)), "ok");
  EXPECT_FALSE(node.is_leaf());
  places.leaf = node.Child(0);
  return places;
}

using Bytes4K = uint8_t*;

struct Bend {
  const char* what;  // part of the finding
  std::function<void(const Places&, const std::function<Bytes4K(PageNumber)>&)> change;
};

size_t SlotAt(RowId row) {
  return DataPage::kSlots + 2 * size_t{row.slot};
}

const Bend kBends[] = {
    {"wrong number of free bytes", [](const Places& p, const auto& page) { page(p.row.page)[2] ^= 1; }},
    {"counts", [](const Places& p, const auto& page) { page(p.def.page)[TableDef::kRowCount] ^= 1; }},
    {"the counter of",
     [](const Places& p, const auto& page) {
       Store<uint32_t>(page(p.def.page) + TableDef::kLastCounter, 3);
     }},
    // A row vanishes, but not its entries.
    {"entry too many",
     [](const Places& p, const auto& page) { page(p.row.page)[SlotAt(p.row) + 1] |= 0xC0; }},
    {"nothing points at it",
     [](const Places& p, const auto& page) { page(p.moved.page)[SlotAt(p.moved) + 1] |= 0xC0; }},
    {"unknown row state",
     [](const Places& p, const auto& page) { page(p.row.page)[SlotAt(p.row) + 1] |= 0x20; }},
    {"out of order", [](const Places& p, const auto& page) { page(p.leaf)[IndexPage::kArea + 1] = 0xFF; }},
    {"does not follow the leaf", [](const Places& p, const auto& page) { page(p.leaf)[12] = 3; }},
    {"not the largest below it",
     [](const Places& p, const auto& page) { page(p.def.indexes[1].root)[IndexPage::kArea + 1] ^= 0x40; }},
    {"is not in its map",
     [](const Places& p, const auto& page) {
       page(p.def.indexes[0].map.page)[kPageSize - 1] ^= 0xFF,
           std::fill_n(page(p.def.indexes[0].map.page) + 2000, 2000, uint8_t{0});
     }},
    {"counts as free",
     [](const Places& p, const auto& page) {
       page(1)[kPageSize - kMapRowSize + 5 + p.row.page / 8] |= static_cast<uint8_t>(1 << p.row.page % 8);
     }},
    {"belongs to nobody",
     [](const Places&, const auto& page) {
       page(1)[kPageSize - kMapRowSize + 5 + 63] = 0, page(1)[kPageSize - kMapRowSize + 5 + 62] = 0;
     }},
    {"lacks its mark", [](const Places& p, const auto& page) { page(p.def.page)[12] ^= 1; }},
    {"names another table", [](const Places& p, const auto& page) { page(p.leaf)[4] ^= 1; }},
    {"has no rights", [](const Places&, const auto& page) { page(0)[0x6A] ^= 1; }},
    {"commit word", [](const Places&, const auto& page) { page(0)[0xE01] = 0; }},
};

TEST(Verify, FindsNothingInASoundFile) {
  MemoryDisk disk;
  disk.Put(kFile, RichFile());
  EXPECT_EQ(Findings(*OpenDatabase(disk)), "");
  EXPECT_TRUE(Must(VerifyFile(disk, kFile)).empty());
}

TEST(Verify, FindsEachKindOfDamage) {
  MemoryDisk disk;
  disk.Put(kFile, RichFile());
  const Places places = FindPlaces(*OpenDatabase(disk));
  for (const Bend& bend : kBends) {
    MemoryDisk::Content content = RichFile();
    // Space for the bend that needs pages beyond those in use.
    if (std::string_view(bend.what) == "belongs to nobody") content.resize(512 * kPageSize);
    bend.change(places, [&](PageNumber page) { return &content[page * kPageSize]; });
    disk.Put(kFile, content);
    const std::string findings = Findings(*OpenDatabase(disk));
    EXPECT_NE(findings.find(bend.what), std::string::npos) << bend.what << "\n" << findings.substr(0, 1000);
  }
}

TEST(Verify, StopsListingAfterAThousandFindings) {
  MemoryDisk disk;
  MemoryDisk::Content content = RichFile();
  content.resize(3000 * kPageSize);
  // All pages behind the old end are in use and belong to nobody: the map is made to cover them as a
  // reference map.
  uint8_t* row = &content[2 * kPageSize - kMapRowSize];
  std::fill_n(row, kMapRowSize, uint8_t{0});
  row[0] = 1;
  Store<uint32_t>(row + 1, 2999);
  content[2999 * kPageSize] = kBitmapPage;
  disk.Put(kFile, content);
  const auto findings = Must(Verify(*OpenDatabase(disk)));
  EXPECT_EQ(findings.size(), kMostFindings + 1);
  EXPECT_EQ(findings.back().text, "there are more findings; they are not listed");
}

}  // namespace
}  // namespace tarvex::jet
