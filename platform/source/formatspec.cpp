#include "formatspec.h"

#include <algorithm>

namespace brvplatform {
namespace {

bool Contains(std::string_view set, char16_t unit) {
  return unit != 0 && unit < 0x80 && set.find(static_cast<char>(unit)) != set.npos;
}

ArgumentType IntegerType(std::string_view length) {
  return length == "" || length == "h" || length == "hh" ? ArgumentType::kInt : ArgumentType::kLong;
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
    case 'D':
    case 'U':
    case 'O':
      return ArgumentType::kLong;
    case 'c':
    case 'C':
      return ArgumentType::kInt;
    case 's':
      return length == "l" ? ArgumentType::kUnits : ArgumentType::kCString;
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

class Parser {
 public:
  explicit Parser(std::u16string_view format) : format_(format) {}

  std::vector<FormatPiece> Pieces() {
    std::vector<FormatPiece> pieces;
    while (at_ < format_.size()) {
      const std::size_t percent = std::min(format_.find(u'%', at_), format_.size());
      if (percent > at_) pieces.push_back({std::u16string(format_.substr(at_, percent - at_)), std::nullopt});
      at_ = percent;
      if (at_ == format_.size()) break;
      ++at_;
      if (std::optional<FormatPiece> piece = Conversion()) pieces.push_back(std::move(*piece));
    }
    return pieces;
  }

 private:
  char16_t Peek() const { return at_ < format_.size() ? format_[at_] : u'\0'; }

  std::optional<int> Number() {
    const std::size_t begin = at_;
    long value = 0;
    for (; Peek() >= u'0' && Peek() <= u'9'; ++at_) value = std::min(value * 10 + (Peek() - u'0'), 0x7FFFFFFFL);
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

  // A conversion that is cut off by the end of the format gives nothing; an unknown one stands for its own character.
  std::optional<FormatPiece> Conversion() {
    FormatSpec spec;
    const std::optional<int> position = Position();
    while (Contains("-+ #0", Peek())) spec.flags.push_back(static_cast<char>(format_[at_++]));
    spec.width = WidthOrPrecision();
    if (Peek() == u'.') {
      ++at_;
      spec.precision = WidthOrPrecision();
      if (spec.precision.kind == FormatNumber::kNone) spec.precision = {FormatNumber::kNumber, 0};
    }
    while (Contains("hlqztjL", Peek())) spec.length.push_back(static_cast<char>(format_[at_++]));
    if (at_ == format_.size()) return std::nullopt;
    const char16_t unit = format_[at_++];
    spec.conversion = unit < 0x80 ? static_cast<char>(unit) : '\0';
    spec.type = TypeOf(spec.conversion, spec.length);
    if (spec.type == ArgumentType::kNone) return FormatPiece{std::u16string(1, unit), std::nullopt};
    spec.argument = position ? *position : nextArgument_++;
    return FormatPiece{{}, std::move(spec)};
  }

  std::u16string_view format_;
  std::size_t at_ = 0;
  int nextArgument_ = 0;
};

}  // namespace

std::vector<FormatPiece> ParseFormat(std::u16string_view format) { return Parser(format).Pieces(); }

}  // namespace brvplatform
