#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Texts are UTF-8 throughout.
namespace tarvex {

// The first character of `text`, which is not empty. Empty when its bytes are not UTF-8 (overlong forms,
// surrogates and code points above 10FFFF included).
struct Character {
  char32_t code = 0;
  size_t bytes = 0;
};
std::optional<Character> FirstCharacter(std::string_view text);

bool IsUtf8(std::string_view text);

// A blank, a no-break blank, a tab or a line end.
bool IsBlank(char32_t code);

// Without the blanks at both ends. Borrows from `text`.
std::string_view Trim(std::string_view text);

// Without any blank.
std::string WithoutBlanks(std::string_view text);

// In capitals: the Latin letters of the European and Vietnamese alphabets, Greek and Cyrillic, one letter for
// one letter ("ß" stays). Bytes that are not UTF-8 stay as they are.
std::string Upper(std::string_view text);

// Equal when trimmed and regardless of case: the same name as far as a person is concerned.
bool SameText(std::string_view a, std::string_view b);

// Below, at or above 0 as `a` sorts before, with or after `b`, regardless of case, by code points. Not
// trimmed.
int CompareText(std::string_view a, std::string_view b);

}  // namespace tarvex
