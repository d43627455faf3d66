#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/status.h"

namespace tarvex::jet {

// UTF-16 text as code units. An unpaired surrogate is kept: in UTF-8 it stands as three bytes.
std::u16string ToUtf16(std::string_view utf8);
std::string ToUtf8(std::u16string_view utf16);

// Whether the bytes are UTF-8 that ToUtf16 can take without loss.
bool IsUtf8(std::string_view text);

// Text as a row holds it: UTF-16LE, or when it begins with FF FE compressed: one byte a character, with 00
// switching to UTF-16LE and back.
Expected<std::u16string> DecodeText(std::span<const uint8_t> bytes);
Expected<std::string> DecodeTextUtf8(std::span<const uint8_t> bytes);

// Always plain UTF-16LE: the form that every reader takes for every column.
void AppendText(std::string_view utf8, std::vector<uint8_t>& out);

// UTF-16LE code units of `bytes`, whose size is even.
std::u16string FromLittleEndian(std::span<const uint8_t> bytes);

}  // namespace tarvex::jet
