// The keyboard, the selection, and division.
#include <brvplatform.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <set>

#include "keyboard.h"
#include "moddiv.h"
#include "recordinghost.h"
#include "regions.h"

namespace {

TEST(KbdUtilKeyIsDown, ReadsEachKeyOfTheMap) {
  for (int key = 0; key < 128; ++key) {
    BrvPlatformSetKeyDown(static_cast<unsigned char>(key), true);
    for (int other = 0; other < 128; ++other) {
      EXPECT_EQ(KbdUtilKeyIsDown(static_cast<char>(other)), other == key ? 1 : 0) << key << " " << other;
    }
    BrvPlatformSetKeyDown(static_cast<unsigned char>(key), false);
  }
}

TEST(KbdUtilKeyIsDown, KnowsNoKeysFrom128Up) {
  BrvPlatformSetKeyDown(0, true);
  for (int key = 128; key < 256; ++key) EXPECT_EQ(KbdUtilKeyIsDown(static_cast<char>(key)), 0) << key;
  BrvPlatformSetKeyDown(0, false);
}

TEST(KbdUtilKeyIsDown, IsNotMovedByKeysThatThereAreNot) {
  for (int key = 128; key < 256; ++key) BrvPlatformSetKeyDown(static_cast<unsigned char>(key), true);
  for (int key = 0; key < 128; ++key) EXPECT_EQ(KbdUtilKeyIsDown(static_cast<char>(key)), 0) << key;
  EXPECT_EQ(BrvPlatformModifierFlags(), 0u);
}

// A caller may leave anything above the low bits of a register.
int KeyIsDownByRegister(std::uint64_t keyCode) {
  void* const function = reinterpret_cast<void*>(&KbdUtilKeyIsDown);
  return reinterpret_cast<int (*)(std::uint64_t)>(function)(keyCode);
}

TEST(KbdUtilKeyIsDown, ReadsTheLowEightBitsOfAKeyCode) {
  constexpr std::uint64_t kAbove[] = {0x100, 0x8000, 0x7FFF'FF00, 0xFFFF'FF00, 0xA5C3'0000'0000'0000};
  BrvPlatformSetKeyDown(47, true);
  BrvPlatformSetKeyDown(127, true);
  for (const std::uint64_t above : kAbove) {
    EXPECT_EQ(KeyIsDownByRegister(above | 47), 1) << std::hex << above;
    EXPECT_EQ(KeyIsDownByRegister(above | 46), 0) << std::hex << above;
    EXPECT_EQ(KeyIsDownByRegister(above | 127), 1) << std::hex << above;
    EXPECT_EQ(KeyIsDownByRegister(above | 128 | 47), 0) << std::hex << above;
    EXPECT_EQ(KeyIsDownByRegister(above | 255), 0) << std::hex << above;
  }
  BrvPlatformSetKeyDown(127, false);
  BrvPlatformSetKeyDown(47, false);
}

TEST(EventUtilCancelInQueue, WantsCommandAndPeriod) {
  EXPECT_FALSE(EventUtilCancelInQueue());
  BrvPlatformSetKeyDown(47, true);
  EXPECT_FALSE(EventUtilCancelInQueue());
  BrvPlatformSetModifierFlags(0x120000);
  EXPECT_TRUE(EventUtilCancelInQueue());
  BrvPlatformSetKeyDown(47, false);
  EXPECT_FALSE(EventUtilCancelInQueue());
  BrvPlatformSetModifierFlags(0);
}

struct Division {
  short quotient;
  short remainder;
};

Division Divide(int value, int divisor) {
  Division result = {};
  UtilModDiv(value, divisor, &result.remainder, &result.quotient);
  return result;
}

TEST(UtilModDiv, CorrectsByTheSignOfTheRemainder) {
  EXPECT_EQ(Divide(-7, 3).quotient, -3);
  EXPECT_EQ(Divide(-7, 3).remainder, 2);
  EXPECT_EQ(Divide(7, 3).quotient, 2);
  EXPECT_EQ(Divide(7, 3).remainder, 1);
  EXPECT_EQ(Divide(-7, -3).quotient, 1);
  EXPECT_EQ(Divide(-7, -3).remainder, -4);
  EXPECT_EQ(Divide(7, -3).quotient, -2);
  EXPECT_EQ(Divide(7, -3).remainder, 1);
}

TEST(UtilModDiv, IsFlooredDivisionForPositiveDivisors) {
  for (int value = -32768; value <= 32767; value += 7) {
    for (const int divisor : {1, 2, 7, 12, 255, 32767}) {
      const Division result = Divide(value, divisor);
      EXPECT_EQ(result.quotient, std::floor(static_cast<double>(value) / divisor)) << value << " by " << divisor;
      EXPECT_EQ(result.quotient * divisor + result.remainder, value);
    }
  }
}

TEST(UtilModDiv, ReadsTheLowSixteenBits) {
  EXPECT_EQ(Divide(0x12340007, 0x56780003).quotient, 2);
  EXPECT_EQ(Divide(0xFFFF, 2).remainder, 1);
  EXPECT_EQ(Divide(0xFFFF, 2).quotient, -1);
}

class Regions : public testing::Test {
 protected:
  static constexpr std::size_t kHostRecordSize = 64;

  void SetUp() override {
    host_.On("BX_GetCurERegions", [](const HostCall& call) -> std::uint64_t {
      // A host whose own records are longer than the part that the kit knows.
      std::memset(call.Pointer<void>(0), 0xEE, kHostRecordSize);
      call.Pointer<EREGION>(1)->startStaff = 22;
      call.Pointer<EREGION>(2)->startStaff = 11;
      return 0x10005;
    });
  }

  RecordingHost host_;
};

TEST_F(Regions, AreFilledByTheHost) {
  EREGION first = {};
  EREGION second = {};
  EXPECT_EQ(GetRegions(&first, &second), 5);
  EXPECT_EQ(first.startStaff, 11);
  EXPECT_EQ(second.startStaff, 22);
}

TEST_F(Regions, AreAskedForWithTheSecondBeforeTheFirst) {
  EREGION first = {};
  EREGION second = {};
  GetRegions(&first, &second);
  ASSERT_EQ(host_.Calls().size(), 1u);
  const HostCall& call = host_.Calls()[0];
  EXPECT_EQ(call.name, "BX_GetCurERegions");
  EXPECT_EQ(call.Pointer<EREGION>(1), &second);
  EXPECT_EQ(call.Pointer<EREGION>(2), &first);
  EXPECT_EQ(call.arguments[3], 0x19500000u);
}

TEST_F(Regions, GiveTheHostThreeRecordsWhateverIsLeftOut) {
  GetRegions(nullptr, nullptr);
  ASSERT_EQ(host_.Calls().size(), 1u);
  const HostCall& call = host_.Calls()[0];
  const std::set<std::uint64_t> records(call.arguments.begin(), call.arguments.begin() + 3);
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records.count(0), 0u);
  EXPECT_GE(*std::next(records.begin()) - *records.begin(), kHostRecordSize);
  EXPECT_GE(*records.rbegin() - *std::next(records.begin()), kHostRecordSize);
}

TEST_F(Regions, ReturnTheHostsResultAsSixteenBits) {
  host_.Answer("BX_GetCurERegions", 0x12348001);
  EXPECT_EQ(GetRegions(nullptr, nullptr), -32767);
}

TEST_F(Regions, MayBeLeftOut) {
  EREGION region = {};
  EXPECT_EQ(GetRegions(&region, nullptr), 5);
  EXPECT_EQ(region.startStaff, 11);
  EXPECT_EQ(GetRegions(nullptr, &region), 5);
  EXPECT_EQ(region.startStaff, 22);
  EXPECT_EQ(GetRegions(nullptr, nullptr), 5);
}

}  // namespace
