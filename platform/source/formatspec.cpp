#include "formatspec.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace brvplatform {
namespace {

bool Contains(std::string_view set, char16_t unit) {
  return unit != 0 && unit < 0x80 && set.find(static_cast<char>(unit)) != set.npos;
}

ArgumentType IntegerType(std::string_view length) {
  return length.empty() || length == "h" || length == "hh" ? ArgumentType::kInt : ArgumentType::kLong;
}

ArgumentType TypeOf(char conversion, std::string_view length) {
  switch (conversion) {
    case 'd':
    case 'i':
    case 'u':
    case 'x':
    case 'X':
    case 'o':
      return IntegerType(length);
    case 'c':
    case 'C':
      return ArgumentType::kInt;
    case 's':
      return ArgumentType::kCString;
    case 'S':
      return ArgumentType::kUnits;
    case '@':
      return ArgumentType::kObject;
    case 'p':
    case 'n':
      return ArgumentType::kPointer;
    case 'f':
    case 'F':
    case 'e':
    case 'E':
    case 'g':
    case 'G':
    case 'a':
    case 'A':
      return length == "L" ? ArgumentType::kLongDouble : ArgumentType::kDouble;
    default:
      return ArgumentType::kNone;
  }
}

bool IsNumber(ArgumentType type) {
  return type == ArgumentType::kInt || type == ArgumentType::kLong || type == ArgumentType::kDouble ||
         type == ArgumentType::kLongDouble;
}

constexpr int kMaxPosition = 127;

bool IsBeyondNumbers(const FormatNumber& number) {
  return number.kind == FormatNumber::kNumber && number.value == INT32_MAX;
}

class Parser {
 public:
  explicit Parser(std::u16string_view format) : format_(format) {}

  std::optional<std::vector<FormatPiece>> Pieces() {
    std::vector<FormatPiece> pieces;
    while (at_ < format_.size()) {
      const std::size_t percent = std::min(format_.find(u'%', at_), format_.size());
      if (percent > at_) pieces.push_back({std::u16string(format_.substr(at_, percent - at_)), std::nullopt});
      at_ = percent;
      if (at_ == format_.size()) break;
      ++at_;
      if (std::optional<FormatPiece> piece = Conversion()) pieces.push_back(std::move(*piece));
    }
    return valid_ ? std::optional(std::move(pieces)) : std::nullopt;
  }

 private:
  char16_t Peek() const { return at_ < format_.size() ? format_[at_] : u'\0'; }

  std::optional<int> Number() {
    const std::size_t begin = at_;
    std::int64_t value = 0;
    for (; Peek() >= u'0' && Peek() <= u'9'; ++at_)
      value = std::min(value * 10 + (Peek() - u'0'), std::int64_t{INT32_MAX});
    return at_ == begin ? std::nullopt : std::optional(static_cast<int>(value));
  }

  // "2$" gives 1, the index of the second argument.
  std::optional<int> Position() {
    const std::size_t begin = at_;
    const std::optional<int> number = Number();
    if (number && *number > 0 && Peek() == u'$') {
      ++at_;
      return *number - 1;
    }
    at_ = begin;
    return std::nullopt;
  }

  FormatNumber WidthOrPrecision() {
    if (Peek() == u'*') {
      ++at_;
      const std::optional<int> position = Position();
      return {FormatNumber::kArgument, position ? *position : nextArgument_++};
    }
    const std::optional<int> number = Number();
    return number ? FormatNumber{FormatNumber::kNumber, *number} : FormatNumber{};
  }

  // An unknown conversion gives the unit after its percent sign, so "%%" gives "%". The old names of "%ld", "%lu" and
  // "%lo" give themselves.
  FormatPiece Unknown(char16_t unit, std::size_t begin) const {
    if (unit == u'D' || unit == u'U' || unit == u'O') return {std::u16string{u'%', unit}, std::nullopt};
    return {std::u16string(1, format_[begin]), std::nullopt};
  }

  // A conversion that is cut off by the end of the format gives nothing.
  std::optional<FormatPiece> Conversion() {
    const std::size_t begin = at_;
    FormatSpec spec;
    const std::optional<int> position = Position();
    while (Contains("-+ #0", Peek())) spec.flags.push_back(static_cast<char>(format_[at_++]));
    spec.width = WidthOrPrecision();
    const bool hasPoint = Peek() == u'.';
    if (hasPoint) {
      ++at_;
      spec.precision = WidthOrPrecision();
    }
    while (Contains("hlqztjL", Peek())) spec.length.push_back(static_cast<char>(format_[at_++]));
    if (at_ == format_.size()) return std::nullopt;
    const char16_t unit = format_[at_++];
    spec.conversion = unit < 0x80 ? static_cast<char>(unit) : '\0';
    spec.type = TypeOf(spec.conversion, spec.length);
    if (spec.type == ArgumentType::kNone) return Unknown(unit, begin);
    if (IsBeyondNumbers(spec.width) || IsBeyondNumbers(spec.precision) || position.value_or(0) >= kMaxPosition) {
      valid_ = false;
    }
    // "%.f" has a precision of 0; for texts, a point alone means no precision.
    if (hasPoint && spec.precision.kind == FormatNumber::kNone && IsNumber(spec.type)) {
      spec.precision = {FormatNumber::kNumber, 0};
    }
    spec.argument = position ? *position : nextArgument_++;
    return FormatPiece{{}, std::move(spec)};
  }

  std::u16string_view format_;
  std::size_t at_ = 0;
  int nextArgument_ = 0;
  bool valid_ = true;
};

}  // namespace

std::optional<std::vector<FormatPiece>> ParseFormat(std::u16string_view format) { return Parser(format).Pieces(); }

}  // namespace brvplatform
