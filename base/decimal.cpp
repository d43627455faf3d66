#include "base/decimal.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <limits>

namespace tarvex {

namespace {

constexpr int kDigits = 28;
// Enough for the smallest single, 1e-45, and the nine digits a single can show.
constexpr int kMaxDecimals = 60;
// The largest power of ten that a coefficient in the middle of a calculation may reach.
constexpr int kWorkingDigits = 37;
// Far longer than any number that fits.
constexpr size_t kLongestText = 128;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace

std::string ShortText(float value) {
  if (!std::isfinite(value) || value == 0) return "0";
  std::array<char, kLongestText> buffer;
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
  return {buffer.data(), end.ptr};
}

// Up to 10^38, the greatest that a coefficient can hold.
Decimal::Coefficient Decimal::PowerOfTen(int exponent) {
  static constexpr auto kPowers = [] {
    std::array<Coefficient, 39> powers{1};
    for (size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
    return powers;
  }();
  return kPowers[static_cast<size_t>(exponent)];
}

// Takes the last digits off, rounding half away from zero.
Decimal::Coefficient Decimal::DropDigits(Coefficient coefficient, int digits) {
  if (digits > kWorkingDigits) return 0;
  const Coefficient unit = PowerOfTen(digits);
  const Coefficient kept = coefficient / unit;
  const Coefficient rest = coefficient < 0 ? -(coefficient % unit) : coefficient % unit;
  if (rest < unit - rest) return kept;
  return coefficient < 0 ? kept - 1 : kept + 1;
}

Decimal::Decimal(Coefficient coefficient, int decimals) : coefficient_(coefficient), decimals_(decimals) {
  const Coefficient limit = PowerOfTen(kDigits);
  const auto too_long = [&] { return coefficient_ >= limit || coefficient_ <= -limit; };
  int dropped = 0;
  for (Coefficient left = coefficient_; left >= limit || left <= -limit; left /= 10) ++dropped;
  dropped = std::max(std::min(dropped, decimals_), decimals_ - kMaxDecimals);
  if (dropped > 0) {
    coefficient_ = DropDigits(coefficient_, dropped);
    decimals_ -= dropped;
  }
  for (; decimals_ < 0 && coefficient_ != 0 && !too_long(); ++decimals_) coefficient_ *= 10;
  // Rounding may have carried into one digit more: 10^28 is then a one and zeros, which go below.
  if (too_long() && decimals_ <= 0) coefficient_ = coefficient_ < 0 ? 1 - limit : limit - 1;
  if (coefficient_ == 0 || decimals_ < 0) decimals_ = 0;
  for (; decimals_ > 0 && coefficient_ % 10 == 0; --decimals_) coefficient_ /= 10;
}

Decimal Decimal::FromSingle(float value) {
  const std::string text = ShortText(value);
  if (const std::optional<Decimal> number = Parse(text)) return *number;
  const Coefficient limit = PowerOfTen(kDigits);
  return Decimal(value < 0 ? 1 - limit : limit - 1, 0);
}

std::optional<Decimal> Decimal::Parse(std::string_view text) {
  if (text.size() > kLongestText) return std::nullopt;
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  const size_t point = text.find('.');
  if (text.find_first_of("0123456789") == std::string_view::npos) return std::nullopt;
  if (point != std::string_view::npos) {
    while (text.ends_with('0')) text.remove_suffix(1);
  }

  Coefficient coefficient = 0;
  int decimals = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    if (i == point) continue;
    if (!IsDigit(text[i])) return std::nullopt;
    if (i > point) ++decimals;
    coefficient = coefficient * 10 + (text[i] - '0');
    if (coefficient >= PowerOfTen(kDigits)) return std::nullopt;
  }
  if (decimals > kMaxDecimals) return std::nullopt;
  return Decimal(negative ? -coefficient : coefficient, decimals);
}

std::string Decimal::ToText() const {
  std::string digits;
  for (Coefficient left = coefficient_ < 0 ? -coefficient_ : coefficient_; left != 0; left /= 10) {
    digits.push_back(static_cast<char>('0' + static_cast<int>(left % 10)));
  }
  while (digits.size() <= static_cast<size_t>(decimals_)) digits.push_back('0');
  if (coefficient_ < 0) digits.push_back('-');
  std::reverse(digits.begin(), digits.end());
  if (decimals_ > 0) digits.insert(digits.size() - static_cast<size_t>(decimals_), 1, '.');
  return digits;
}

float Decimal::ToSingle() const {
  const std::string text = ToText();
  float value = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
  return end.ec == std::errc() ? value : 0;
}

int64_t Decimal::Whole() const {
  Coefficient whole = coefficient_;
  for (int i = 0; i < decimals_; ++i) whole /= 10;
  const Coefficient least = std::numeric_limits<int64_t>::min();
  const Coefficient greatest = std::numeric_limits<int64_t>::max();
  return static_cast<int64_t>(std::clamp(whole, least, greatest));
}

Decimal Decimal::CutTo(int n) const {
  Coefficient kept = coefficient_;
  int decimals = decimals_;
  for (; decimals > n; --decimals) kept /= 10;
  return Decimal(kept, decimals);
}

Decimal Decimal::RoundedTo(int n) const {
  if (decimals_ <= n) return *this;
  return Decimal(DropDigits(coefficient_, decimals_ - n), n);
}

Decimal operator+(const Decimal& a, const Decimal& b) {
  if (a.IsZero()) return b;
  if (b.IsZero()) return a;
  const Decimal& coarse = a.decimals_ <= b.decimals_ ? a : b;
  const Decimal& fine = a.decimals_ <= b.decimals_ ? b : a;
  // The coarser number is written with the decimals of the finer one, as far as its digits have room; what
  // the finer number has behind that is too small to show in 28 digits.
  const Decimal::Coefficient room = Decimal::PowerOfTen(kWorkingDigits - 1);
  Decimal::Coefficient sum = coarse.coefficient_;
  int decimals = coarse.decimals_;
  for (; decimals < fine.decimals_ && sum < room && sum > -room; ++decimals) sum *= 10;
  sum += Decimal::DropDigits(fine.coefficient_, fine.decimals_ - decimals);
  return Decimal(sum, decimals);
}

Decimal operator*(const Decimal& a, const Decimal& b) {
  Decimal::Coefficient left = a.coefficient_;
  Decimal::Coefficient right = b.coefficient_;
  int decimals = a.decimals_ + b.decimals_;
  Decimal::Coefficient product = 0;
  while (__builtin_mul_overflow(left, right, &product)) {
    Decimal::Coefficient& longer = (left < 0 ? -left : left) > (right < 0 ? -right : right) ? left : right;
    longer = Decimal::DropDigits(longer, 1);
    --decimals;
  }
  return Decimal(product, decimals);
}

Decimal operator/(const Decimal& a, const Decimal& b) {
  assert(!b.IsZero());
  const bool negative = a.IsNegative() != b.IsNegative();
  const Decimal::Coefficient dividend = a.IsNegative() ? -a.coefficient_ : a.coefficient_;
  const Decimal::Coefficient divisor = b.IsNegative() ? -b.coefficient_ : b.coefficient_;
  // One digit more than is kept, so that the last one can be rounded.
  const Decimal::Coefficient enough = Decimal::PowerOfTen(kDigits);
  Decimal::Coefficient quotient = dividend / divisor;
  Decimal::Coefficient rest = dividend % divisor;
  int decimals = a.decimals_ - b.decimals_;
  for (; rest != 0 && quotient < enough && decimals <= kMaxDecimals; ++decimals) {
    quotient = quotient * 10 + rest * 10 / divisor;
    rest = rest * 10 % divisor;
  }
  return Decimal(negative ? -quotient : quotient, decimals);
}

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) {
  // A sum of unequal numbers never rounds to zero, see operator+.
  const Decimal difference = a - b;
  if (difference.IsZero()) return std::strong_ordering::equal;
  return difference.IsNegative() ? std::strong_ordering::less : std::strong_ordering::greater;
}

}  // namespace tarvex
