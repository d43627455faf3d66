#pragma once

#include <string_view>

// What a kind letter of an event (event_stroke) means for marks. Capitals and small letters are alike.
namespace tarvex::marks {

constexpr char UpperKind(char kind) {
  return kind >= 'a' && kind <= 'z' ? static_cast<char>(kind - 32) : kind;
}

constexpr bool IsOneOf(char kind, std::string_view kinds) {
  return kinds.find(UpperKind(kind)) != std::string_view::npos;
}

// Dash, run, mile run, race walk, hurdles, steeplechase, relay and medleys.
constexpr bool IsRunningKind(char kind) {
  return IsOneOf(kind, "ABCDEFGHWXY");
}
// The kinds that international rules adjust when they were timed by hand.
constexpr bool IsSprintKind(char kind) {
  return IsOneOf(kind, "ABEFG");
}
// High jump and pole vault.
constexpr bool IsVerticalJump(char kind) {
  return IsOneOf(kind, "KL");
}
// Long jump and triple jump.
constexpr bool IsHorizontalJump(char kind) {
  return IsOneOf(kind, "MN");
}
// Discus, hammer, javelin, shot put, weight and super weight.
constexpr bool IsThrow(char kind) {
  return IsOneOf(kind, "OPQRSU");
}
// Discus, hammer and javelin.
constexpr bool IsLongThrow(char kind) {
  return IsOneOf(kind, "OPQ");
}
// Decathlon to octathlon.
constexpr bool IsCombinedKind(char kind) {
  return kind >= '1' && kind <= '9';
}

}  // namespace tarvex::marks
