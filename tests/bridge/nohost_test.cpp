// A host that exports none of the functions.
#include <gtest/gtest.h>

#include "brevixpdk.h"
#include "calltable.h"
#include "hostbundle.h"
#include "recordinghost.h"

namespace {

class WithoutHostFunctions : public testing::TestWithParam<DocumentedCall> {
 protected:
  static void SetUpTestSuite() {
    ASSERT_NE(OpenHostBundle("EmptyHost"), nullptr);
    ASSERT_EQ(InitializeGlobals(), 0);
    ASSERT_EQ(GetBrevixBundleRef(), OpenHostBundle("EmptyHost"));
  }
};

TEST_P(WithoutHostFunctions, EachCallReturnsItsDefault) {
  if (GetParam().name == "BX_CancelBrevixEdit") GTEST_SKIP() << "it has no result";
  BrevixEditDepth = 1;
  std::uint8_t memory[64] = {};
  std::vector<std::uint64_t> registers;
  for (const std::string& type : GetParam().arguments) {
    registers.push_back(type == "ptr" ? reinterpret_cast<std::uint64_t>(memory) : 1);
  }
  registers.push_back(kBrvVersion);
  const std::uint64_t result = CallWithRegisters(KitFunction(GetParam().name), registers);
  if (GetParam().result == "as host" && GetParam().defaultResult == 0) {
    EXPECT_EQ(result, 0u);
  } else {
    EXPECT_EQ(static_cast<int>(result), GetParam().defaultResult);
  }
}

std::string NameOf(const testing::TestParamInfo<DocumentedCall>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(All, WithoutHostFunctions, testing::ValuesIn(DocumentedCalls()), NameOf);

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

TEST(HostWithoutFunctions, AFrameIsCleanedAllTheSame) {
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
