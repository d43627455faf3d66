#include "jet/verify.h"

#include <algorithm>
#include <map>

#include "jet/bytes.h"
#include "jet/verify_parts.h"

namespace tarvex::jet {
namespace verify {
namespace {

constexpr PageNumber kFewestPages = 16;
constexpr size_t kCommitWords = 0xE00;

struct FixedObject {
  int32_t id;
  const char* name;
  int type;
};

// Objects that every file has.
constexpr FixedObject kFixedObjects[] = {
    {0x0F000001, "Tables", 3}, {0x0F000002, "Databases", 3}, {0x0F000003, "Relationships", 3},
    {0x10000000, "MSysDb", 2}, {2, "MSysObjects", 1},        {3, "MSysACEs", 1},
    {4, "MSysQueries", 1},     {5, "MSysRelationships", 1},
};
constexpr int32_t kRootObject = 0x0F000000;

Status CheckHeader(Context& context) {
  Report& report = context.report;
  const Header& header = context.database.header();
  if (context.ledger.pages() < kFewestPages) report.Error(0, "the file has fewer pages than a blank one");
  if (header.global_map >> 8 != 1) report.Error(0, "the global map is not on page 1");
  for (size_t i = 0; i < 4; ++i) {
    if (header.system_tables[i] != 2 + i) report.Error(0, "a system table is not in its place");
  }
  if (!header.has_known_collation()) report.Warn(0, "the file sorts by another language than General");
  if (header.code_page != 1252) report.Warn(0, "the code page is not 1252");
  const bool has_password =
      std::any_of(header.password.begin(), header.password.end(), [](uint8_t b) { return b != 0; });
  if (has_password) report.Warn(0, "the database has a password");
  TRY_ASSIGN(const PageRef page, context.pager.Read(0));
  for (size_t i = 0; i < 256; ++i) {
    const uint16_t word = Load16(page.bytes() + kCommitWords + 2 * i);
    if (word < 0x0100 || word > 0x03FF) {
      report.Warn(0, "commit word " + std::to_string(i) + " has an unusual value");
      break;
    }
  }
  return Ok();
}

void CheckObjects(Context& context, const std::vector<CatalogEntry>& entries) {
  Report& report = context.report;
  const PageNumber catalog = context.database.header().system_tables[0];
  std::map<int32_t, const CatalogEntry*> by_id;
  std::set<std::pair<int32_t, std::string>> names;
  for (const CatalogEntry& entry : entries) {
    if (!by_id.emplace(entry.id, &entry).second)
      report.Error(catalog, "object id of " + entry.name + " is there twice");
    if (!names.emplace(entry.parent, entry.name).second)
      report.Error(catalog, "object " + entry.name + " is there twice");
  }
  for (const CatalogEntry& entry : entries) {
    if (entry.parent != kRootObject && !by_id.contains(entry.parent)) {
      report.Error(catalog, "object " + entry.name + " has a parent that does not exist");
    }
  }
  for (const FixedObject& fixed : kFixedObjects) {
    const auto found = by_id.find(fixed.id);
    if (found == by_id.end() || found->second->type != fixed.type || found->second->name != fixed.name) {
      report.Error(catalog, std::string("the catalogue lacks ") + fixed.name);
    }
  }
}

// The rights of objects: every table has some, and none are for what does not exist.
Status CheckRights(Context& context, const std::vector<CatalogEntry>& entries) {
  Report& report = context.report;
  const Header& header = context.database.header();
  const auto def = ReadTableDef(context.pager, header.system_tables[1]);
  if (!def.ok()) return report.Absorb(header.system_tables[1], def.status());
  const Table rights(context.pager, "MSysACEs", *def);
  const int object = rights.Column("ObjectId"), sid = rights.Column("SID");
  if (object < 0 || sid < 0) return report.Error(def->page, "MSysACEs lacks a field"), Ok();
  std::set<int32_t> objects;
  std::set<Bytes> sids;
  TableScan scan = rights.Scan();
  while (true) {
    const auto more = scan.Next();
    if (!more.ok()) return report.Absorb(def->page, more.status());
    if (!*more) break;
    const auto id = scan.record().Get(sid);
    if (!id.ok()) return report.Absorb(def->page, id.status());
    objects.insert(scan.record().Long(object));
    if (const auto* bytes = std::get_if<Bytes>(&*id); bytes && sids.size() < 100) sids.insert(*bytes);
  }
  for (const CatalogEntry& entry : entries) {
    const bool has_rights = objects.erase(entry.id) > 0;
    if (entry.is_table() && !has_rights) report.Warn(def->page, "nobody has rights on table " + entry.name);
  }
  objects.erase(kRootObject);
  if (!objects.empty()) report.Warn(def->page, "there are rights on objects that do not exist");
  for (const Principal principal : {Principal::Admin, Principal::Users}) {
    if (!sids.contains(SecurityId(header, principal))) {
      report.Warn(def->page, "the default user has no rights: the security ids do not fit the header");
      break;
    }
  }
  return Ok();
}

}  // namespace

Status CheckCatalog(Context& context, std::vector<CatalogEntry>& tables) {
  const Header& header = context.database.header();
  auto entries = context.database.Catalog();
  if (!entries.ok()) {
    TRY(context.report.Absorb(header.system_tables[0], entries.status()));
    for (size_t i = 0; i < 4; ++i) {
      CatalogEntry entry;
      entry.name = kFixedObjects[4 + i].name;
      entry.page = header.system_tables[i];
      entry.type = 1;
      entry.flags = 0x80000000;
      tables.push_back(std::move(entry));
    }
    return Ok();
  }
  CheckObjects(context, *entries);
  TRY(CheckRights(context, *entries));
  std::set<PageNumber> seen;
  for (CatalogEntry& entry : *entries) {
    if (entry.is_table() && seen.insert(entry.page).second) tables.push_back(std::move(entry));
  }
  return Ok();
}

Status CheckTable(Context& context, const CatalogEntry& entry) {
  TRY_ASSIGN(const bool readable, CheckDefinition(context, entry.page, entry.name));
  if (!readable) return Ok();
  auto def = ReadTableDef(context.pager, entry.page);
  if (!def.ok()) return context.report.Absorb(entry.page, def.status());
  TableCheck check{context, Table(context.pager, entry.name, std::move(*def)), entry.is_system(), {}, {}, {},
                   {}};
  CheckSchema(context, check.table);
  TRY(ClaimPages(check));
  TRY(CheckRows(check));
  return CheckIndexes(check);
}

namespace {

// The header and the global map first: they own pages that no other may have.
Status CheckFile(Context& context) {
  context.maps = context.ledger.NewOwner("the maps");
  context.ledger.Claim(0, context.ledger.NewOwner("the header"), context.report);
  TRY(CheckHeader(context));
  TRY(CheckGlobalMap(context));
  std::vector<CatalogEntry> tables;
  TRY(CheckCatalog(context, tables));
  for (const CatalogEntry& entry : tables) TRY(CheckTable(context, entry));
  return CheckOwnership(context);
}

}  // namespace
}  // namespace verify

Expected<std::vector<Finding>> Verify(Database& database) {
  Pager& pager = database.pager();
  verify::Context context{database, pager, {}, verify::Ledger(pager.page_count()), {}, 0, {}};
  TRY(verify::CheckFile(context));
  return context.report.Take();
}

Expected<std::vector<Finding>> VerifyFile(FileSystem& files, const std::string& path) {
  TRY_ASSIGN(const auto database, Database::Open(files, path, OpenMode::Read));
  return Verify(*database);
}

}  // namespace tarvex::jet
