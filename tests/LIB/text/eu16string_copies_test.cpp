// Copies and moves, of texts that the string holds in itself and of longer ones that have memory of their own.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <utility>

#include "eu16text.h"

namespace {

constexpr const char* kTexts[] = {"", "abc", "a text that is longer than what a string holds in itself",
                                  "another of that kind, and longer than the first of them, which is of that kind too"};

std::u16string Units(const char* text) { return std::u16string(text, text + std::strlen(text)); }

// Changes each unit of it and then its length.
void Spoil(eu16string& text) {
  for (int i = static_cast<int>(UnitsOf(text).size()); i > 0; --i) text.AnsiCharAtIndex(i) = '#';
  text.AnsiSetLength(1);
}

template <class Check>
void WithEveryPair(Check check) {
  for (const char* const before : kTexts) {
    for (const char* const after : kTexts) {
      SCOPED_TRACE(testing::Message() << '"' << before << "\" becomes \"" << after << '"');
      check(before, after);
    }
  }
}

TEST(Eu16StringCopy, IsTheSameTextAndIndependent) {
  for (const char* const text : kTexts) {
    eu16string original = text;
    eu16string copy = original;
    EXPECT_EQ(UnitsOf(copy), Units(text));
    Spoil(original);
    EXPECT_EQ(UnitsOf(copy), Units(text));
    const eu16string copyOfCopy = copy;
    Spoil(copy);
    EXPECT_EQ(UnitsOf(copyOfCopy), Units(text));
  }
}

TEST(Eu16StringCopy, OutlivesItsOriginal) {
  for (const char* const text : kTexts) {
    auto original = std::make_unique<eu16string>(text);
    const eu16string copy = *original;
    eu16string assigned = "before";
    assigned = *original;
    original.reset();
    EXPECT_EQ(UnitsOf(copy), Units(text));
    EXPECT_EQ(UnitsOf(assigned), Units(text));
  }
}

TEST(Eu16StringCopy, ReplacesWhatItIsAssignedTo) {
  WithEveryPair([](const char* before, const char* after) {
    eu16string text = before;
    eu16string other = after;
    EXPECT_EQ(&(text = other), &text);
    EXPECT_EQ(UnitsOf(text), Units(after));
    EXPECT_EQ(UnitsOf(other), Units(after));
    Spoil(other);
    EXPECT_EQ(UnitsOf(text), Units(after));
  });
}

TEST(Eu16StringCopy, KeepsATextThatIsAssignedToItself) {
  for (const char* const units : kTexts) {
    eu16string text = units;
    const eu16string& itself = text;
    EXPECT_EQ(&(text = itself), &text);
    EXPECT_EQ(UnitsOf(text), Units(units));
  }
}

TEST(Eu16StringCopy, KeepsUnitsOfZero) {
  eu16string text = "abcdefghij";
  text.AnsiCharAtIndex(3) = 0;
  const std::u16string units(u"ab\0defghij", 10);
  const eu16string copy = text;
  EXPECT_EQ(UnitsOf(copy), units);
  eu16string assigned = "";
  assigned = text;
  EXPECT_EQ(UnitsOf(assigned), units);
  const eu16string moved = std::move(text);
  EXPECT_EQ(UnitsOf(moved), units);
}

TEST(Eu16StringMove, TakesTheText) {
  for (const char* const text : kTexts) {
    eu16string original = text;
    const eu16string moved = std::move(original);
    EXPECT_EQ(UnitsOf(moved), Units(text));
    original = "again";
    EXPECT_EQ(UnitsOf(original), u"again");
    EXPECT_EQ(UnitsOf(moved), Units(text));
  }
}

TEST(Eu16StringMove, ReplacesWhatItIsAssignedTo) {
  WithEveryPair([](const char* before, const char* after) {
    eu16string text = before;
    eu16string other = after;
    EXPECT_EQ(&(text = std::move(other)), &text);
    EXPECT_EQ(UnitsOf(text), Units(after));
    other = "again";
    EXPECT_EQ(UnitsOf(other), u"again");
    EXPECT_EQ(UnitsOf(text), Units(after));
  });
}

// A text of some length is not copied: its units stay where they are.
TEST(Eu16StringMove, HandsOnTheMemoryOfALongText) {
  eu16string original = kTexts[3];
  const UniChar* const units = &original.AnsiCharAtIndex(1);
  eu16string moved = std::move(original);
  EXPECT_EQ(&moved.AnsiCharAtIndex(1), units);
  eu16string assigned = "before";
  assigned = std::move(moved);
  EXPECT_EQ(&assigned.AnsiCharAtIndex(1), units);
}

}  // namespace
