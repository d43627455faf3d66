#include "jet/bytes.h"
#include "jet/verify_parts.h"

namespace tarvex::jet::verify {
namespace {

constexpr size_t kInlineHead = 5;
constexpr size_t kBitmapHead = 4;

void VisitBits(const uint8_t* bits, size_t bytes, uint64_t first,
               const std::function<void(PageNumber)>& visit) {
  for (size_t i = 0; i < bytes; ++i) {
    for (unsigned bit = 0; bits[i] >> bit != 0; ++bit) {
      if ((bits[i] >> bit & 1) != 0)
        visit(static_cast<PageNumber>(std::min<uint64_t>(first + 8 * i + bit, UINT32_MAX)));
    }
  }
}

}  // namespace

void Report::Add(char severity, PageNumber page, std::string text) {
  if (findings_.size() > kMostFindings) return;
  if (findings_.size() == kMostFindings) {
    findings_.push_back({severity, 0, "there are more findings; they are not listed"});
    return;
  }
  findings_.push_back({severity, page, std::move(text)});
}

Status Report::Absorb(PageNumber page, const Status& status) {
  switch (status.fault) {
    case Fault::None:
      return Ok();
    case Fault::Corrupt:
    case Fault::NotFound:
    case Fault::Unsupported:
    case Fault::Invalid:
    case Fault::Range:
      break;
    default:
      return status;
  }
  // The engine's texts begin with the page.
  std::string text = status.detail;
  const size_t colon = text.find(": ");
  if (text.rfind("page ", 0) == 0 && colon != std::string::npos && colon < 16 &&
      text.find_first_not_of("0123456789", 5) == colon) {
    page = static_cast<PageNumber>(std::stoul(text.substr(5, colon - 5)));
    text.erase(0, colon + 2);
  }
  Error(page, std::move(text));
  return Ok();
}

bool Ledger::Claim(PageNumber page, Owner owner, Report& report) {
  if (page >= owners_.size()) {
    report.Error(page, "lies beyond the end of the file but belongs to " + names_[owner]);
    return false;
  }
  if (owners_[page] != kNobody) {
    report.Error(page, owners_[page] == owner
                           ? "is listed twice by " + names_[owner]
                           : "belongs to " + names_[owners_[page]] + " and to " + names_[owner]);
    return false;
  }
  owners_[page] = owner;
  return true;
}

Status VisitMap(Context& context, RowId map, const std::string& whose,
                const std::function<void(PageNumber)>& visit) {
  Report& report = context.report;
  const auto fail = [&](const std::string& what) {
    report.Error(map.page, "the map of " + whose + " in row " + std::to_string(map.slot) + " " + what);
    return Ok();
  };
  if (!context.map_rows.insert(map.Pack()).second) return fail("is also another map");
  if (map.page >= context.ledger.pages()) return fail("lies beyond the end of the file");
  const bool is_new = context.ledger.OwnerOf(map.page) != context.maps;
  if (is_new && !context.ledger.Claim(map.page, context.maps, report)) return Ok();
  TRY_ASSIGN(const PageRef page, context.pager.Read(map.page));
  const auto rows = DataPage::Parse(page);
  if (!rows.ok()) return report.Absorb(map.page, rows.status());
  if (is_new && rows->stated_free() != rows->free())
    report.Error(map.page, "states a wrong number of free bytes");
  if (map.slot >= rows->slots() || rows->state(map.slot) != 0) return fail("does not exist");
  const std::span<const uint8_t> row = rows->Row(map.slot);
  if (row.size() < kInlineHead || row[0] > 1) return fail("is of no known kind");
  if (row[0] == 0) {
    const PageNumber first = Load32(&row[1]);
    if (first % 8 != 0) return fail("does not start at a multiple of 8");
    VisitBits(row.data() + kInlineHead, row.size() - kInlineHead, first, visit);
    return Ok();
  }
  for (size_t k = 0; 1 + 4 * k + 4 <= row.size(); ++k) {
    const PageNumber number = Load32(&row[1 + 4 * k]);
    if (number == 0 || !context.ledger.Claim(number, context.maps, report)) continue;
    TRY_ASSIGN(const PageRef bitmap, context.pager.Read(number));
    if (bitmap.bytes()[0] != kBitmapPage) {
      report.Error(number, "is no bitmap page, but the map of " + whose + " uses it as one");
      continue;
    }
    VisitBits(bitmap.bytes() + kBitmapHead, kPageSize - kBitmapHead, uint64_t{k} * kBitmapPages, visit);
  }
  return Ok();
}

// Pages outside the range of the map count as free; the end of the file lies inside it in every sound file.
Status CheckGlobalMap(Context& context) {
  const RowId map = RowId::Unpack(context.database.header().global_map);
  context.free.assign(context.ledger.pages(), false);
  TRY(VisitMap(context, map, "free pages", [&](PageNumber page) {
    if (page < context.free.size()) context.free[page] = true;
  }));
  if (map.page >= context.ledger.pages()) return Ok();
  TRY_ASSIGN(const PageRef page, context.pager.Read(map.page));
  const auto rows = DataPage::Parse(page);
  if (!rows.ok()) return Ok();
  if (rows->stated_free() != rows->free())
    context.report.Error(map.page, "states a wrong number of free bytes");
  if (map.slot >= rows->slots() || rows->Row(map.slot).size() < kInlineHead) return Ok();
  const std::span<const uint8_t> row = rows->Row(map.slot);
  const uint64_t first = row[0] == 0 ? Load32(&row[1]) : 0;
  const uint64_t end = row[0] == 0 ? first + 8 * (row.size() - kInlineHead) : UINT64_MAX;
  for (PageNumber number = 0; number < context.free.size(); ++number) {
    if (number < first || number >= end) context.free[number] = true;
    if (row[0] == 1) {
      const size_t k = number / kBitmapPages;
      if (1 + 4 * k + 4 > row.size() || Load32(&row[1 + 4 * k]) == 0) context.free[number] = true;
    }
  }
  return Ok();
}

Status CheckOwnership(Context& context) {
  for (PageNumber number = 0; number < context.ledger.pages(); ++number) {
    const Ledger::Owner owner = context.ledger.OwnerOf(number);
    if (owner != Ledger::kNobody) {
      if (context.free[number]) {
        context.report.Error(number, "belongs to " + context.ledger.NameOf(owner) + " but counts as free");
      }
      continue;
    }
    if (context.free[number]) continue;
    TRY_ASSIGN(const PageRef page, context.pager.Read(number));
    if (page.bytes()[0] == kDefinitionPage) {
      context.report.Error(number, "is a table definition that no table uses");
    } else {
      context.report.Warn(number, "belongs to nobody and does not count as free");
    }
  }
  return Ok();
}

}  // namespace tarvex::jet::verify
