#include "base/text.h"

#include <array>

namespace tarvex {

namespace {

// Small letters from `first` to `last`, in steps of `step`; the capital lies `down` code points below.
struct SmallLetters {
  char32_t first, last;
  char32_t step;
  char32_t down;
};

// Where capitals and small letters alternate, the capital is the code point before.
constexpr std::array kSmallLetters = {
    SmallLetters{U'a', U'z', 1, 32},
    SmallLetters{0x00E0, 0x00F6, 1, 32},  // Latin-1
    SmallLetters{0x00F8, 0x00FE, 1, 32},
    SmallLetters{0x0101, 0x012F, 2, 1},  // Latin Extended-A; the dotless i (0131) has no pair here
    SmallLetters{0x0133, 0x0137, 2, 1},
    SmallLetters{0x013A, 0x0148, 2, 1},
    SmallLetters{0x014B, 0x0177, 2, 1},
    SmallLetters{0x017A, 0x017E, 2, 1},
    SmallLetters{0x01CE, 0x01DC, 2, 1},   // Pinyin vowels
    SmallLetters{0x0219, 0x021B, 2, 1},   // Romanian s and t with comma
    SmallLetters{0x03AD, 0x03AF, 1, 37},  // Greek
    SmallLetters{0x03B1, 0x03C1, 1, 32},
    SmallLetters{0x03C2, 0x03C2, 1, 31},  // the sigma at the end of a word
    SmallLetters{0x03C3, 0x03CB, 1, 32},
    SmallLetters{0x0430, 0x044F, 1, 32},  // Cyrillic
    SmallLetters{0x0450, 0x045F, 1, 80},
    SmallLetters{0x0491, 0x0491, 1, 1},
    SmallLetters{0x1EA1, 0x1EF9, 2, 1},  // Vietnamese
};

// Small letters whose capital is out of line, and their capitals.
struct LetterPair {
  char32_t small, capital;
};
constexpr std::array kOddPairs = {
    LetterPair{0x00FF, 0x0178}, LetterPair{0x0131, U'I'},   LetterPair{0x01A1, 0x01A0},
    LetterPair{0x01B0, 0x01AF}, LetterPair{0x03AC, 0x0386}, LetterPair{0x03CC, 0x038C},
    LetterPair{0x03CD, 0x038E}, LetterPair{0x03CE, 0x038F},
};

char32_t UpperLetter(char32_t code) {
  for (const SmallLetters& letters : kSmallLetters) {
    if (code < letters.first || code > letters.last) continue;
    return (code - letters.first) % letters.step == 0 ? code - letters.down : code;
  }
  for (const LetterPair& pair : kOddPairs) {
    if (code == pair.small) return pair.capital;
  }
  return code;
}

// `code` is below 10000h, as all letters here are.
void AppendLetter(std::string& out, char32_t code) {
  const auto put = [&](char32_t byte) { out.push_back(static_cast<char>(byte)); };
  if (code < 0x80) return put(code);
  if (code < 0x800) {
    put(0xC0 | code >> 6);
  } else {
    put(0xE0 | code >> 12);
    put(0x80 | (code >> 6 & 0x3F));
  }
  put(0x80 | (code & 0x3F));
}

}  // namespace

std::optional<Character> FirstCharacter(std::string_view text) {
  const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(0);
  if (lead < 0x80) return Character{lead, 1};
  const size_t bytes = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
  if (bytes == 0 || text.size() < bytes) return std::nullopt;
  char32_t code = lead & (0x7Fu >> bytes);
  for (size_t i = 1; i < bytes; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return std::nullopt;
    code = code << 6 | (byte(i) & 0x3Fu);
  }
  const char32_t least = bytes == 2 ? 0x80 : bytes == 3 ? 0x800 : 0x10000;
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  if (code < least || code > 0x10FFFF || surrogate) return std::nullopt;
  return Character{code, bytes};
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::optional<Character> next = FirstCharacter(text);
    if (!next) return false;
    text.remove_prefix(next->bytes);
  }
  return true;
}

bool IsBlank(char32_t code) {
  return code == ' ' || code == '\t' || code == '\r' || code == '\n' || code == 0xA0;
}

std::string_view Trim(std::string_view text) {
  constexpr std::string_view kNoBreakBlank = "\xC2\xA0";
  const auto is_blank = [](char c) { return IsBlank(static_cast<unsigned char>(c)) && c != '\xA0'; };
  while (!text.empty()) {
    if (is_blank(text.front())) {
      text.remove_prefix(1);
    } else if (is_blank(text.back())) {
      text.remove_suffix(1);
    } else if (text.starts_with(kNoBreakBlank)) {
      text.remove_prefix(kNoBreakBlank.size());
    } else if (text.ends_with(kNoBreakBlank)) {
      text.remove_suffix(kNoBreakBlank.size());
    } else {
      break;
    }
  }
  return text;
}

std::string WithoutBlanks(std::string_view text) {
  std::string kept;
  while (!text.empty()) {
    const std::optional<Character> next = FirstCharacter(text);
    const size_t bytes = next ? next->bytes : 1;
    if (!next || !IsBlank(next->code)) kept.append(text.substr(0, bytes));
    text.remove_prefix(bytes);
  }
  return kept;
}

std::string Upper(std::string_view text) {
  std::string upper;
  upper.reserve(text.size());
  while (!text.empty()) {
    const std::optional<Character> next = FirstCharacter(text);
    const size_t bytes = next ? next->bytes : 1;
    const char32_t capital = next ? UpperLetter(next->code) : 0;
    if (next && capital != next->code) {
      AppendLetter(upper, capital);
    } else {
      upper.append(text.substr(0, bytes));
    }
    text.remove_prefix(bytes);
  }
  return upper;
}

bool SameText(std::string_view a, std::string_view b) {
  return Upper(Trim(a)) == Upper(Trim(b));
}

int CompareText(std::string_view a, std::string_view b) {
  return Upper(a).compare(Upper(b));
}

}  // namespace tarvex
