#include "host/score/fraction.h"

#include <algorithm>
#include <cstddef>

#include "host/text/blanks.h"

namespace brvhost {
namespace {

constexpr int kMaxDigits = 18;  // they always fit into 64 bits

// Reads digits into `value` and counts them; false for anything else.
bool ReadDigits(std::string_view text, std::int64_t& value, int& digits) {
  for (const char character : text) {
    if (character < '0' || character > '9' || ++digits > kMaxDigits) return false;
    value = value * 10 + (character - '0');
  }
  return true;
}

}  // namespace

std::optional<Fraction> ParseDecimal(std::string_view text) {
  text = WithoutBlanks(text);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  const std::size_t point = std::min(text.find('.'), text.size());
  const std::string_view decimals = text.substr(std::min(point + 1, text.size()));
  Fraction number;
  int digits = 0;
  if (!ReadDigits(text.substr(0, point), number.numerator, digits)) return std::nullopt;
  if (!ReadDigits(decimals, number.numerator, digits) || digits == 0) return std::nullopt;
  for (std::size_t i = 0; i < decimals.size(); ++i) number.denominator *= 10;
  return negative ? number.Negated() : number;
}

std::optional<Fraction> ParseFraction(std::string_view text) {
  const std::size_t slash = text.find('/');
  if (slash == std::string_view::npos) return ParseDecimal(text);
  const auto over = ParseDecimal(text.substr(0, slash));
  const auto under = ParseDecimal(text.substr(slash + 1));
  if (!over || !under || under->numerator <= 0 || over->denominator != 1 || under->denominator != 1)
    return std::nullopt;
  return Fraction{over->numerator, under->numerator};
}

std::string TextOf(const Fraction& fraction) {
  const Fraction lowest = Fraction::Of(fraction.numerator, fraction.denominator).value_or(fraction);
  const std::string over = std::to_string(lowest.numerator);
  return lowest.denominator == 1 ? over : over + "/" + std::to_string(lowest.denominator);
}

}  // namespace brvhost
