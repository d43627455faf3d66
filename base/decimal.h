#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvex {

// The shortest decimal digits that read back to the same single, in fixed notation: 10.23f gives "10.23"
// though it is held as 10.2299995. Never an exponent. What is not a finite number gives "0".
std::string ShortText(float value);

// An exact decimal number: a whole coefficient of at most 28 digits, of which the last Decimals() stand
// behind the point. Trailing zeros behind the point are never kept, so equal numbers are equal objects: 10.20
// is held as 10.2. Sums, differences and products are exact as long as the result has 28 digits or fewer;
// beyond that the last digit is rounded half away from zero, and what is too large altogether becomes 28
// nines.
class Decimal {
 public:
  Decimal() = default;
  explicit Decimal(int64_t whole) : Decimal(Coefficient{whole}, 0) {}

  // coefficient / 10^decimals: Of(24, 2) is 0.24.
  static Decimal Of(int64_t coefficient, int decimals) { return Decimal(Coefficient{coefficient}, decimals); }
  // The number that ShortText shows. Every single has one, but those above 10^28.
  static Decimal FromSingle(float value);
  // An optional sign, digits and at most one ".", with at least one digit: "-0.5", ".5", "62.". Empty for
  // anything else and for a number of more than 28 digits.
  static std::optional<Decimal> Parse(std::string_view text);

  // Fixed notation without superfluous zeros: "10.2", "-0.5", "3".
  std::string ToText() const;
  // The nearest single.
  float ToSingle() const;

  // How many digits stand behind the point.
  int Decimals() const { return decimals_; }
  bool IsZero() const { return coefficient_ == 0; }
  bool IsNegative() const { return coefficient_ < 0; }
  // The part before the point, towards zero; limited to the range of the type.
  int64_t Whole() const;

  // Drops what stands behind the n-th decimal, towards zero.
  Decimal CutTo(int n) const;
  // Rounds to n decimals, halves away from zero.
  Decimal RoundedTo(int n) const;

  Decimal operator-() const { return Decimal(-coefficient_, decimals_); }
  friend Decimal operator+(const Decimal& a, const Decimal& b);
  friend Decimal operator-(const Decimal& a, const Decimal& b) { return a + -b; }
  friend Decimal operator*(const Decimal& a, const Decimal& b);
  // To 28 significant digits, the last one rounded. The divisor is not 0.
  friend Decimal operator/(const Decimal& a, const Decimal& b);
  friend Decimal operator*(const Decimal& a, int64_t b) { return a * Decimal(b); }
  friend Decimal operator/(const Decimal& a, int64_t b) { return a / Decimal(b); }

  friend bool operator==(const Decimal&, const Decimal&) = default;
  friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b);

 private:
  __extension__ typedef __int128 Coefficient;

  // Brings any coefficient and scale, a negative scale too, into the class's form.
  Decimal(Coefficient coefficient, int decimals);

  static Coefficient PowerOfTen(int exponent);
  static Coefficient DropDigits(Coefficient coefficient, int digits);

  Coefficient coefficient_ = 0;
  int decimals_ = 0;
};

}  // namespace tarvex
