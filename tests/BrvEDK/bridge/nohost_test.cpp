// A host that exports none of the functions.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "brevixpdk.h"
#include "calltable.h"
#include "hostbundle.h"
#include "recordinghost.h"

namespace {

using testing::Pair;

void BindEmptyHost() {
  ASSERT_NE(OpenHostBundle("EmptyHost"), nullptr);
  ASSERT_EQ(InitializeGlobals(), 0);
  ASSERT_EQ(GetBrevixBundleRef(), OpenHostBundle("EmptyHost"));
}

// The register of the result.
std::uint64_t Call(const DocumentedCall& call) {
  BrevixEditDepth = 1;
  std::uint8_t memory[64] = {};
  std::vector<std::uint64_t> registers;
  for (const std::string& type : call.arguments) {
    registers.push_back(type == "ptr" ? reinterpret_cast<std::uint64_t>(memory) : 1);
  }
  registers.push_back(kBrvVersion);
  return CallWithRegisters(KitFunction(call.name), registers);
}

class WithoutHostFunctions : public testing::TestWithParam<DocumentedCall> {
 protected:
  static void SetUpTestSuite() { BindEmptyHost(); }
};

TEST_P(WithoutHostFunctions, EachCallReturnsItsDefault) {
  if (GetParam().name == "BX_CancelBrevixEdit") GTEST_SKIP() << "it has no result";
  const std::uint64_t result = Call(GetParam());
  if (GetParam().result == "as host" && GetParam().defaultResult == 0) {
    EXPECT_EQ(result, 0u);
  } else {
    EXPECT_EQ(static_cast<int>(result), GetParam().defaultResult);
  }
}

std::string NameOf(const testing::TestParamInfo<DocumentedCall>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(All, WithoutHostFunctions, testing::ValuesIn(DocumentedCalls()), NameOf);

class Defaults : public testing::Test {
 protected:
  static void SetUpTestSuite() { BindEmptyHost(); }
};

// A result of sixteen bits is read as -1 with sixteen bits and with 32, as is one of 32. Of what a caller might read
// above those, nothing is promised.
TEST_F(Defaults, OtherThanZeroAreTheseAndInTheseClasses) {
  std::map<std::string, std::uint32_t> others;
  for (const DocumentedCall& call : DocumentedCalls()) {
    if (call.name == "BX_CancelBrevixEdit") continue;
    const auto low = static_cast<std::uint32_t>(Call(call));
    if (low != 0) others[call.name] = low;
  }
  EXPECT_THAT(others, testing::UnorderedElementsAre(
                          Pair("BX_GetMaxLayers", 4u), Pair("BX_FontNameToNum", 0xFFFFFFFFu),
                          Pair("BX_FontNameToNum_UTF16", 0xFFFFFFFFu), Pair("BX_GetCurrentPartID", 0xFFFFFFFFu),
                          Pair("BX_GetNextPartID", 0xFFFFFFFFu), Pair("BX_GetPlaybackSystem", 0xFFFFFFFFu),
                          Pair("BX_ProcessMidiData", 0xFFFFFFFFu), Pair("BX_ProcessMidiDataNoSplit", 0xFFFFFFFFu),
                          Pair("BX_CountParts", 0xFFFFFFFFu), Pair("BX_GetTextEncoding", 0xFFFFFFFEu)));
}

TEST_F(Defaults, AreNegativeNumbersToACaller) {
  EXPECT_EQ(BX_FontNameToNum(nullptr, kBrvVersion), -1);
  EXPECT_EQ(BX_FontNameToNum_UTF16(nullptr, kBrvVersion), -1);
  EXPECT_EQ(BX_GetCurrentPartID(kBrvVersion), -1);
  EXPECT_EQ(BX_GetNextPartID(1, kBrvVersion), -1);
  EXPECT_EQ(BX_GetPlaybackSystem(kBrvVersion), -1);
  EXPECT_EQ(BX_ProcessMidiData(nullptr, kBrvVersion), -1);
  EXPECT_EQ(BX_ProcessMidiDataNoSplit(nullptr, kBrvVersion), -1);
  EXPECT_EQ(BX_CountParts(kBrvVersion), -1);
  EXPECT_EQ(BX_GetTextEncoding(kBrvVersion), -2);
}

// What only the host knows is passed on with all 64 bits; the functions with a default of 32 bits return 32.
static_assert(std::is_same_v<decltype(BX_ProcessMidiData(nullptr, 0)), int32>);
static_assert(std::is_same_v<decltype(BX_ProcessMidiDataNoSplit(nullptr, 0)), int32>);
static_assert(std::is_same_v<decltype(BX_CountParts(0)), int32>);
static_assert(std::is_same_v<decltype(BX_GetTextEncoding(0)), int32>);

TEST(HostWithoutFunctions, LoadsAndFreesAreStillCounted) {
  LoadedTGFCounter = 0;
  EXPECT_EQ(BX_LoadTGF(0, 1, 1, 0, 1, kBrvVersion), nullptr);
  EXPECT_EQ(BX_LoadTGF(0, 1, 1, 0, 1, kBrvVersion), nullptr);
  EXPECT_EQ(LoadedTGFCounter, 2);
  EXPECT_EQ(BX_FreeTGF(nullptr, kBrvVersion), 0);
  EXPECT_EQ(LoadedTGFCounter, 1);
}

TEST(HostWithoutFunctions, AnEditIsStillLeftWithAResultOfZero) {
  BrevixEditDepth = 1;
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 0);
  EXPECT_EQ(BrevixEditDepth, 0);
}

TEST(HostWithoutFunctions, AFrameIsStillCleaned) {
  EXENTRY entry = {};
  entry.noteCount = 2;
  EXTGF2005a frame = {};
  frame.entries = &entry;
  frame.entryCount = 1;
  EXPECT_EQ(BX_SaveTGF(&frame, kBrvVersion), 0);
  EXPECT_EQ(entry.notes[0].noteID, 1);
  EXPECT_EQ(entry.notes[1].noteID, 2);
}

}  // namespace
