// The functions against plain loops, over random texts in blocks of memory that are just large enough, at even and odd
// addresses.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <memory>
#include <string_view>

#include "units.h"

namespace {

// Few different units, so that texts share beginnings and hold one another; on both sides of each border that matters.
rc::Gen<std::u16string> Text() {
  const auto unit = rc::gen::element<char16_t>(u'a', u'b', 0x0001, 0x7FFF, 0x8000, 0xFFFF, 0xD83D, 0xDE00);
  const auto size = rc::gen::weightedOneOf<int>({{4, rc::gen::inRange(0, 12)}, {2, rc::gen::inRange(0, 300)}});
  return rc::gen::mapcat(size, [unit](int count) { return rc::gen::container<std::u16string>(count, unit); });
}

// A second text: another one, the same, or the same with one unit changed.
rc::Gen<std::u16string> Relative(const std::u16string& text) {
  const auto same = rc::gen::just(text);
  if (text.empty()) return rc::gen::oneOf(Text(), same);
  const auto changed = rc::gen::map(rc::gen::inRange<std::size_t>(0, text.size()), [text](std::size_t place) {
    std::u16string copy = text;
    copy[place] = u'c';
    return copy;
  });
  return rc::gen::oneOf(Text(), same, changed);
}

// Memory of count units, not a byte more, at an even or odd address.
class Placed {
 public:
  Placed(std::size_t count, bool odd) : bytes_(new char[count * sizeof(UniChar) + (odd ? 1 : 0)]()), odd_(odd) {}
  Placed(const std::u16string& text, bool odd) : Placed(text.size() + 1, odd) {
    std::memcpy(At(), text.c_str(), (text.size() + 1) * sizeof(UniChar));
  }
  UniChar* At() { return reinterpret_cast<UniChar*>(bytes_.get() + (odd_ ? 1 : 0)); }

 private:
  std::unique_ptr<char[]> bytes_;
  bool odd_;
};

int ModelCompare(const std::u16string& a, const std::u16string& b, std::size_t limit) {
  for (std::size_t i = 0; i < limit; ++i) {
    const int unitA = i < a.size() ? a[i] : 0;
    const int unitB = i < b.size() ? b[i] : 0;
    if (unitA != unitB) return unitA > unitB ? 1 : -1;
    if (unitA == 0) return 0;
  }
  return 0;
}

RC_GTEST_PROP(BxStringModel, LengthIsThatOfTheText, (bool odd)) {
  const std::u16string text = *Text();
  Placed units(text, odd);
  RC_ASSERT(bx_strlen(units.At()) == text.size());
}

RC_GTEST_PROP(BxStringModel, AUnitIsFoundWhereItFirstStands, (bool odd)) {
  const std::u16string text = *Text();
  const char16_t wanted = *rc::gen::element<char16_t>(u'a', 0xFFFF, 0x8000, 0xDE00, u'q', 0);
  Placed units(text, odd);
  const std::size_t place = std::u16string_view(text.c_str(), text.size() + 1).find(wanted);
  RC_ASSERT(bx_strchr(units.At(), wanted) == (place == std::u16string::npos ? nullptr : units.At() + place));
}

RC_GTEST_PROP(BxStringModel, TextsCompareByTheirFirstDifference, (bool oddA, bool oddB)) {
  const std::u16string a = *Text();
  const std::u16string b = *Relative(a);
  Placed unitsA(a, oddA);
  Placed unitsB(b, oddB);
  RC_ASSERT(bx_strcmp(unitsA.At(), unitsB.At()) == ModelCompare(a, b, std::u16string::npos));
  RC_ASSERT(bx_strcmp(unitsB.At(), unitsA.At()) == -bx_strcmp(unitsA.At(), unitsB.At()));
}

RC_GTEST_PROP(BxStringModel, BoundedComparisonLooksAtNoMore, (bool oddA, bool oddB)) {
  const std::u16string a = *Text();
  const std::u16string b = *Relative(a);
  const std::size_t limit = *rc::gen::inRange<std::size_t>(0, a.size() + 3);
  Placed unitsA(a, oddA);
  Placed unitsB(b, oddB);
  RC_ASSERT(bx_strncmp(unitsA.At(), unitsB.At(), limit) == ModelCompare(a, b, limit));
}

RC_GTEST_PROP(BxStringModel, ATextIsFoundWhereItFirstStands, (bool oddA, bool oddB)) {
  const std::u16string haystack = *Text();
  const std::size_t from = *rc::gen::inRange<std::size_t>(0, haystack.size() + 1);
  const std::size_t count = *rc::gen::inRange<std::size_t>(0, 6);
  const std::u16string needle = *Relative(haystack.substr(from, count));
  Placed unitsA(haystack, oddA);
  Placed unitsB(needle, oddB);
  const std::size_t place = haystack.find(needle);
  RC_ASSERT(bx_strstr(unitsA.At(), unitsB.At()) == (place == std::u16string::npos ? nullptr : unitsA.At() + place));
}

RC_GTEST_PROP(BxStringModel, BoundedCopyWritesExactlyItsUnits, (bool oddA, bool oddB)) {
  const std::u16string text = *Text();
  const std::size_t count = *rc::gen::inRange<std::size_t>(0, text.size() + 40);
  std::u16string expected = text.substr(0, count);
  expected.resize(count, 0);
  Placed src(text, oddA);
  Placed dst(count, oddB);
  bx_strncpy(dst.At(), src.At(), count);
  RC_ASSERT(std::memcmp(dst.At(), expected.data(), count * sizeof(UniChar)) == 0);
}

RC_GTEST_PROP(BxStringModel, ATextCanBeCopiedOverItsOwnBeginning, (bool odd)) {
  const std::u16string text = *Text();
  const std::size_t dropped = *rc::gen::inRange<std::size_t>(0, text.size() + 1);
  Placed units(text, odd);
  bx_strcpy(units.At(), units.At() + dropped);
  RC_ASSERT(TextAt(units.At()) == text.substr(dropped));
}

RC_GTEST_PROP(BxStringModel, CopyAndAppendGiveTheWholeText, (bool oddA, bool oddB)) {
  const std::u16string a = *Text();
  const std::u16string b = *Text();
  Placed unitsA(a, oddA);
  Placed unitsB(b, oddB);
  Placed dst(a.size() + b.size() + 1, oddB);
  bx_strcpy(dst.At(), *rc::gen::arbitrary<std::size_t>(), unitsA.At());
  RC_ASSERT(TextAt(dst.At()) == a);
  bx_strcat(dst.At(), *rc::gen::arbitrary<std::size_t>(), unitsB.At());
  RC_ASSERT(TextAt(dst.At()) == a + b);
}

}  // namespace
