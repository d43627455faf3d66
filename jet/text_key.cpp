#include "jet/text_key.h"

namespace tarvex::jet {
namespace {

constexpr size_t kLongestText = 255;

// What one code unit adds to a key. Plain letters have a weight, accented ones a mark too, combining marks a
// mark alone; light characters have only a tail code, kana a weight and a flag in `tail`.
struct TextKey {
  uint8_t weight[4];
  uint8_t mark[2];
  uint8_t sizes;  // bytes of the weight, and of the mark << 4
  uint8_t tail;

  int weight_size() const { return sizes & 15; }
  int mark_size() const { return sizes >> 4; }
};

constexpr TextKey kTextKeys[65536] = {
#include "text_keys_table.inc"
};

using Key = std::vector<uint8_t>;

// Kana flags, three to a byte, trailing 3s dropped.
void AppendFlags(std::vector<uint8_t>& flags, bool has_tail, Key& key) {
  while (!flags.empty() && flags.back() == 3) flags.pop_back();
  for (size_t i = 0; i < flags.size(); i += 3) {
    const auto flag = [&](size_t k) { return k < flags.size() ? flags[k] : uint8_t{0}; };
    key.push_back(static_cast<uint8_t>(0x80 | flag(i) << 4 | flag(i + 1) << 2 | flag(i + 2)));
  }
  key.insert(key.end(), {0xFF, 0x02, 0x80, 0xFF, 0x80});
  if (has_tail) key.push_back(0xFF);
}

}  // namespace

void AppendTextKey(std::u16string_view text, Key& key) {
  text = text.substr(0, kLongestText);
  while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
  Key marks, tail, flags;
  size_t characters = 0;
  size_t marked = 0;  // characters that `marks` covers
  size_t lead = 0;
  bool any_mark = false;
  for (const char16_t unit : text) {
    const TextKey& one = kTextKeys[unit];
    const size_t at = characters;
    if (one.weight_size() > 0) {
      key.insert(key.end(), one.weight, one.weight + one.weight_size());
      ++characters;
    }
    if (one.mark_size() > 0) {
      if (marked < at) {
        marks.insert(marks.end(), at - marked, 0x02);
        marked = at;
      }
      any_mark = true;
      if (one.weight_size() > 0) {
        marks.insert(marks.end(), one.mark, one.mark + one.mark_size());
        ++marked;
      } else if (!marks.empty()) {
        marks.back() = static_cast<uint8_t>(marks.back() + one.mark[0]);
      } else {
        marks.push_back(one.mark[0]);
        lead = 1;
      }
    }
    if (one.tail == 0) continue;
    if (one.weight_size() > 0) {
      flags.push_back(one.tail);
    } else {
      const size_t place = any_mark ? marks.size() + (at - marked) - lead : at;
      const size_t code = 0x8000 | (7 + 4 * place);
      tail.insert(tail.end(), {static_cast<uint8_t>(code >> 8), static_cast<uint8_t>(code), 0x06, one.tail});
    }
  }
  key.push_back(0x01);
  while (!marks.empty() && marks.back() <= 0x02) marks.pop_back();
  key.insert(key.end(), marks.begin(), marks.end());
  if (!flags.empty() || !tail.empty()) {
    key.insert(key.end(), {0x01, 0x01});
    if (!flags.empty()) AppendFlags(flags, !tail.empty(), key);
    if (!tail.empty()) {
      key.push_back(0x01);
      key.insert(key.end(), tail.begin(), tail.end());
    }
  }
  key.push_back(0x00);
}

}  // namespace tarvex::jet
