#pragma once

#include <optional>
#include <string>

namespace tarvex::setup {

inline constexpr char kUnseeded = 'U';
inline constexpr char kScored = 'S';

// The letter that event_stat takes when round `number` (1 to 4) has been seeded: '1' to '4'; and when it is
// done: 'A' to 'D'.
constexpr char SeededStatus(int number) {
  return static_cast<char>('0' + number);
}
constexpr char DoneStatus(int number) {
  return static_cast<char>('A' + number - 1);
}

// "Prelims Seeded", "Finals Done", "Scored" ...; "Unknown" for a code that an event of `rounds` rounds cannot
// have.
std::string LongStatus(char event_stat, int rounds);

// "P - Seeded", "F - Done", "Unseeded" ...
std::string ShortStatus(char event_stat, int rounds);

// The state of the round that would be seeded next: "Un-Seeded", "Seeded", "Done" or "Scored".
std::string SeedingStatus(char event_stat, int rounds);

// Whether round `number` has been seeded: it stays so through everything that comes later.
bool IsRoundSeeded(char event_stat, int number, int rounds);

// Whether round `number` has been run to its end.
bool IsRoundDone(char event_stat, int number, int rounds);

// The number of the round that seeding works on: the next one after a done round, a seeded one again. Empty
// when the last round is done or scored: its results must be purged first.
std::optional<int> RoundToSeed(char event_stat, int rounds);

// The number of the round that is being run or was run last; 1 while nothing is seeded.
int CurrentRound(char event_stat, int rounds);

// The status after the results of the current round were taken away (it steps back to seeded), or its seeding
// (back to the round before, done, or unseeded).
char WithoutResults(char event_stat, int rounds);
char WithoutSeeding(char event_stat, int rounds);

}  // namespace tarvex::setup
