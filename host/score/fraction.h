// Exact fractions, for durations and positions: divisions change within a measure, and rounding errors must not add up.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brvhost {

__extension__ typedef __int128 Wide;

// A number too large for the arithmetic gives a null result, never a wrong one. The denominator is above 0; the
// fraction need not be in lowest terms.
struct Fraction {
  std::int64_t numerator = 0;
  std::int64_t denominator = 1;

  // In lowest terms, or null when one of the two numbers does not fit into 64 bits.
  static std::optional<Fraction> Of(Wide numerator, Wide denominator) {
    const Wide divisor = Divisor(numerator, denominator);
    if (divisor > 1) {
      numerator /= divisor;
      denominator /= divisor;
    }
    if (numerator > INT64_MAX || numerator < INT64_MIN || denominator > INT64_MAX) return std::nullopt;
    return Fraction{static_cast<std::int64_t>(numerator), static_cast<std::int64_t>(denominator)};
  }

  std::optional<Fraction> Plus(const Fraction& other) const {
    if (numerator == 0) return other;
    if (denominator == other.denominator) {  // as long as divisions stay the same
      std::int64_t sum;
      if (__builtin_add_overflow(numerator, other.numerator, &sum)) return std::nullopt;
      return Fraction{sum, denominator};
    }
    return Of(Wide{numerator} * other.denominator + Wide{other.numerator} * denominator,
              Wide{denominator} * other.denominator);
  }

  Fraction Negated() const { return {-numerator, denominator}; }

  // The nearest whole multiple of 1/unitsPerOne, halves up; null when it does not fit into 32 bits.
  std::optional<std::int32_t> Rounded(std::int32_t unitsPerOne) const {
    const Wide twice = Wide{numerator} * unitsPerOne * 2 + denominator;
    const Wide divisor = Wide{denominator} * 2;
    const Wide floor = twice / divisor - (twice % divisor < 0 ? 1 : 0);
    if (floor > INT32_MAX || floor < INT32_MIN) return std::nullopt;
    return static_cast<std::int32_t>(floor);
  }

  bool IsNegative() const { return numerator < 0; }
  bool IsZero() const { return numerator == 0; }

 private:
  static Wide Divisor(Wide a, Wide b) {
    if (a < 0) a = -a;
    while (b != 0) {
      const Wide rest = a % b;
      a = b;
      b = rest;
    }
    return a;
  }
};

// A decimal number such as "12", "-2.5" or " +0.25 "; blanks around it are allowed. Null for any other text, and for
// more than 18 digits.
std::optional<Fraction> ParseDecimal(std::string_view text);

// A decimal number, or two whole numbers with a slash between them: "5/2".
std::optional<Fraction> ParseFraction(std::string_view text);

// As ParseFraction reads it, in lowest terms: "2" or "5/2".
std::string TextOf(const Fraction& fraction);

}  // namespace brvhost
