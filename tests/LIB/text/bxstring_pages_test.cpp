// Each function on texts at the edge of a page whose neighbour cannot be read, at every alignment, odd ones included:
// reading one unit too many ends the program.
#include <gtest/gtest.h>

#include <vector>

#include "guardedpages.h"
#include "units.h"

namespace {

constexpr std::size_t kAlignments = 32;

std::u16string TextOfLength(std::size_t length) {
  std::u16string text;
  for (std::size_t i = 0; i < length; ++i) text.push_back(static_cast<char16_t>(u'a' + i % 23));
  return text;
}

// Short ones at every place of a block, long ones that cross from one page to the next.
std::vector<std::size_t> Lengths() {
  std::vector<std::size_t> lengths;
  for (std::size_t length = 0; length <= 70; ++length) lengths.push_back(length);
  for (const std::size_t length : {127, 1024, 2046, 2047, 2048, 2049, 2055, 3000}) lengths.push_back(length);
  return lengths;
}

template <class Check>
void AtEveryPlace(Check check) {
  for (const std::size_t length : Lengths()) {
    for (std::size_t gap = 0; gap < kAlignments; ++gap) {
      SCOPED_TRACE(testing::Message() << length << " units, " << gap << " bytes before the end of the page");
      check(TextOfLength(length), gap);
    }
  }
}

TEST(ReadsOnlyItsPages, Strlen) {
  const GuardedPages pages;
  AtEveryPlace([&](const std::u16string& text, std::size_t gap) {
    EXPECT_EQ(bx_strlen(pages.PutAtEnd(text, gap)), text.size());
    EXPECT_EQ(bx_strlen(pages.PutAtBegin(text, gap)), text.size());
  });
}

TEST(ReadsOnlyItsPages, Strchr) {
  const GuardedPages pages;
  AtEveryPlace([&](const std::u16string& text, std::size_t gap) {
    const UniChar* units = pages.PutAtEnd(text, gap);
    EXPECT_EQ(bx_strchr(units, u'#'), nullptr);
    EXPECT_EQ(bx_strchr(units, 0), units + text.size());
    const UniChar* first = pages.PutAtBegin(text, gap);
    EXPECT_EQ(bx_strchr(first, u'#'), nullptr);
  });
}

TEST(ReadsOnlyItsPages, StrchrOfTheLastUnit) {
  const GuardedPages pages;
  AtEveryPlace([&](const std::u16string& text, std::size_t gap) {
    const UniChar* units = pages.PutAtEnd(text + u'#', text.size() + 1, gap);
    EXPECT_EQ(bx_strchr(units, u'#'), units + text.size());
  });
}

TEST(ReadsOnlyItsPages, Strstr) {
  const GuardedPages pages;
  const GuardedPages needlePages;
  AtEveryPlace([&](const std::u16string& text, std::size_t gap) {
    const UniChar* units = pages.PutAtEnd(text + u"##", gap);
    EXPECT_EQ(bx_strstr(units, needlePages.PutAtEnd(u"##", gap)), units + text.size());
    EXPECT_EQ(bx_strstr(units, needlePages.PutAtEnd(u"###", gap)), nullptr);
    EXPECT_EQ(bx_strstr(units, needlePages.PutAtEnd(u"#", gap)), units + text.size());
    EXPECT_EQ(bx_strstr(units, needlePages.PutAtEnd(u"", gap)), units);
  });
}

TEST(ReadsOnlyItsPages, Strncpy) {
  const GuardedPages from;
  const GuardedPages to;
  AtEveryPlace([&](const std::u16string& text, std::size_t gap) {
    const std::size_t count = text.size() + 1;
    UniChar* dst = to.RoomAtEnd(count, 0);
    bx_strncpy(dst, from.PutAtEnd(text, gap), count);
    EXPECT_EQ(TextAt(dst), text);
  });
}

TEST(ReadsOnlyItsPages, StrncpyOfASourceWithoutEnd) {
  const GuardedPages from;
  const GuardedPages to;
  AtEveryPlace([&](const std::u16string& text, std::size_t gap) {
    UniChar* dst = to.RoomAtEnd(text.size(), gap);
    bx_strncpy(dst, from.PutAtEnd(text, text.size(), 0), text.size());
    EXPECT_EQ(std::memcmp(dst, text.data(), text.size() * sizeof(UniChar)), 0);
  });
}

TEST(ReadsOnlyItsPages, StrcpyAndStrcat) {
  const GuardedPages from;
  const GuardedPages to;
  AtEveryPlace([&](const std::u16string& text, std::size_t gap) {
    UniChar* dst = to.RoomAtEnd(text.size() + 1, 0);
    const UniChar* src = from.PutAtEnd(text, gap);
    bx_strcpy(dst, src);
    EXPECT_EQ(TextAt(dst), text);
    std::memset(dst, 0, sizeof(UniChar));
    bx_strcat(dst, 0, src);
    EXPECT_EQ(TextAt(dst), text);
  });
}

// Both texts at every alignment of their own.
template <class Check>
void AtEveryPairOfPlaces(Check check) {
  const GuardedPages pagesA;
  const GuardedPages pagesB;
  for (const std::size_t length : {0, 1, 7, 8, 9, 31, 32, 33, 40, 75, 2050}) {
    const std::u16string text = TextOfLength(length);
    for (std::size_t gapA = 0; gapA < 16; ++gapA) {
      const UniChar* a = pagesA.PutAtEnd(text, gapA);
      for (std::size_t gapB = 0; gapB < 16; ++gapB) {
        SCOPED_TRACE(testing::Message() << length << " units, " << gapA << " and " << gapB << " bytes before the end");
        check(a, text, pagesB, gapB);
      }
    }
  }
}

TEST(ReadsOnlyItsPages, Strcmp) {
  AtEveryPairOfPlaces([](const UniChar* a, const std::u16string& text, const GuardedPages& pages, std::size_t gap) {
    EXPECT_EQ(bx_strcmp(a, pages.PutAtEnd(text, gap)), 0);
    EXPECT_EQ(bx_strcmp(a, pages.PutAtEnd(text + u'x', gap)), -1);
    if (text.empty()) return;
    EXPECT_EQ(bx_strcmp(a, pages.PutAtEnd(text.substr(1), gap)), text.size() == 1 ? 1 : -1);
    EXPECT_EQ(bx_strcmp(a, pages.PutAtEnd(text.substr(0, text.size() - 1), gap)), 1);
  });
}

TEST(ReadsOnlyItsPages, StrncmpOfTextsWithoutEnd) {
  const GuardedPages pagesA;
  AtEveryPairOfPlaces([&](const UniChar*, const std::u16string& text, const GuardedPages& pages, std::size_t gap) {
    const UniChar* a = pagesA.PutAtEnd(text, text.size(), 0);
    EXPECT_EQ(bx_strncmp(a, pages.PutAtEnd(text, text.size(), gap), text.size()), 0);
    EXPECT_EQ(bx_strncmp(pages.PutAtEnd(text, gap), a, text.size()), 0);
  });
}

}  // namespace
