#include "demo/names.h"

#include <array>
#include <cassert>
#include <iterator>
#include <span>
#include <string_view>

#include "base/text.h"
#include "seeding/random_draw.h"

namespace tarvex::demo {
namespace {

using Words = std::span<const std::string_view>;

constexpr std::string_view kEnglishMen[] = {"Aaron",   "Caleb",  "Connor", "Dylan",   "Ethan",   "Gavin",
                                            "Isaac",   "Jack",   "Jordan", "Julian",  "Logan",   "Luke",
                                            "Mason",   "Miles",  "Nathan", "Owen",    "Reid",    "Ryan",
                                            "Spencer", "Trevor", "Wesley", "Zachary", "D'Andre", "Malik"};
constexpr std::string_view kEnglishWomen[] = {"Abigail", "Amelia", "Brooke", "Chloe", "Claire", "Emma",
                                              "Faith",   "Grace",  "Hannah", "Imani", "Jada",   "Kayla",
                                              "Leah",    "Maya",   "Megan",  "Naomi", "Olivia", "Paige",
                                              "Rachel",  "Sadie",  "Tessa",  "Tiana", "Zoe",    "Mary-Kate"};
constexpr std::string_view kEnglishLast[] = {
    "Abbott",   "Barnes",  "Bledsoe",  "Caldwell", "Chambers", "Crane",    "Dawson",  "Ellison",
    "Fletcher", "Garner",  "Hargrove", "Hobbs",    "Jenkins",  "Kendrick", "Langley", "Mayfield",
    "Norwood",  "Osborne", "Pickett",  "Ransom",   "Sawyer",   "Thorpe",   "Upshaw",  "Vance",
    "Whitaker", "Yates",   "Atwood",   "Booker",   "Colvin",   "Draper"};
constexpr std::string_view kIrishMen[] = {"Aidan", "Brendan", "Cormac", "Declan",
                                          "Eoin",  "Fionn",   "Rory",   "Seán"};
constexpr std::string_view kIrishWomen[] = {"Aoife", "Bríd",  "Ciara", "Deirdre",
                                            "Fiona", "Maeve", "Niamh", "Róisín"};
constexpr std::string_view kIrishLast[] = {"O'Brannigan", "O'Dea",      "O'Leary",   "McAuley",
                                           "MacRory",     "Fitzgerald", "Gallagher", "Kinsella",
                                           "Moynihan",    "O'Rourke",   "Tierney",   "Hegarty"};
constexpr std::string_view kSpanishMen[] = {"Alejandro", "Andrés",  "Diego", "Emilio", "Iván",
                                            "Javier",    "Joaquín", "Mateo", "Raúl",   "Tomás"};
constexpr std::string_view kSpanishWomen[] = {"Adriana", "Belén",   "Camila", "Elena", "Inés",
                                              "Lucía",   "Marisol", "Noemí",  "Sofía", "Ximena"};
constexpr std::string_view kSpanishLast[] = {
    "Álvarez", "Benítez", "Castañeda", "Delgado", "Escobedo", "Fuentes",  "Galván",   "Ibáñez",  "Luján",
    "Montoya", "Núñez",   "Ocampo",    "Peña",    "Quintero", "Rentería", "Saldívar", "Treviño", "Zúñiga"};
constexpr std::string_view kFrenchMen[] = {"André",    "Benoît", "Étienne", "François",
                                           "Jean-Luc", "Léo",    "Mathieu", "Rémi"};
constexpr std::string_view kFrenchWomen[] = {"Amélie", "Béatrice",  "Chloé",  "Élodie",
                                             "Inès",   "Marie-Ève", "Noémie", "Zoé"};
constexpr std::string_view kFrenchLast[] = {"Beauchêne", "Charbonneau", "D'Aubigny",  "Deslauriers",
                                            "Gagné",     "Lefèvre",     "Marchand",   "Pelletier",
                                            "Rivière",   "Saint-Clair", "Thibodeaux", "L'Écuyer"};
constexpr std::string_view kGermanMen[] = {"Anders", "Björn", "Felix", "Jonas",
                                           "Jürgen", "Lars",  "Nils",  "Sören"};
constexpr std::string_view kGermanWomen[] = {"Annika", "Astrid", "Frieda", "Greta",
                                             "Ingrid", "Käthe",  "Liv",    "Sigrid"};
constexpr std::string_view kGermanLast[] = {"Bergström", "Dürr", "Eklund",    "Förster", "Grünwald", "Hößler",
                                            "Jørgensen", "Kühn", "Lindqvist", "Møller",  "Schäfer",  "Vogel"};
constexpr std::string_view kSlavicMen[] = {"Bartosz", "Damir", "Jakub", "Lukáš",
                                           "Marek",   "Miloš", "Piotr", "Zoran"};
constexpr std::string_view kSlavicWomen[] = {"Agnieszka", "Dana", "Ewa",   "Jelena",
                                             "Kateřina",  "Mila", "Nadia", "Zuzana"};
constexpr std::string_view kSlavicLast[] = {"Bielecki",  "Dvořák", "Gorski",  "Horvat",
                                            "Jankowiak", "Kovač",  "Łukasik", "Novotny",
                                            "Petrić",    "Sokol",  "Wójcik",  "Zelenka"};
constexpr std::string_view kAfricanMen[] = {"Abebe",   "Chidi",     "Emeka",  "Kwame",
                                            "Kiprono", "Oluwaseun", "Samuel", "Tesfaye"};
constexpr std::string_view kAfricanWomen[] = {"Abena", "Almaz",  "Chioma", "Halima",
                                              "Jebet", "Makena", "Ngozi",  "Selam"};
constexpr std::string_view kAfricanLast[] = {"Abara", "Adeyemi", "Bekele", "Chebet",  "Diallo", "Eze",
                                             "Haile", "Keita",   "Mensah", "N'Diaye", "Okafor", "Rotich"};
constexpr std::string_view kAsianMen[] = {"Arjun", "Daichi", "Haruto", "Jin-ho",
                                          "Kenji", "Minh",   "Rohan",  "Wei"};
constexpr std::string_view kAsianWomen[] = {"Anjali", "Hana",   "Linh",    "Mei",
                                            "Priya",  "Sakura", "Soo-jin", "Yuki"};
constexpr std::string_view kAsianLast[] = {"Chen",   "Fujimori", "Gupta", "Hoang", "Iyer", "Kim-Park",
                                           "Nguyen", "Okada",    "Patel", "Sato",  "Tran", "Zhang"};

struct Culture {
  int share;  // of a hundred
  Words men, women, last;
};
constexpr Culture kCultures[] = {
    {40, kEnglishMen, kEnglishWomen, kEnglishLast}, {8, kIrishMen, kIrishWomen, kIrishLast},
    {17, kSpanishMen, kSpanishWomen, kSpanishLast}, {5, kFrenchMen, kFrenchWomen, kFrenchLast},
    {8, kGermanMen, kGermanWomen, kGermanLast},     {6, kSlavicMen, kSlavicWomen, kSlavicLast},
    {8, kAfricanMen, kAfricanWomen, kAfricanLast},  {8, kAsianMen, kAsianWomen, kAsianLast}};

const Culture& PickCulture(Chance& chance) {
  std::array<int, std::size(kCultures)> shares;
  for (size_t i = 0; i < shares.size(); ++i) shares[i] = kCultures[i].share;
  return kCultures[chance.Weighted(shares)];
}

size_t Letters(std::string_view text) {
  size_t letters = 0;
  while (const auto character = text.empty() ? std::nullopt : FirstCharacter(text)) {
    text.remove_prefix(character->bytes);
    ++letters;
  }
  return letters;
}

// First and last names of two families do not always agree, and some bear the names of both.
constexpr int kMixedNames = 120, kDoubleNames = 35;  // in a thousand

constexpr std::string_view kTownStarts[] = {"Amber",  "Bexl", "Corve", "Dun",  "Elder", "Fenn", "Gars",
                                            "Haskel", "Iver", "Jarl",  "Kest", "Lorn",  "Marl", "Nevern",
                                            "Orms",   "Pelm", "Quill", "Rusk", "Sarn",  "Tam",  "Ulver",
                                            "Velm",   "Wyn",  "Yarn",  "Zell"};
constexpr std::string_view kTownEnds[] = {"bury", "combe", "dale", "eaves", "ford",
                                          "gate", "holt",  "mere", "stead", "wick"};
static_assert(std::size(kTownStarts) * std::size(kTownEnds) == kMostTowns);

}  // namespace

PersonName InventPerson(char sex, Chance& chance) {
  const Culture& culture = PickCulture(chance);
  const Culture& family = chance.PerMille(kMixedNames) ? PickCulture(chance) : culture;
  PersonName name{std::string(chance.Pick(sex == 'F' ? culture.women : culture.men)),
                  std::string(chance.Pick(family.last))};
  if (chance.PerMille(kDoubleNames)) {
    const std::string both = name.last + "-" + std::string(chance.Pick(PickCulture(chance).last));
    if (Letters(both) <= kLongestName) name.last = both;
  }
  return name;
}

std::vector<Town> InventTowns(int count, Chance& chance) {
  assert(count <= kMostTowns);
  std::vector<Town> towns;
  for (const int drawn : seeding::DrawOrder(kMostTowns, chance.draw())) {
    if (static_cast<int>(towns.size()) == count) break;
    const std::string_view start = kTownStarts[static_cast<size_t>(drawn) / std::size(kTownEnds)];
    const std::string_view end = kTownEnds[static_cast<size_t>(drawn) % std::size(kTownEnds)];
    // All beginnings differ in their first two letters, and all endings too.
    const std::string abbr = std::string(start.substr(0, 2)) + std::string(end.substr(0, 2));
    towns.push_back({std::string(start) + std::string(end), Upper(abbr)});
  }
  return towns;
}

}  // namespace tarvex::demo
