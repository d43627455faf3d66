#pragma once

#include <span>
#include <string>
#include <vector>

#include "jet/value.h"

namespace tarvex::jet {

// What the catalogue's LvProp field says of a table's columns, in the one respect that a table made here
// needs: the named text columns take zero-length texts.
//   "MR2\0", then blocks: u32 length with itself, u16 kind, body
//   kind 80h: the property names, each u16 byte length + UTF-16LE
//   kind 1:   one column: u32 length of the name part with itself, u16 byte length, name; then its values:
//   u16
//             length (8 + data), u8 DDL flag, u8 type, u16 name index, u16 data length, data
Bytes AllowZeroLengthProperties(std::span<const std::string> columns);

}  // namespace tarvex::jet
