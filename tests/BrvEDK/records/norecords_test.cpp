// A host that has no functions for records.
#include <gtest/gtest.h>

#include <array>

#include "hostbundle.h"
#include "legacyhost.h"

namespace {

TEST(WithoutTheHostsFunctions, PlainRecordsFailAndMappedOnesCountAsDone) {
  OpenHostBundle("EmptyHost");
  ASSERT_EQ(InitializeGlobals(), 0);
  EDataKey key{1, 0};
  std::array<std::uint8_t, 256> bytes{};
  std::int32_t size = 256;
  EXPECT_EQ(BX_LoadEData(Tag("SOMS"), &key, bytes.data(), &size, kBrvVersion), 0);
  EXPECT_EQ(BX_SaveEData(Tag("SOMS"), &key, bytes.data(), 30, kBrvVersion), 0);
  EXPECT_EQ(BX_SaveEData(Tag("pfDP"), &key, bytes.data(), 76, 0x07FFFFFF), 0);
  EXPECT_EQ(BX_LoadEData(Tag("pfDP"), &key, bytes.data(), &size, kBrvVersion), 1);
  EXPECT_EQ(size, 76);
  EXPECT_EQ(BX_LoadEData(Tag("pfGD"), &key, bytes.data(), &size, kBrvVersion), 1);
  EXPECT_EQ(size, 12);
  EXPECT_EQ(BX_SaveEData(Tag("pfDP"), &key, bytes.data(), 76, kBrvVersion), 1);
  EXPECT_EQ(BX_SaveEData(Tag("pfGD"), &key, bytes.data(), 12, kBrvVersion), 1);
  EXPECT_EQ(BX_CreateEData(Tag("pfGD"), &key, bytes.data(), 12, kBrvVersion), 0);
  size = 252;
  EXPECT_EQ(BX_LoadEData(0x4F156649, &key, bytes.data(), &size, kBrvVersion), 0);
}

}  // namespace
