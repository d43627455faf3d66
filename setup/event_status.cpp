#include "setup/event_status.h"

#include <string_view>

#include "setup/rounds.h"

namespace tarvex::setup {
namespace {

// A status taken apart: the round it speaks of, and whether that round is done.
struct Progress {
  int number;
  bool done;
};

std::optional<Progress> ProgressOf(char event_stat, int rounds) {
  if (event_stat == kScored) return Progress{rounds, true};
  const bool done = event_stat >= 'A' && event_stat <= 'D';
  if (!done && (event_stat < '1' || event_stat > '4')) return std::nullopt;
  const int number = done ? event_stat - 'A' + 1 : event_stat - '0';
  if (number > rounds) return std::nullopt;
  return Progress{number, done};
}

}  // namespace

std::string LongStatus(char event_stat, int rounds) {
  if (event_stat == kUnseeded) return "Unseeded";
  if (event_stat == kScored) return "Scored";
  const std::optional<Progress> progress = ProgressOf(event_stat, rounds);
  if (!progress) return "Unknown";
  const std::optional<Round> round = RoundByNumber(progress->number, rounds);
  if (!round) return "Unknown";
  return std::string(ShortRoundName(*round)) + (progress->done ? " Done" : " Seeded");
}

std::string ShortStatus(char event_stat, int rounds) {
  if (event_stat == kUnseeded) return "Unseeded";
  if (event_stat == kScored) return "Scored";
  const std::optional<Progress> progress = ProgressOf(event_stat, rounds);
  if (!progress) return "Unknown";
  const std::optional<Round> round = RoundByNumber(progress->number, rounds);
  if (!round) return "Unknown";
  return std::string(1, Letter(*round)) + (progress->done ? " - Done" : " - Seeded");
}

std::string SeedingStatus(char event_stat, int rounds) {
  if (event_stat == kScored) return "Scored";
  const std::optional<Progress> progress = ProgressOf(event_stat, rounds);
  if (!progress) return "Un-Seeded";
  if (!progress->done) return "Seeded";
  return progress->number < rounds ? "Un-Seeded" : "Done";
}

bool IsRoundSeeded(char event_stat, int number, int rounds) {
  const std::optional<Progress> progress = ProgressOf(event_stat, rounds);
  return progress && progress->number >= number;
}

bool IsRoundDone(char event_stat, int number, int rounds) {
  const std::optional<Progress> progress = ProgressOf(event_stat, rounds);
  return progress && (progress->number > number || (progress->number == number && progress->done));
}

std::optional<int> RoundToSeed(char event_stat, int rounds) {
  const std::optional<Progress> progress = ProgressOf(event_stat, rounds);
  if (!progress) return 1;
  if (!progress->done) return progress->number;
  if (progress->number < rounds) return progress->number + 1;
  return std::nullopt;
}

int CurrentRound(char event_stat, int rounds) {
  const std::optional<Progress> progress = ProgressOf(event_stat, rounds);
  return progress ? progress->number : 1;
}

char WithoutResults(char event_stat, int rounds) {
  const std::optional<Progress> progress = ProgressOf(event_stat, rounds);
  return progress ? SeededStatus(progress->number) : kUnseeded;
}

char WithoutSeeding(char event_stat, int rounds) {
  const std::optional<Progress> progress = ProgressOf(event_stat, rounds);
  return progress && progress->number > 1 ? DoneStatus(progress->number - 1) : kUnseeded;
}

}  // namespace tarvex::setup
