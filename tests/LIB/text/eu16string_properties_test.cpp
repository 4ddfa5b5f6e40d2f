// The class against a plain model, over random sequences of operations whose arguments are often out of range.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <climits>
#include <cstdint>
#include <string>
#include <vector>

#include "eu16text.h"

namespace {

// A text as UTF-8, so that the class can be made from it, and as units.
struct Source {
  std::string utf8;
  std::u16string units;
};

Source RandomSource() {
  static const Source kCharacters[] = {{"a", u"a"},
                                       {"b", u"b"},
                                       {"\xC3\xA9", u"\u00E9"},
                                       {"\xE7\xBF\xBF", u"\u7FFF"},
                                       {"\xE8\x80\x80", u"\u8000"},
                                       {"\xEF\xBF\xBD", u"\uFFFD"},
                                       {"\xF0\x9F\x98\x80", u"\U0001F600"}};
  const auto picks = *rc::gen::container<std::vector<std::size_t>>(rc::gen::inRange<std::size_t>(0, 7));
  Source source;
  for (const std::size_t pick : picks) {
    source.utf8 += kCharacters[pick].utf8;
    source.units += kCharacters[pick].units;
  }
  return source;
}

// A position or count inside, just outside, or far outside of a text of that length.
std::int32_t RandomNumber(std::size_t length) {
  const int size = static_cast<int>(length);
  return *rc::gen::weightedOneOf<int>({{6, rc::gen::inRange(1, size + 2)},
                                       {2, rc::gen::element(-3, -1, 0, size, size + 1, size + 2)},
                                       {1, rc::gen::element(INT_MIN, INT_MIN + 1, INT_MAX - 1, INT_MAX)}});
}

std::u16string ModelSubString(const std::u16string& text, std::int64_t start, std::int64_t count) {
  std::u16string result;
  if (start < 1) start = 1;
  for (std::int64_t i = start; i < start + count && i <= static_cast<std::int64_t>(text.size()); ++i) {
    result += text[static_cast<std::size_t>(i - 1)];
  }
  return result;
}

std::u16string ModelDelete(const std::u16string& text, std::uint32_t index, std::int64_t count) {
  if (index == 0 || count < 1) return text;
  std::u16string result;
  for (std::int64_t i = 1; i <= static_cast<std::int64_t>(text.size()); ++i) {
    if (i < index || i >= index + count) result += text[static_cast<std::size_t>(i - 1)];
  }
  return result;
}

int ModelPos(const std::u16string& text, const std::u16string& other) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.compare(i, other.size(), other) == 0) return static_cast<int>(i) + 1;
  }
  return 0;
}

// One text of the class, and what its units have to be.
struct Pair {
  eu16string text;
  std::u16string model;

  bool IsInside(std::int32_t index) const { return index >= 1 && static_cast<std::size_t>(index) <= model.size(); }

  void Delete() {
    const auto index = static_cast<std::uint32_t>(RandomNumber(model.size()));
    const std::int32_t count = RandomNumber(model.size());
    RC_ASSERT(&text.AnsiDelete(index, count) == &text);
    model = ModelDelete(model, index, count);
  }
  void TakeSubString() {
    const std::int32_t start = RandomNumber(model.size());
    const std::int32_t count = RandomNumber(model.size());
    const eu16string part = text.AnsiSubString(start, count);
    RC_ASSERT(UnitsOf(part) == ModelSubString(model, start, count));
    RC_ASSERT(UnitsOf(text) == model);
  }
  void SetLength() {
    const auto length = static_cast<std::uint32_t>(RandomNumber(model.size()));
    RC_ASSERT(&text.AnsiSetLength(length) == &text);
    if (length < model.size()) model.resize(length);
  }
  void Read() {
    const std::int32_t index = RandomNumber(model.size());
    const int expected = IsInside(index) ? model[static_cast<std::size_t>(index) - 1] : 32;
    RC_ASSERT(static_cast<const eu16string&>(text).AnsiCharAtIndex(index) == expected);
  }
  void Write() {
    if (model.empty()) return;
    const std::int32_t index = RandomNumber(model.size());
    const char16_t unit = *rc::gen::element<char16_t>(u'a', u'z', 0, 0x8000, 0xFFFF, 0xDE00);
    text.AnsiCharAtIndex(index) = unit;
    model[IsInside(index) ? static_cast<std::size_t>(index) - 1 : 0] = unit;
  }
  void Find() {
    const std::int32_t start = RandomNumber(model.size());
    RC_ASSERT(text.AnsiPos(text.AnsiSubString(start, 2)) == ModelPos(model, ModelSubString(model, start, 2)));
    const Source other = RandomSource();
    RC_ASSERT(text.AnsiPos(FromUtf8(other.utf8.c_str())) == ModelPos(model, other.units));
  }
};

RC_GTEST_PROP(Eu16StringModel, EveryOperationDoesAsItsModel, ()) {
  const Source source = RandomSource();
  Pair pair{FromUtf8(source.utf8.c_str()), source.units};
  RC_ASSERT(UnitsOf(pair.text) == pair.model);
  const int count = *rc::gen::inRange(1, 12);
  for (int i = 0; i < count; ++i) {
    const auto operation = *rc::gen::element(&Pair::Delete, &Pair::TakeSubString, &Pair::SetLength, &Pair::Read,
                                             &Pair::Write, &Pair::Find);
    (pair.*operation)();
    RC_ASSERT(UnitsOf(pair.text) == pair.model);
  }
}

RC_GTEST_PROP(Eu16StringModel, ACodePointIsItsUnits, ()) {
  const auto codePoint = *rc::gen::oneOf(rc::gen::inRange<unsigned>(0, 0x120000), rc::gen::arbitrary<unsigned>());
  std::u16string expected;
  if (codePoint >= 0x10000 && codePoint <= 0x10FFFF) {
    expected = {static_cast<char16_t>((codePoint - 0x10000) / 0x400 + 0xD800),
                static_cast<char16_t>((codePoint - 0x10000) % 0x400 + 0xDC00)};
  } else if (codePoint % 0x10000 != 0) {
    expected = {static_cast<char16_t>(codePoint % 0x10000)};
  }
  RC_ASSERT(UnitsOf(eu16string(codePoint)) == expected);
}

RC_GTEST_PROP(Eu16StringModel, AnIntegerSurvivesItsText, (int value)) {
  RC_ASSERT(StrToIntDef(IntToEu16Str(value), 1) == value);
}

}  // namespace
