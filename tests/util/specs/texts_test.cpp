// Raw text, its formatting tags, and the names of staves.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <limits>

#include "documentspecs.h"
#include "recordstore.h"
#include "tests/support/text.h"
#include "textblocks.h"

namespace {

using testing::ElementsAre;

std::u16string Stripped(std::u16string text) {
  BXUtilStripTextTags(reinterpret_cast<UniChar*>(text.data()));
  return text.c_str();
}

TEST(StripTextTags, RemovesTags) {
  EXPECT_EQ(Stripped(u"A^font(Times)B"), u"AB");
  EXPECT_EQ(Stripped(u"x^flat()y"), u"xby");
  EXPECT_EQ(Stripped(u"^size(12)^flat()"), u"b");
  EXPECT_EQ(Stripped(u"a^f(1(2))b"), u"a)b");
  EXPECT_EQ(Stripped(u"no carets (at all)"), u"no carets (at all)");
  EXPECT_EQ(Stripped(u""), u"");
  EXPECT_EQ(Stripped(u"^font text (x) rest"), u" rest") << "what is before the parenthesis is removed, too";
  EXPECT_EQ(Stripped(u"^a^b()c"), u"c");
  EXPECT_EQ(Stripped(u"^flat()^flat()^flat()"), u"bbb");
  EXPECT_EQ(Stripped(u"^flat(x)"), u"") << "only the empty one is a flat";
  EXPECT_EQ(Stripped(u"^f()(^g())"), u"()");
}

TEST(StripTextTags, DoesNotReturnFromACaretThatOpensNoWholeTag) {
  for (const char16_t* const text : {u"a^b", u"a^b(c", u"^"}) {
    EXPECT_EXIT(
        {
          alarm(1);
          Stripped(text);
          std::exit(0);
        },
        testing::KilledBySignal(SIGALRM), "");
  }
}

// Text of pieces, each plain or a whole tag, and what is left of it.
RC_GTEST_PROP(StrippedText, IsWhatStandsBetweenTheTags, ()) {
  std::u16string text;
  std::u16string expected;
  const auto word =
      rc::gen::container<std::u16string>(rc::gen::element<char16_t>(u'a', u'Z', u' ', u')', u'\u266D', u'0'));
  const auto inside = rc::gen::container<std::u16string>(rc::gen::element<char16_t>(u'a', u'^', u' ', u'(', u'1'));
  for (int pieces = *rc::gen::inRange(0, 8); pieces > 0; --pieces) {
    switch (*rc::gen::inRange(0, 3)) {
      case 0: {
        const std::u16string plain = *word;
        text += plain;
        expected += plain;
        break;
      }
      case 1:
        text += u"^flat()";
        expected += u"b";
        break;
      default:
        // A name that is not "flat", any argument without a closing parenthesis.
        text += u"^tag(" + *inside + u")";
        break;
    }
  }
  RC_ASSERT(Stripped(text) == expected);
}

class RawText : public testing::Test {
 protected:
  RecordStore store;
};

TEST_F(RawText, IsLoadedInTwoStepsAndEnded) {
  store.PutText(6, u"Flute");
  UniChar* const text = BXUtilLoadRawTextUTF16(6);
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(TextOf(text), u"Flute");
  BXUtilFreeRawText(text);
  EXPECT_THAT(store.requests, ElementsAre(Request{0x7478626C, 6, 0, 0, false, 0x19500000},
                                          Request{0x7478626C, 6, 0, 10, true, 0x19500000}));
}

TEST_F(RawText, MayBeEmpty) {
  store.PutText(6, u"");
  UniChar* const text = BXUtilLoadRawTextUTF16(6);
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text[0], 0);
  BXUtilFreeRawText(text);
}

TEST_F(RawText, IsNullWhenEitherStepFails) {
  EXPECT_EQ(BXUtilLoadRawTextUTF16(6), nullptr);
  store.host.On("BX_LoadEData", [](const HostCall& call) {
    *call.Pointer<std::int32_t>(3) = 10;
    return call.Pointer<void>(2) == nullptr ? 1u : 0u;
  });
  EXPECT_EQ(BXUtilLoadRawTextUTF16(6), nullptr);
  EXPECT_EQ(store.host.Count("BX_LoadEData"), 3);
}

// A host that gives one size without data and another with it.
TEST_F(RawText, EndsAfterTheSmallerOfTheTwoSizes) {
  struct Sizes {
    std::int32_t first;
    std::int32_t second;
    std::u16string text;
  };
  const std::vector<Sizes> cases = {{10, 6, u"Flu"}, {10, 7, u"Flu"}, {6, 10, u"Flu"}, {7, 10, u"Flu"},
                                    {10, 0, u""},    {0, 10, u""},    {10, -2, u""}};
  for (const Sizes& sizes : cases) {
    SCOPED_TRACE(std::to_string(sizes.first) + ", then " + std::to_string(sizes.second));
    store.host.On("BX_LoadEData", [&sizes](const HostCall& call) {
      auto* const data = call.Pointer<void>(2);
      if (data != nullptr) std::memcpy(data, u"Flute", static_cast<std::size_t>(sizes.first));
      *call.Pointer<std::int32_t>(3) = data == nullptr ? sizes.first : sizes.second;
      return 1u;
    });
    UniChar* const text = BXUtilLoadRawTextUTF16(6);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(TextOf(text), sizes.text);
    BXUtilFreeRawText(text);
  }
}

TEST_F(RawText, IsNullForASizeThatIsNone) {
  store.host.On("BX_LoadEData", [](const HostCall& call) {
    *call.Pointer<std::int32_t>(3) = -1;
    return 1u;
  });
  EXPECT_EQ(BXUtilLoadRawTextUTF16(6), nullptr);
}

TEST_F(RawText, IsNullWhereThereIsNoMemoryForIt) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer ends the program when memory runs out";
#endif
  store.host.On("BX_LoadEData", [](const HostCall& call) {
    *call.Pointer<std::int32_t>(3) = std::numeric_limits<std::int32_t>::max();
    return 1u;
  });
  rlimit before = {};
  ASSERT_EQ(getrlimit(RLIMIT_AS, &before), 0);
  const rlimit less = {std::numeric_limits<std::int32_t>::max(), before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_AS, &less), 0);
  EXPECT_EQ(BXUtilLoadRawTextUTF16(6), nullptr);
  EXPECT_EQ(setrlimit(RLIMIT_AS, &before), 0);
  EXPECT_EQ(store.host.Count("BX_LoadEData"), 1);
}

class StaffName : public RawText {
 protected:
  // The name in a buffer of 64 units that holds "old".
  std::u16string Name(int staff, int capacity = 64) {
    std::u16string buffer(64, u'\0');
    buffer.replace(0, 3, u"old");
    length = BXUtilGetStaffName(staff, 12345, reinterpret_cast<UniChar*>(buffer.data()), capacity);
    return buffer.c_str();
  }

  int length = -1;
};

TEST_F(StaffName, IsTheTextOfTheStaffsBlockWithoutTags) {
  store.PutStaff(2, 40, 41);
  store.PutTextBlock(40, 50);
  store.PutText(50, u"^font(Times)Clarinet in B^flat()");
  EXPECT_EQ(Name(2), u"Clarinet in Bb");
  EXPECT_EQ(length, 14);
  EXPECT_EQ(store.seenNewerData, RecordStore::Bytes(12, 0)) << "cleared before the load";
  EXPECT_EQ(store.requests.front(), (Request{0x534F4953, 2, 0, 136, true, 0x19500000}));
  EXPECT_EQ(store.requests[1], (Request{0x534F5458, 40, 0, 30, true, 0x19500000}));
}

TEST_F(StaffName, IsTheSecondOneWhereThereIsNoFirst) {
  store.PutStaff(2, 0, 41);
  store.PutTextBlock(41, 51);
  store.PutText(51, u"Cl.");
  EXPECT_EQ(Name(2), u"Cl.");
  EXPECT_EQ(length, 3);
}

TEST_F(StaffName, IsTheSecondOneWhereTheFirstDoesNotLoad) {
  store.PutStaff(2, 40, 41);
  store.PutTextBlock(40, 50);
  store.PutTextBlock(41, 51);
  store.PutText(51, u"Cl.");
  EXPECT_EQ(Name(2), u"Cl.") << "no raw text";
  store.PutStaff(3, 99, 41);
  EXPECT_EQ(Name(3), u"Cl.") << "no text block";
}

TEST_F(StaffName, IsEmptyWithoutEither) {
  EXPECT_EQ(Name(2), u"") << "no staff";
  EXPECT_EQ(length, 0);
  store.PutStaff(2, 0, 0);
  EXPECT_EQ(Name(2), u"");
  EXPECT_EQ(length, 0);
  store.PutStaff(2, 0, 41);
  EXPECT_EQ(Name(2), u"") << "no text block";
  store.PutTextBlock(41, 51);
  EXPECT_EQ(Name(2), u"") << "no raw text";
  EXPECT_EQ(length, 0);
}

TEST_F(StaffName, IsNeverThatOfATextBlock0) {
  store.PutTextBlock(0, 50);
  store.PutText(50, u"a document's own");
  store.PutStaff(2, 0, 0);
  EXPECT_EQ(Name(2), u"");
  store.PutStaff(3, 99, 0);
  EXPECT_EQ(Name(3), u"");
}

TEST_F(StaffName, NeedsABuffer) {
  store.PutStaff(2, 40, 0);
  EXPECT_EQ(BXUtilGetStaffName(2, 0, nullptr, 64), 0);
  EXPECT_TRUE(store.requests.empty());
}

TEST_F(StaffName, LeavesABufferOfNoCapacityAndCountsWhatItHolds) {
  store.PutStaff(2, 40, 0);
  store.PutTextBlock(40, 50);
  store.PutText(50, u"Horn");
  EXPECT_EQ(Name(2, 0), u"old");
  EXPECT_EQ(length, 3);
}

TEST_F(StaffName, IsCutAtTheCapacityAndCountedBeyond) {
  store.PutStaff(2, 40, 0);
  store.PutTextBlock(40, 50);
  store.PutText(50, u"Horn");
  EXPECT_EQ(Name(2, 2), u"Hod") << "what followed";
  EXPECT_EQ(length, 3);
}

}  // namespace
