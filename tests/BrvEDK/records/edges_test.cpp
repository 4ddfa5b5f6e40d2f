// What is peculiar to single records, versions and tags.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "legacyhost.h"
#include "recordtag.h"
#include "tests/support/assertions.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kFretInstrument = 0x4F156649;
const Address kArticulation{Tag("ot12"), 0xFFFE, 0};  // its word 5 is the byte at offset 28 of "pfSS"
const Address kTruth{Tag("ot36"), 0xFFFE, 0};         // its word 1, inverted, is the field at offset 12 of "pfMS"

TEST(RecordTag, HasItsFirstCharacterInTheMostSignificantByte) {
  char text[] = "pfDP";
  EXPECT_EQ(RecordTag(text), 0x70664450u);
}

class Records : public testing::Test {
 protected:
  LegacyHost host;
  EDataKey key{0, 0};
  std::array<std::uint8_t, 256> bytes{};
  std::int32_t size = 256;
};

TEST_F(Records, OfSmartShapesReportNinetySixBytesAndFillOneHundredAndEight) {
  bytes.fill(0xA5);
  EXPECT_EQ(BX_LoadEData(Tag("pfSS"), &key, bytes.data(), &size, kBrvVersion), 1);
  EXPECT_EQ(size, 96);
  std::uint16_t last;
  std::memcpy(&last, bytes.data() + 106, 2);
  EXPECT_EQ(last, WordAt({Tag("ot97"), 0xFFFE, 1}, 3));
  EXPECT_EQ(bytes[108], 0xA5);
}

TEST_F(Records, OfPageFormatsGoByTheirNumber) {
  EXPECT_EQ(BX_LoadEData(Tag("pfPF"), &key, bytes.data(), &size, kBrvVersion), 1);
  EXPECT_EQ(host.loads.front(), Address(Tag("ot14"), 0xFFFE, 0));
  EXPECT_EQ(size, 48);
  host.loads.clear();
  key.recordNumber = 1;
  EXPECT_EQ(BX_LoadEData(Tag("pfPF"), &key, bytes.data(), &size, kBrvVersion), 1);
  EXPECT_EQ(host.loads.size(), 4u);
  EXPECT_EQ(host.loads.back(), Address(Tag("ot77"), 0xFFFE, 3));
  EXPECT_EQ(size, 48);
  key.recordNumber = 2;
  EXPECT_EQ(BX_LoadEData(Tag("pfPF"), &key, bytes.data(), &size, kBrvVersion), 0);
}

TEST_F(Records, WithoutAKeyAreThoseOfNumberZero) {
  EXPECT_EQ(BX_LoadEData(Tag("pfPF"), nullptr, bytes.data(), &size, kBrvVersion), 1);
  EXPECT_EQ(host.loads.front(), Address(Tag("ot14"), 0xFFFE, 0));
  EXPECT_EQ(size, 48);
}

TEST_F(Records, OfDistancesAreSavedFromSeventyTwoBytes) {
  EXPECT_EQ(BX_SaveEData(Tag("pfDP"), &key, bytes.data(), 72, kBrvVersion), 1);
  EXPECT_EQ(BX_SaveEData(Tag("pfDP"), &key, bytes.data(), 71, kBrvVersion), 0);
}

TEST_F(Records, WriteAByteFrom128UpBackAsANegativeNumber) {
  host.At(kArticulation)[5] = 0x00FF;
  BX_LoadEData(Tag("pfSS"), &key, bytes.data(), &size, kBrvVersion);
  EXPECT_EQ(bytes[28], 255);
  EXPECT_EQ(bytes[29], 0);
  BX_SaveEData(Tag("pfSS"), &key, bytes.data(), 96, kBrvVersion);
  EXPECT_EQ(host.At(kArticulation)[5], 0xFFFF);
  bytes[28] = 200;
  BX_SaveEData(Tag("pfSS"), &key, bytes.data(), 96, kBrvVersion);
  EXPECT_EQ(host.At(kArticulation)[5], 0xFFC8);
  host.saves.clear();
  BX_LoadEData(Tag("pfSS"), &key, bytes.data(), &size, kBrvVersion);
  EXPECT_EQ(bytes[28], 200);
  BX_SaveEData(Tag("pfSS"), &key, bytes.data(), 96, kBrvVersion);
  EXPECT_THAT(host.saves, testing::Contains(kArticulation)) << "it counts as changed each time";
}

TEST_F(Records, HaveNothingInTheHighByteOfAByte) {
  host.At(kArticulation)[5] = 0xAB42;
  BX_LoadEData(Tag("pfSS"), &key, bytes.data(), &size, kBrvVersion);
  EXPECT_EQ(bytes[28], 0x42);
  EXPECT_EQ(bytes[29], 0);
  bytes[29] = 0x7F;
  BX_SaveEData(Tag("pfSS"), &key, bytes.data(), 96, kBrvVersion);
  EXPECT_THAT(host.saves, testing::Not(testing::Contains(kArticulation))) << "the low bytes are alike";
  EXPECT_EQ(host.At(kArticulation)[5], 0xAB42);
  bytes[28] = 0x43;
  BX_SaveEData(Tag("pfSS"), &key, bytes.data(), 96, kBrvVersion);
  EXPECT_EQ(host.At(kArticulation)[5], 0x0043);
  bytes[28] = 0x80;
  BX_SaveEData(Tag("pfSS"), &key, bytes.data(), 96, kBrvVersion);
  EXPECT_EQ(host.At(kArticulation)[5], 0xFF80);
}

TEST_F(Records, CompareATruthValueAsItStands) {
  std::uint16_t& word = host.At(kTruth)[1];
  const auto save = [&](std::uint16_t value, std::uint16_t over) {
    word = 0;
    BX_LoadEData(Tag("pfMS"), &key, bytes.data(), &size, kBrvVersion);
    std::memcpy(bytes.data() + 12, &value, sizeof(value));
    word = over;
    host.saves.clear();
    BX_SaveEData(Tag("pfMS"), &key, bytes.data(), 104, kBrvVersion);
    return std::count(host.saves.begin(), host.saves.end(), kTruth);
  };
  EXPECT_EQ(save(1, 0), 0);
  EXPECT_EQ(save(2, 0), 1) << "true as it was, but not by the same number";
  EXPECT_EQ(word, 0);
  EXPECT_EQ(save(0x0100, 5), 1);
  EXPECT_EQ(word, 0);
  EXPECT_EQ(save(0, 5), 0);
  EXPECT_EQ(word, 5) << "any word but 0 is false";
  EXPECT_EQ(save(0, 0), 1);
  EXPECT_EQ(word, 1);
}

TEST_F(Records, AreSavedUnmappedForVersionsBefore0x08000000) {
  BX_SaveEData(Tag("pfDP"), &key, bytes.data(), 12, 0x07FFFFFF);
  EXPECT_THAT(host.saves, ElementsAre(Address(Tag("pfDP"), 0, 0)));
  EXPECT_THAT(host.saveVersions, ElementsAre(0x07FFFFFF));
  EXPECT_THAT(host.loads, IsEmpty());
  BX_SaveEData(Tag("pfSN"), &key, bytes.data(), 12, 0x07FFFFFF);
  EXPECT_EQ(host.saves.back(), Address(Tag("pfSN"), 0, 0)) << "a number that the mapping refuses";
}

TEST_F(Records, AreSavedMappedFrom0x08000000On) {
  for (const std::uint32_t version : {0x08000000u, 0x19500000u}) {
    host.saves.clear();
    BX_SaveEData(Tag("pfGD"), &key, bytes.data(), 12, version);
    EXPECT_THAT(host.saves, ElementsAre(Address(Tag("ot79"), 0xFFFE, 0)));
  }
}

TEST_F(Records, AreLoadedMappedWhateverTheVersion) {
  for (const std::uint32_t version : {0x07FFFFFFu, 0x08000000u, 0x19500000u}) {
    host.loads.clear();
    size = 256;
    EXPECT_EQ(BX_LoadEData(Tag("pfGD"), &key, bytes.data(), &size, version), 1);
    EXPECT_THAT(host.loads, ElementsAre(Address(Tag("ot79"), 0xFFFE, 0)));
    EXPECT_EQ(host.loadVersions.back(), version);
  }
}

TEST_F(Records, OfOtherTagsPassUnchanged) {
  key = {3, 4};
  host.host.On("BX_LoadEData", [this](const HostCall& call) {
    EXPECT_EQ(call.Pointer<EDataKey>(1), &key);
    EXPECT_EQ(call.Pointer<void>(2), bytes.data());
    EXPECT_EQ(call.Pointer<std::int32_t>(3), &size);
    return std::uint64_t{0x10007};
  });
  EXPECT_EQ(BX_LoadEData(Tag("SOMS"), &key, bytes.data(), &size, 5), 7);
  host.host.Answer("BX_SaveEData", 0xFFFF);
  EXPECT_EQ(BX_SaveEData(Tag("SOMS"), &key, bytes.data(), 30, kBrvVersion), -1);
}

TEST_F(Records, ForwardTheFourPlainCalls) {
  host.host.Answer("BX_CreateEData", 0x20001);
  EXPECT_EQ(BX_CreateEData(Tag("pfDP"), &key, bytes.data(), 12, kBrvVersion), 1);
  BX_DeleteEData(Tag("pfDP"), &key, kBrvVersion);
  BX_PreviousEData(Tag("pfDP"), &key, bytes.data(), 12, kBrvVersion);
  BX_NextEData(Tag("pfDP"), &key, bytes.data(), 12, kBrvVersion);
  EXPECT_THAT(host.host.Names(), ElementsAre("BX_CreateEData", "BX_DeleteEData", "BX_PreviousEData", "BX_NextEData"));
}

class FretInstrument : public Records {
 protected:
  void SetUp() override {
    size = 252;
    bytes.fill(0xA5);
  }
  int Load() { return BX_LoadEData(kFretInstrument, &key, bytes.data(), &size, kBrvVersion); }
};

TEST_F(FretInstrument, IsLoadedTwiceOnSuccess) {
  int calls = 0;
  host.host.On("BX_LoadEData", [&](const HostCall&) { return ++calls == 1 ? 1u : 42u; });
  EXPECT_EQ(Load(), 42);
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(bytes[251], 0) << "cleared";
  EXPECT_EQ(bytes[252], 0xA5);
}

TEST_F(FretInstrument, IsLoadedWhenAnyByteCameDespiteAFailure) {
  host.host.On("BX_LoadEData", [this](const HostCall&) {
    bytes[251] = 1;
    return 0u;
  });
  EXPECT_EQ(Load(), 1);
  EXPECT_EQ(host.host.Count("BX_LoadEData"), 1);
}

TEST_F(FretInstrument, IsNotLoadedWhenNoByteCame) {
  host.host.Answer("BX_LoadEData", 0);
  EXPECT_EQ(Load(), 0);
  EXPECT_EQ(host.host.Count("BX_LoadEData"), 1);
}

TEST_F(FretInstrument, AsksTheHostOnceForItsSize) {
  host.host.Answer("BX_LoadEData", 1);
  EXPECT_EQ(BX_LoadEData(kFretInstrument, &key, nullptr, &size, kBrvVersion), 1);
  EXPECT_EQ(host.host.Count("BX_LoadEData"), 1);
}

TEST_F(FretInstrument, HasToHaveRoom) {
  size = 251;
  EXPECT_DEATH(Load(), testing::StrEq(AssertionMessage("BX_LoadEData", "BrvEDK/Source/brevixpdk:1442",
                                                       "*size >= sizeof(EDTFretInstrument25_3)")));
}

TEST_F(FretInstrument, TakesANegativeRoomForALargeOne) {
  size = -1;
  host.host.Answer("BX_LoadEData", 1);
  EXPECT_EQ(Load(), 1);
}

}  // namespace
