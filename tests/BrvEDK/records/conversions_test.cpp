// Conversions that no table uses: the kit supports them for tables to come.
#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "preffield.h"
#include "preffieldmap.h"

namespace {

constexpr int kOffset = 16;  // of the field in its record

PrefFieldMap LongField(PrefConversion conversion) {
  return {.legacy = {}, .fieldOffset = kOffset, .wordIndex = 1, .fieldSize = 4, .conversion = conversion};
}

std::uint32_t Loaded(PrefConversion conversion, const LegacyRecord& legacy) {
  std::array<std::uint8_t, 32> record{};
  LoadPrefField(LongField(conversion), legacy, record.data());
  std::uint32_t value;
  std::memcpy(&value, record.data() + kOffset, sizeof(value));
  return value;
}

// Whether the legacy record changed.
bool Store(std::uint32_t value, LegacyRecord& legacy) {
  std::array<std::uint8_t, 32> record{};
  std::memcpy(record.data() + kOffset, &value, sizeof(value));
  return StorePrefField(LongField(kPrefLowWordFirst), record.data(), legacy);
}

TEST(Conversion, OfALongCanTakeItsLowWordFirst) {
  LegacyRecord legacy = {9, 0x2222, 0x1111, 9, 9, 9};
  EXPECT_EQ(Loaded(kPrefLowWordFirst, legacy), 0x11112222u);
  EXPECT_TRUE(Store(0x33334444, legacy));
  EXPECT_EQ(std::to_array(legacy.words), (std::array<std::uint16_t, 6>{9, 0x4444, 0x3333, 9, 9, 9}));
  EXPECT_FALSE(Store(0x33334444, legacy));
}

TEST(Conversion, OfALongThatIsNoneLoadsZero) {
  const LegacyRecord legacy = {9, 0x2222, 0x1111, 9, 9, 9};
  for (const PrefConversion conversion : {kPrefWord, kPrefInverted, kPrefByte}) {
    EXPECT_EQ(Loaded(conversion, legacy), 0u) << conversion;
  }
}

}  // namespace

// The kit, which is linked in, has a main of its own: that of an extension.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
