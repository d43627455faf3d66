#pragma once

#include <string>
#include <vector>

#include "demo/chance.h"

// Names of people and places that do not exist.
namespace tarvex::demo {

// Letters that a first or last name may have in the database.
inline constexpr size_t kLongestName = 20;

struct PersonName {
  std::string first;
  std::string last;

  auto operator<=>(const PersonName&) const = default;
};

// `sex` 'M' or 'F'.
PersonName InventPerson(char sex, Chance& chance);

// A town with the letters that abbreviate it.
struct Town {
  std::string name;  // at most 12 letters
  std::string abbr;  // 4 capitals
};

// So many different towns with different abbreviations; at most kMostTowns.
inline constexpr int kMostTowns = 250;
std::vector<Town> InventTowns(int count, Chance& chance);

}  // namespace tarvex::demo
