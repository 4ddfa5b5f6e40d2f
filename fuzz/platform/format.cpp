// Formats of any units, parsed; and formats of numbers with any flags, widths and precisions, against printf.
#include <CoreFoundation/CoreFoundation.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/support/input.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"
#include "platform/source/cfstring.h"
#include "platform/source/formatspec.h"

namespace {

using namespace brvplatform;

// More than any format here takes. Whole numbers are passed in registers and then on the stack, others all in registers
// of their own: so each finds its number whatever is between.
constexpr std::size_t kWhole = 12;
constexpr std::size_t kFloating = 8;
constexpr std::size_t kMaxNumber = 510;  // longer ones are cut

struct Arguments {
  std::array<long, kWhole> whole = {};
  std::array<double, kFloating> floating = {};
};

std::optional<std::u16string> Formatted(std::u16string_view format, const Arguments& a) {
  const Owned<CFStringRef> text(NewString(std::u16string(format)));
  const auto& w = a.whole;
  const auto& f = a.floating;
  const Owned<CFStringRef> result(CFStringCreateWithFormat(nullptr, nullptr, text.Get(), w[0], w[1], w[2], w[3], w[4],
                                                           w[5], w[6], w[7], w[8], w[9], w[10], w[11], f[0], f[1], f[2],
                                                           f[3], f[4], f[5], f[6], f[7]));
  if (result.Get() == nullptr) return std::nullopt;
  return std::u16string(UnitsOf(result.Get()));
}

// A format with its conversions, and what printf makes of it, piece by piece.
class Oracle {
 public:
  explicit Oracle(Input& input) : input_(input) {
    for (long& number : arguments_.whole) number = AnyWhole();
    for (double& number : arguments_.floating) number = AnyFloating();
    while (!input_.IsAtEnd() && nextWhole_ + 3 <= kWhole && nextFloating_ < kFloating) Append();
  }

  const std::string& Format() const { return format_; }
  const std::string& Text() const { return text_; }
  const Arguments& Values() const { return arguments_; }

 private:
  long AnyWhole() {
    const std::uint32_t low = input_.Long();
    if (input_.Below(3) == 0) return static_cast<long>(std::uint64_t{input_.Long()} << 32 | low);
    return static_cast<long>(low % 100) - 20;
  }

  double AnyFloating() {
    constexpr double kOdd[] = {0.0,    -0.0, 1e308,   5e-324, std::numeric_limits<double>::infinity(),
                               0.0005, 2.5,  -1.0 / 3};
    const auto number = static_cast<std::size_t>(input_.Below(12));
    if (number < std::size(kOdd)) return kOdd[number];
    const std::uint64_t bits = std::uint64_t{input_.Long()} << 32 | input_.Long();
    double any;
    std::memcpy(&any, &bits, sizeof(any));
    return any;
  }

  void Append() {
    if (input_.Below(4) == 0) return AppendLiteral();
    std::string spec;
    for (int flags = input_.Below(4); flags > 0; --flags) spec += "-+ #0"[input_.Below(5)];
    std::string given = spec;  // with numbers in the place of "*"
    AppendSize(spec, given, false);
    if (input_.Below(3) == 0) {
      spec += '.';
      AppendSize(spec, given, true);
    }
    if (input_.Flag()) {
      AppendWhole(spec, given);
    } else {
      AppendFloating(spec, given);
    }
  }

  void AppendLiteral() {
    constexpr const char* kLiterals[] = {"%%", "measure ", ",", "\n"};
    const char* const literal = kLiterals[input_.Below(4)];
    format_ += literal;
    text_ += std::strcmp(literal, "%%") == 0 ? "%" : literal;
  }

  // A width or, after the point, a precision: none, a number, or an argument.
  void AppendSize(std::string& spec, std::string& given, bool isPrecision) {
    const int kind = input_.Below(4);
    if (kind == 0) {
      spec += '*';
      const int size = static_cast<int>(arguments_.whole[nextWhole_++]) % 600;
      arguments_.whole[nextWhole_ - 1] = size;
      // A negative width is the flag "-" and a width; a negative precision is none.
      if (!isPrecision) given += std::to_string(size);
      if (isPrecision && size >= 0) given += "." + std::to_string(size);
      return;
    }
    if (isPrecision) given += '.';
    if (kind > 2) return;
    const std::string number = std::to_string(kind == 1 ? input_.Below(30) : input_.Word() % 600);
    // Before a width, 0 is a flag.
    spec += number;
    given += number;
  }

  void AppendWhole(std::string& spec, std::string& given) {
    constexpr const char* kLengths[] = {"", "", "h", "hh", "l", "ll", "q", "z", "t", "j"};
    const std::string length = kLengths[input_.Below(10)];
    const char conversion = "diuxXo"[input_.Below(6)];
    const long value = arguments_.whole[nextWhole_++];
    format_ += '%' + spec + length + conversion;
    const bool isInt = length.empty() || length[0] == 'h';
    const std::string printed = '%' + given + (isInt ? length : "l") + conversion;
    if (isInt) {
      Print(printed.c_str(), static_cast<int>(value));
    } else {
      Print(printed.c_str(), value);
    }
  }

  void AppendFloating(std::string& spec, std::string& given) {
    const char conversion = "fFeEgGaA"[input_.Below(8)];
    format_ += '%' + spec + conversion;
    Print(('%' + given + conversion).c_str(), arguments_.floating[nextFloating_++]);
  }

  template <class Value>
  void Print(const char* format, Value value) {
    std::array<char, 4096> buffer;
    std::snprintf(buffer.data(), buffer.size(), format, value);
    text_ += std::string(buffer.data()).substr(0, kMaxNumber);
  }

  Input& input_;
  Arguments arguments_;
  std::size_t nextWhole_ = 0;
  std::size_t nextFloating_ = 0;
  std::string format_;
  std::string text_;
};

// Whether a format can be given numbers alone: nothing in it is taken for a pointer, and no width is vast.
bool TakesNumbers(const std::vector<FormatPiece>& pieces) {
  constexpr int kMaxWidth = 5000;
  return std::ranges::all_of(pieces, [](const FormatPiece& piece) {
    if (!piece.spec) return true;
    const FormatSpec& spec = *piece.spec;
    const bool isSmall = spec.width.kind != FormatNumber::kNumber || spec.width.value < kMaxWidth;
    const bool isNumber =
        spec.type == ArgumentType::kInt || spec.type == ArgumentType::kLong || spec.type == ArgumentType::kDouble;
    const auto isHere = [](const FormatNumber& number) {
      return number.kind != FormatNumber::kArgument || number.value < static_cast<int>(kFloating);
    };
    return isSmall && isNumber && spec.argument < static_cast<int>(kFloating) && isHere(spec.width) &&
           isHere(spec.precision);
  });
}

void CheckAnyFormat(Input& input) {
  std::u16string format;
  const bool isWide = input.Flag();
  while (!input.IsAtEnd()) format += isWide ? static_cast<char16_t>(input.Word()) : char16_t{input.Byte()};
  const auto pieces = ParseFormat(format);
  const Arguments small = {{3, 1, 2, 5, -4, 7, 0, 8, 9, 10, 11, 12}, {1.5, -2, 3e10, 0, 1, 2, 3, 4}};
  if (!pieces || !TakesNumbers(*pieces)) return;
  Require(Formatted(format, small).has_value(), "what is a format gives a text");
  if (format.find(u'%') == std::u16string::npos) Require(Formatted(format, small) == format, "a text alone stays");
}

void CheckNumbers(Input& input) {
  const Oracle oracle(input);
  const auto text = Formatted(std::u16string(oracle.Format().begin(), oracle.Format().end()), oracle.Values());
  Require(text == std::u16string(oracle.Text().begin(), oracle.Text().end()),
          "numbers are written as by printf: " + oracle.Format());
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  Input input(bytes, size);
  if (input.Flag()) {
    CheckAnyFormat(input);
  } else {
    CheckNumbers(input);
  }
  return 0;
}
