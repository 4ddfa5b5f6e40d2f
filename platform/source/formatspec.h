// The conversions of a format.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brvplatform {

// A width or precision: none, a number, or the argument that holds it.
struct FormatNumber {
  enum Kind { kNone, kNumber, kArgument };
  Kind kind = kNone;
  int value = 0;  // the number, or the index of the argument
};

enum class ArgumentType { kNone, kInt, kLong, kDouble, kLongDouble, kCString, kUnits, kObject, kPointer };

struct FormatSpec {
  std::string flags;
  FormatNumber width;
  FormatNumber precision;
  std::string length;  // "", "h", "hh", "l", "ll", "q", "z", "t", "j", "L"
  char conversion = '\0';
  ArgumentType type = ArgumentType::kNone;
  int argument = -1;  // index from 0
};

// A run of plain text, or a conversion.
struct FormatPiece {
  std::u16string text;
  std::optional<FormatSpec> spec;
};

// Positions and numbers are limited: nothing is returned for a format with an argument beyond the 127th, or with a
// width or precision of more than 31 bits.
std::optional<std::vector<FormatPiece>> ParseFormat(std::u16string_view format);

}  // namespace brvplatform
