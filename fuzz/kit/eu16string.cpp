// Steps with a string of the kit, each taken with a std::u16string as well.
#include "eu16string.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/support/input.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"

namespace {

std::u16string UnitsOf(const eu16string& text) {
  // Positions after the end read as spaces, so the end is found by what deleting leaves.
  eu16string copy(text);
  std::u16string units;
  const eu16string empty(0u);
  while (copy.AnsiPos(empty) != 0) {
    units += static_cast<char16_t>(copy.AnsiCharAtIndex(1));
    copy.AnsiDelete(1, 1);
  }
  return units;
}

std::int32_t AnyNumber(Input& input) {
  return input.Below(8) == 0 ? static_cast<std::int32_t>(input.Long()) : input.Below(24) - 4;
}

// A text in UTF-8 and in units; bytes that are not UTF-8 are replaced.
struct Text {
  std::string utf8;
  std::u16string units;
};

Text AnyText(Input& input) {
  const std::string_view bytes = input.Text(static_cast<std::size_t>(input.Below(24)));
  icu::UnicodeString unicode = icu::UnicodeString::fromUTF8({bytes.data(), static_cast<int32_t>(bytes.size())});
  const int32_t zero = unicode.indexOf(u'\0');
  if (zero >= 0) unicode.truncate(zero);
  if (unicode.startsWith(u"\uFEFF")) unicode.remove(0, 1);  // a mark
  Text text;
  unicode.toUTF8String(text.utf8);
  text.units.assign(unicode.getBuffer(), static_cast<std::size_t>(unicode.length()));
  if (text.units.starts_with(u'\uFEFF')) return {};
  return text;
}

eu16string Made(const Text& text) { return {reinterpret_cast<const unsigned char*>(text.utf8.c_str())}; }

// The same text twice, and what is done to it.
class Pair {
 public:
  explicit Pair(Input& input) : input_(input), model_(AnyText(input)), text_(Made(model_)) {
    Compare("a text is made");
  }

  void Step() {
    switch (input_.Below(7)) {
      case 0:
        return Delete();
      case 1:
        return SubString();
      case 2:
        return SetLength();
      case 3:
        return Write();
      case 4:
        return Find();
      case 5:
        return Copy();
      default:
        return Convert();
    }
  }

 private:
  std::u16string& Units() { return model_.units; }

  void Compare(const char* property) { Require(UnitsOf(text_) == Units(), property); }

  void Delete() {
    const auto index = static_cast<std::uint32_t>(AnyNumber(input_));
    const std::int32_t count = AnyNumber(input_);
    Require(&text_.AnsiDelete(index, count) == &text_, "AnsiDelete returns its text");
    if (index >= 1 && index <= Units().size() && count > 0) Units().erase(index - 1, static_cast<std::size_t>(count));
    Compare("AnsiDelete removes what is there");
  }

  void SubString() {
    const std::int32_t start = AnyNumber(input_);
    const std::int32_t count = AnyNumber(input_);
    const eu16string part = text_.AnsiSubString(start, count);
    const auto first = static_cast<std::size_t>(std::max(start, 1)) - 1;
    const bool isNone = count < 1 || first >= Units().size();
    Require(UnitsOf(part) == (isNone ? u"" : Units().substr(first, static_cast<std::size_t>(count))),
            "AnsiSubString gives what is there");
    Compare("AnsiSubString leaves the text");
  }

  void SetLength() {
    const auto length = static_cast<std::uint32_t>(AnyNumber(input_));
    text_.AnsiSetLength(length);
    Units() = Units().substr(0, length);
    Compare("AnsiSetLength cuts and never adds");
  }

  void Write() {
    const std::int32_t index = AnyNumber(input_);
    const bool isInside = index >= 1 && static_cast<std::size_t>(index) <= Units().size();
    const eu16string& constant = text_;
    const UniChar read = constant.AnsiCharAtIndex(index);
    Require(read == (isInside ? Units()[static_cast<std::size_t>(index) - 1] : u' '), "a unit outside is a space");
    if (Units().empty()) return;
    const auto unit = static_cast<char16_t>(input_.Word() | 1);
    text_.AnsiCharAtIndex(index) = unit;
    Units()[isInside ? static_cast<std::size_t>(index) - 1 : 0] = unit;
    Compare("a unit is written in its place, or in the first");
  }

  void Find() {
    const Text other = AnyText(input_);
    const std::size_t place = Units().find(other.units);
    const bool isNone = Units().empty() || place == std::u16string::npos;
    Require(text_.AnsiPos(Made(other)) == (isNone ? 0 : static_cast<int32>(place + 1)), "AnsiPos is the first place");
    const auto part = static_cast<std::size_t>(input_.Byte());
    if (part >= Units().size()) return;
    const eu16string rest = text_.AnsiSubString(static_cast<std::int32_t>(part) + 1, 3);
    Require(text_.AnsiPos(rest) == static_cast<int32>(Units().find(Units().substr(part, 3)) + 1), "a part is found");
  }

  void Copy() {
    eu16string copy = text_;
    copy.AnsiSetLength(0);
    Compare("a copy is a text of its own");
    copy = text_;
    text_ = std::move(copy);
    Compare("a text is moved whole");
  }

  void Convert() {
    const std::int32_t otherwise = AnyNumber(input_);
    if (Units().empty()) Require(StrToIntDef(text_, otherwise) == otherwise, "an empty text gives the default");
    const auto number = static_cast<std::int32_t>(input_.Long());
    const std::string digits = std::to_string(number);
    Require(UnitsOf(IntToEu16Str(number)) == std::u16string(digits.begin(), digits.end()), "a number is its digits");
    Require(StrToIntDef(IntToEu16Str(number), otherwise) == number, "the digits of a number are read");
    std::string text = "kept";
    text_.GetStdString(text);
    Require(text.find('\0') == std::string::npos && text.size() <= Units().size() * 3, "a text has its bytes");
  }

  Input& input_;
  Text model_;
  eu16string text_;
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  Input input(bytes, size);
  Pair pair(input);
  while (!input.IsAtEnd()) pair.Step();
  return 0;
}
