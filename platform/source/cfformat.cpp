#include "cfformat.h"

#include <CoreFoundation/CoreFoundation.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "boundary.h"
#include "cfobject.h"
#include "cfstring.h"
#include "formatspec.h"
#include "textencoding.h"

namespace brvplatform {
namespace {

union Argument {
  int asInt;
  long asLong;
  double asDouble;
  long double asLongDouble;
  const void* asPointer;
};

// The arguments in their order: each is read once, with the type that its conversion gives it.
class Arguments {
 public:
  Arguments(const std::vector<FormatPiece>& pieces, va_list list) {
    for (const FormatPiece& piece : pieces) {
      if (!piece.spec) continue;
      Expect(piece.spec->width);
      Expect(piece.spec->precision);
      Expect(piece.spec->argument, piece.spec->type);
    }
    va_list rest;
    va_copy(rest, list);
    for (const ArgumentType type : types_) values_.push_back(Read(type, &rest));
    va_end(rest);
  }

  const Argument& operator[](int index) const {
    static constexpr Argument kNone{};
    const auto at = static_cast<std::size_t>(index);
    return at < values_.size() ? values_[at] : kNone;
  }

 private:
  // No sensible format has positions beyond these; reading so many would go beyond the caller's arguments.
  static constexpr int kMaxArguments = 128;

  void Expect(const FormatNumber& number) {
    if (number.kind == FormatNumber::kArgument) Expect(number.value, ArgumentType::kInt);
  }

  void Expect(int index, ArgumentType type) {
    if (index >= kMaxArguments) return;
    const auto at = static_cast<std::size_t>(index);
    if (types_.size() <= at) types_.resize(at + 1, ArgumentType::kInt);
    types_[at] = type;
  }

  // Through a pointer: a list itself is an array on some processors and a struct on others, and a function that is
  // given a struct reads from a copy.
  static Argument Read(ArgumentType type, va_list* list) {
    Argument argument{};
    switch (type) {
      case ArgumentType::kNone:
      case ArgumentType::kInt:
        argument.asInt = va_arg(*list, int);
        break;
      case ArgumentType::kLong:
        argument.asLong = va_arg(*list, long);
        break;
      case ArgumentType::kDouble:
        argument.asDouble = va_arg(*list, double);
        break;
      case ArgumentType::kLongDouble:
        argument.asLongDouble = va_arg(*list, long double);
        break;
      case ArgumentType::kCString:
      case ArgumentType::kUnits:
      case ArgumentType::kObject:
      case ArgumentType::kPointer:
        argument.asPointer = va_arg(*list, const void*);
        break;
    }
    return argument;
  }

  std::vector<ArgumentType> types_;
  std::vector<Argument> values_;
};

std::u16string Widen(const std::string& text) { return {text.begin(), text.end()}; }

class Formatter {
 public:
  Formatter(const FormatSpec& spec, const Arguments& arguments)
      : spec_(spec), value_(arguments[spec.argument]), width_(Resolve(spec.width, arguments)) {
    precision_ = Resolve(spec.precision, arguments);
    hasPrecision_ = spec.precision.kind != FormatNumber::kNone && precision_ >= 0;
    left_ = spec.flags.find('-') != std::string::npos;
  }

  std::u16string Text() const {
    switch (spec_.type) {
      case ArgumentType::kInt:
        if (spec_.conversion == 'c') return Character(static_cast<unsigned char>(value_.asInt));
        if (spec_.conversion == 'C') return std::u16string(1, static_cast<char16_t>(value_.asInt));
        return Number(value_.asInt);
      case ArgumentType::kLong:
        return Number(value_.asLong);
      case ArgumentType::kDouble:
        return Number(value_.asDouble);
      case ArgumentType::kLongDouble:
        return Number(value_.asLongDouble);
      case ArgumentType::kCString:
        return CString(static_cast<const char*>(value_.asPointer));
      case ArgumentType::kUnits:
        return Units(static_cast<const char16_t*>(value_.asPointer));
      case ArgumentType::kObject:
        // The whole description is given, whatever the width and the precision.
        return value_.asPointer == nullptr ? kNull : ObjectOf(value_.asPointer).Description();
      case ArgumentType::kPointer:
        return spec_.conversion == 'p' ? Pointer() : std::u16string();
      case ArgumentType::kNone:
        break;
    }
    return {};
  }

 private:
  static int Resolve(const FormatNumber& number, const Arguments& arguments) {
    return number.kind == FormatNumber::kArgument ? arguments[number.value].asInt : number.value;
  }

  std::u16string Padded(std::u16string text) const {
    // A negative width from an argument counts as none; only numbers take it as the flag "-".
    const auto width = static_cast<std::size_t>(std::max(width_, 0));
    if (text.size() < width) text.insert(left_ ? text.size() : 0, width - text.size(), u' ');
    return text;
  }

  // A character is a unit below 0x100. A 0 gives no unit, since it would end the text.
  std::u16string Character(unsigned char byte) const { return Padded(std::u16string(byte == 0 ? 0 : 1, byte)); }

  // Precision counts bytes, width units.
  std::u16string CString(const char* text) const {
    if (text == nullptr) return kNull;
    std::size_t length = 0;
    while ((!hasPrecision_ || length < static_cast<std::size_t>(precision_)) && text[length] != '\0') ++length;
    return Padded(Decode({text, length}, kCFStringEncodingMacRoman).value_or(u""));
  }

  std::u16string Units(const char16_t* text) const {
    if (text == nullptr) return kNull;
    if (precision_ < 0) return {};
    std::size_t length = 0;
    while ((!hasPrecision_ || length < static_cast<std::size_t>(precision_)) && text[length] != 0) ++length;
    return Padded(std::u16string(text, length));
  }

  // printf itself writes the numbers.
  template <class Value>
  std::u16string Number(Value value) const {
    const std::string_view length = spec_.length == "q" ? std::string_view("ll") : std::string_view(spec_.length);
    return Printed(std::string(length).append(1, spec_.conversion), value);
  }

  std::u16string Pointer() const { return Printed("p", value_.asPointer); }

  template <class Value>
  std::u16string Printed(const std::string& conversion, Value value) const {
    std::string format("%");
    format.append(spec_.flags).append(left_ ? "-" : "").append("*");
    if (hasPrecision_) format.append(".").append(std::to_string(std::min(precision_, kMaxWidth)));
    format.append(conversion);
    std::array<char, kMaxWidth + 1> text;
    std::snprintf(text.data(), text.size(), format.c_str(), std::clamp(width_, -kMaxWidth, kMaxWidth), value);
    return Widen(std::string(text.data()).substr(0, kMaxNumberLength));
  }

  // The system cuts numbers after this many characters.
  static constexpr int kMaxNumberLength = 510;
  static constexpr int kMaxWidth = 2 * kMaxNumberLength;
  static constexpr const char16_t* kNull = u"(null)";

  const FormatSpec& spec_;
  const Argument& value_;
  int width_ = 0;
  int precision_ = 0;
  bool hasPrecision_ = false;
  bool left_ = false;
};

}  // namespace

std::optional<std::u16string> Format(std::u16string_view format, va_list arguments) {
  const std::optional<std::vector<FormatPiece>> pieces = ParseFormat(format);
  if (!pieces) return std::nullopt;
  const Arguments values(*pieces, arguments);
  std::u16string text;
  for (const FormatPiece& piece : *pieces) {
    text += piece.spec ? Formatter(*piece.spec, values).Text() : piece.text;
  }
  return text;
}

}  // namespace brvplatform

using namespace brvplatform;

CFStringRef CFStringCreateWithFormatAndArguments(CFAllocatorRef, CFDictionaryRef, CFStringRef format,
                                                 va_list arguments) {
  if (format == nullptr) return nullptr;
  return OrNothing([&] {
    std::optional<std::u16string> text = Format(UnitsOf(format), arguments);
    return text ? NewString(std::move(*text)) : nullptr;
  });
}

CFStringRef CFStringCreateWithFormat(CFAllocatorRef allocator, CFDictionaryRef formatOptions, CFStringRef format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const CFStringRef string = CFStringCreateWithFormatAndArguments(allocator, formatOptions, format, arguments);
  va_end(arguments);
  return string;
}
