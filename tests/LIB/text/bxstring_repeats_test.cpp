// Long texts of one repeated unit: what is found, or differs between two, is at one place, which may be any.
#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

#include "guardedpages.h"
#include "units.h"

namespace {

// Around one and four blocks of units, and well beyond.
constexpr std::size_t kLengths[] = {1, 9, 32, 33, 34, 65, 100};
// In bytes from the start of a page: at its start, at odd addresses, and before its end, where texts cross to the
// next.
constexpr std::size_t kPlaces[] = {0, 1, 6, 4096 - 200, 4096 - 33, 4096 - 2};

std::u16string Repeated(std::size_t length) { return std::u16string(length, u'a'); }

std::u16string RepeatedBut(std::size_t length, std::size_t place, char16_t unit) {
  std::u16string text = Repeated(length);
  text[place] = unit;
  return text;
}

// Passes on two texts in memory, the first all of one unit, the second with another unit at one place, and the result
// of comparing them.
template <class Check>
void WithOneDifference(Check check) {
  const GuardedPages pagesA;
  const GuardedPages pagesB;
  for (const std::size_t placeA : kPlaces) {
    for (const std::size_t length : kLengths) {
      const UniChar* a = pagesA.PutAtBegin(Repeated(length), placeA);
      for (const std::size_t placeB : kPlaces) {
        for (std::size_t at = 0; at < length; ++at) {
          for (const auto& [unit, expected] : {std::pair{u'b', -1}, {u'\xFFFF', -1}, {u'\x1', 1}, {u'\0', 1}}) {
            SCOPED_TRACE(testing::Message() << length << " units at " << placeA << " and " << placeB << ", unit "
                                            << static_cast<int>(unit) << " at " << at);
            check(a, pagesB.PutAtBegin(RepeatedBut(length, at, unit), placeB), at, expected);
          }
        }
      }
    }
  }
}

TEST(RepeatedUnits, CompareByTheOneThatDiffers) {
  WithOneDifference([](const UniChar* a, const UniChar* b, std::size_t, int expected) {
    EXPECT_EQ(bx_strcmp(a, b), expected);
    EXPECT_EQ(bx_strcmp(b, a), -expected);
  });
}

TEST(RepeatedUnits, AreEqualUpToALimitThatIsWhereTheyFirstDiffer) {
  WithOneDifference([](const UniChar* a, const UniChar* b, std::size_t at, int) {
    EXPECT_EQ(bx_strncmp(a, b, at), 0);
    EXPECT_EQ(bx_strncmp(b, a, at), 0);
  });
}

TEST(RepeatedUnits, DifferFromALimitOfOneUnitMoreOn) {
  WithOneDifference([](const UniChar* a, const UniChar* b, std::size_t at, int expected) {
    for (const std::size_t limit : {at + 1, at + 2, at + 40, std::numeric_limits<std::size_t>::max()}) {
      EXPECT_EQ(bx_strncmp(a, b, limit), expected) << limit;
      EXPECT_EQ(bx_strncmp(b, a, limit), -expected) << limit;
    }
  });
}

// Passes on a text in memory that is all of one unit but for one.
template <class Check>
void WithOneOther(char16_t other, Check check) {
  const GuardedPages pages;
  for (const std::size_t place : kPlaces) {
    for (const std::size_t length : kLengths) {
      for (std::size_t at = 0; at < length; ++at) {
        SCOPED_TRACE(testing::Message() << length << " units at " << place << ", another at " << at);
        const std::u16string text = RepeatedBut(length, at, other);
        check(text, pages.PutAtBegin(text, place));
      }
    }
  }
}

const UniChar* Expected(const UniChar* units, std::size_t place) {
  return place == std::u16string::npos ? nullptr : units + place;
}

TEST(RepeatedUnits, AreSearchedForAUnit) {
  for (const char16_t other : {u'b', u'\x1', u'\x61FF', u'\xFF61', u'\xFFFF'}) {
    WithOneOther(other, [=](const std::u16string& text, const UniChar* units) {
      EXPECT_EQ(bx_strlen(units), text.size());
      EXPECT_EQ(bx_strchr(units, other), Expected(units, text.find(other)));
      EXPECT_EQ(bx_strchr(units, u'a'), Expected(units, text.find(u'a')));
      EXPECT_EQ(bx_strchr(units, u'c'), nullptr);
      EXPECT_EQ(bx_strchr(units, 0), units + text.size());
    });
  }
}

TEST(RepeatedUnits, AreSearchedForUnitsOfTheSameKind) {
  const GuardedPages pages;
  WithOneOther(u'b', [&](const std::u16string& text, const UniChar* units) {
    for (const std::size_t count : {1, 2, 3, 8, 9, 33, 40, 99}) {
      const std::u16string needle = Repeated(count);
      EXPECT_EQ(bx_strstr(units, pages.PutAtBegin(needle, 0)), Expected(units, text.find(needle))) << count;
    }
  });
}

TEST(RepeatedUnits, AreSearchedForTheOneThatDiffersAmongOthers) {
  const GuardedPages pages;
  WithOneOther(u'b', [&](const std::u16string& text, const UniChar* units) {
    for (const std::size_t count : {1, 2, 8, 9, 33, 40}) {
      for (const std::size_t at : {std::size_t{0}, std::size_t{1}, count / 2, count - 1}) {
        if (at >= count) continue;
        const std::u16string needle = RepeatedBut(count, at, u'b');
        EXPECT_EQ(bx_strstr(units, pages.PutAtBegin(needle, 1)), Expected(units, text.find(needle))) << needle.size();
        const std::u16string absent = RepeatedBut(count, at, u'c');
        EXPECT_EQ(bx_strstr(units, pages.PutAtBegin(absent, 1)), nullptr) << absent.size();
      }
    }
  });
}

}  // namespace
