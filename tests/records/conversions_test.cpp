// Conversions that no table uses: the kit supports them for tables to come.
#include <gtest/gtest.h>

#include <array>

#include "legacyhost.h"
#include "preffieldmap.h"

namespace {

const Address kLegacy{Tag("ot13"), 0xFFFE, 0};  // of the first field of "pfPL", its word 1

class Conversion : public testing::Test {
 protected:
  void SetUp() override { saved_ = EDTPlaybackPrefs_MAP_ARRAY[0]; }
  void TearDown() override { EDTPlaybackPrefs_MAP_ARRAY[0] = saved_; }

  std::uint32_t Load() {
    BX_LoadEData(Tag("pfPL"), &key, record.data(), &size, kBrvVersion);
    std::uint32_t value;
    std::memcpy(&value, record.data() + 16, 4);
    return value;
  }
  void Save(std::uint32_t value) {
    std::memcpy(record.data() + 16, &value, 4);
    BX_SaveEData(Tag("pfPL"), &key, record.data(), 20, kBrvVersion);
  }

  LegacyHost host;
  EDataKey key{0, 0};
  std::array<std::uint8_t, 32> record{};
  std::int32_t size = 32;

 private:
  PrefFieldMap saved_;
};

TEST_F(Conversion, OfALongCanTakeItsLowWordFirst) {
  EDTPlaybackPrefs_MAP_ARRAY[0] = {0, {'1', '3'}, 0, 0, 16, 1, 4, kPrefLowWordFirst};
  host.At(kLegacy) = {9, 0x2222, 0x1111, 9, 9, 9};
  EXPECT_EQ(Load(), 0x11112222u);
  Save(0x33334444);
  EXPECT_EQ(host.At(kLegacy), (Words{9, 0x4444, 0x3333, 9, 9, 9}));
  host.saves.clear();
  Save(0x33334444);
  EXPECT_TRUE(host.saves.empty());
}

TEST_F(Conversion, OfALongThatIsNoneLoadsZero) {
  EDTPlaybackPrefs_MAP_ARRAY[0] = {0, {'1', '3'}, 0, 0, 16, 1, 4, kPrefWord};
  EXPECT_EQ(Load(), 0u);
}

}  // namespace

// The kit, which is linked in, has a main of its own: that of an extension.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
