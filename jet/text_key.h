#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tarvex::jet {

// The sort key of a text under the collation "General" (language 0409h, version 0), as it stands in an index
// after the start byte: weights of the base letters, 01, accents, then the places of hyphens, apostrophes and
// other light characters, 00. Two texts with the same key are the same to the database: case and trailing
// spaces never count. Only the first 255 code units do.
void AppendTextKey(std::u16string_view text, std::vector<uint8_t>& key);

}  // namespace tarvex::jet
