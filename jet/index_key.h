#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "base/status.h"
#include "jet/table_def.h"

namespace tarvex::jet {

// Whether keys for the column can be made here: false for texts under another collation, whose indexes can be
// read but not kept.
bool HasKnownKeys(const Column& column);

// Adds one column's part of an index key, which compares as an unsigned byte string: a null is 00 (FF when
// descending); anything else 7F (80) and its value's bytes. `raw` holds the stored bytes; for Memo the
// content itself; for Boolean nothing, the value being `present`. Fault::Corrupt when a text cannot be
// decoded, Fault::Unsupported when the column has no keys.
Status AppendColumnKey(const Column& column, bool ascending, bool present, std::span<const uint8_t> raw,
                       std::vector<uint8_t>& key);

}  // namespace tarvex::jet
