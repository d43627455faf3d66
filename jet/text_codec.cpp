#include "jet/text_codec.h"

#include <cstring>

namespace tarvex::jet {
namespace {

bool IsHigh(char32_t c) {
  return c >= 0xD800 && c < 0xDC00;
}
bool IsLow(char32_t c) {
  return c >= 0xDC00 && c < 0xE000;
}

void AppendUtf8(char32_t c, std::string& out) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | c >> 6);
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | c >> 12);
    out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | c >> 18);
    out += static_cast<char>(0x80 | (c >> 12 & 0x3F));
    out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

struct Decoded {
  char32_t c;
  size_t size;  // 0 = not UTF-8
};

Decoded DecodeOne(std::string_view text) {
  const auto byte = [&](size_t i) { return static_cast<uint8_t>(text[i]); };
  const uint8_t lead = byte(0);
  if (lead < 0x80) return {lead, 1};
  const size_t size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < size) return {0, 0};
  char32_t c = lead & (0xFF >> (size + 1));
  for (size_t i = 1; i < size; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return {0, 0};
    c = c << 6 | (byte(i) & 0x3F);
  }
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  if (c < kLeast[size] || c > 0x10FFFF) return {0, 0};
  return {c, size};
}

}  // namespace

std::u16string ToUtf16(std::string_view utf8) {
  std::u16string out;
  out.reserve(utf8.size());
  while (!utf8.empty()) {
    Decoded one = DecodeOne(utf8);
    if (one.size == 0) one = {0xFFFD, 1};
    if (one.c >= 0x10000) {
      out += static_cast<char16_t>(0xD800 + ((one.c - 0x10000) >> 10));
      out += static_cast<char16_t>(0xDC00 + ((one.c - 0x10000) & 0x3FF));
    } else {
      out += static_cast<char16_t>(one.c);
    }
    utf8.remove_prefix(one.size);
  }
  return out;
}

std::string ToUtf8(std::u16string_view utf16) {
  std::string out;
  out.reserve(utf16.size());
  for (size_t i = 0; i < utf16.size(); ++i) {
    char32_t c = utf16[i];
    if (IsHigh(c) && i + 1 < utf16.size() && IsLow(utf16[i + 1])) {
      c = 0x10000 + ((c - 0xD800) << 10) + (utf16[++i] - 0xDC00);
    }
    AppendUtf8(c, out);
  }
  return out;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const Decoded one = DecodeOne(text);
    if (one.size == 0) return false;
    text.remove_prefix(one.size);
  }
  return true;
}

std::u16string FromLittleEndian(std::span<const uint8_t> bytes) {
  std::u16string out(bytes.size() / 2, u'\0');
  if (!out.empty()) std::memcpy(out.data(), bytes.data(), out.size() * 2);
  return out;
}

Expected<std::u16string> DecodeText(std::span<const uint8_t> bytes) {
  if (bytes.size() < 2 || bytes[0] != 0xFF || bytes[1] != 0xFE) {
    if (bytes.size() % 2 != 0) return Status{Fault::Corrupt, "a text has an odd number of bytes"};
    return FromLittleEndian(bytes);
  }
  std::u16string out;
  bool compressed = true;
  size_t at = 2;
  while (at < bytes.size()) {
    if (bytes[at] == 0) {
      compressed = !compressed;
      ++at;
    } else if (compressed) {
      out += bytes[at++];
    } else {
      if (at + 1 >= bytes.size()) return Status{Fault::Corrupt, "a compressed text is cut off"};
      out += static_cast<char16_t>(bytes[at] | bytes[at + 1] << 8);
      at += 2;
    }
  }
  return out;
}

Expected<std::string> DecodeTextUtf8(std::span<const uint8_t> bytes) {
  TRY_ASSIGN(const std::u16string text, DecodeText(bytes));
  return ToUtf8(text);
}

void AppendText(std::string_view utf8, std::vector<uint8_t>& out) {
  const std::u16string text = ToUtf16(utf8);
  const size_t at = out.size();
  out.resize(at + 2 * text.size());
  if (!text.empty()) std::memcpy(out.data() + at, text.data(), 2 * text.size());
}

}  // namespace tarvex::jet
