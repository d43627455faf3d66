#include "seeding/deal.h"

#include <numeric>
#include <span>

namespace tarvex::seeding {
namespace {

constexpr char kPrelimsAsTimedFinals = '3';
constexpr char kTimedFinalsAsPrelims = '4';

// Rank i goes to column i mod H, every second row running backwards.
void DealSerpentine(std::span<const Seed> seeds, std::span<Heat> heats) {
  const size_t count = heats.size();
  for (size_t i = 0; i < seeds.size(); ++i) {
    const size_t column = i % count;
    const bool backwards = (i / count) % 2 == 1;
    heats[backwards ? count - 1 - column : column].push_back(seeds[i]);
  }
}

void DealBlocks(std::span<const Seed> seeds, std::span<const int> sizes, std::span<Heat> heats) {
  size_t next = 0;
  for (size_t h = 0; h < heats.size(); ++h) {
    const auto block = seeds.subspan(next, static_cast<size_t>(sizes[h]));
    heats[h].assign(block.begin(), block.end());
    next += block.size();
  }
}

}  // namespace

Dealing ChooseDealing(const DealingRules& rules) {
  if (rules.rounds <= 1) {
    const bool turned = rules.serp_type == kTimedFinalsAsPrelims || rules.timed_final_serpentine;
    return turned ? Dealing::Serpentine : Dealing::Blocks;
  }
  if (rules.round_number == rules.rounds) return Dealing::Blocks;
  const bool turned = rules.round_number == 1 && rules.serp_type == kPrelimsAsTimedFinals;
  return turned ? Dealing::Blocks : Dealing::Serpentine;
}

int HeatCount(int entries, int per_heat) {
  if (entries <= 0) return 0;
  return per_heat <= 0 ? 1 : (entries + per_heat - 1) / per_heat;
}

std::vector<int> BlockSizes(int entries, int heats) {
  std::vector<int> sizes(static_cast<size_t>(heats), entries / heats);
  for (int h = 0; h < entries % heats; ++h) ++sizes[static_cast<size_t>(h)];
  return sizes;
}

std::vector<Heat> Deal(const std::vector<Seed>& seeds, int heats, Dealing dealing, int circle_heats) {
  if (seeds.empty() || heats <= 0) return {};
  std::vector<Heat> dealt(static_cast<size_t>(heats));
  const std::vector<int> sizes = BlockSizes(static_cast<int>(seeds.size()), heats);
  size_t to_and_fro = 0;  // heats, from the strongest, that are dealt to and fro
  if (dealing == Dealing::Serpentine) {
    const bool all = circle_heats <= 0 || circle_heats >= heats;
    to_and_fro = static_cast<size_t>(all ? heats : circle_heats);
  }
  const auto split = std::accumulate(sizes.begin(), sizes.begin() + static_cast<long>(to_and_fro), 0);
  const std::span<const Seed> ranked(seeds);
  const std::span<Heat> all_heats(dealt);
  DealSerpentine(ranked.first(static_cast<size_t>(split)), all_heats.first(to_and_fro));
  DealBlocks(ranked.subspan(static_cast<size_t>(split)), std::span<const int>(sizes).subspan(to_and_fro),
             all_heats.subspan(to_and_fro));
  return dealt;
}

}  // namespace tarvex::seeding
