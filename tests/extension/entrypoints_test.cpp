// The bundle as a host sees it: opened by its path, and called by names in the order that hosts keep.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "convention.h"
#include "recordinghost.h"
#include "tests/support/imageundertest.h"
#include "tests/support/text.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EntryPoints : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    OpenHostBundle("RecordingHost");
    image_ = dlopen(ExecutableUnderTest().c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(image_, nullptr) << dlerror();
    char program[] = "host";
    char* argv[] = {program, nullptr};
    ASSERT_EQ(Find<int(int, void*)>("main")(1, argv), 1);
  }

  void SetUp() override { setenv("LANGUAGE", "en", 1); }

  template <class Function>
  static Function* Find(const char* name) {
    void* const found = dlsym(image_, name);
    EXPECT_NE(found, nullptr) << name;
    return reinterpret_cast<Function*>(found);
  }

  int Invoke(int item, EREGION* region, EREGION* fallback = nullptr, const char* name = "BrevixExtensionInvoke") {
    return Find<int(void*, int, EREGION*, EREGION*)>(name)(context_, item, region, fallback);
  }

  int Enumerate(int item, MenuItemTexts* texts, const char* name = "BrevixExtensionEnumerate_UTF16") {
    return Find<int(void*, int, MenuItemTexts*)>(name)(context_, item, texts);
  }

  static inline void* image_ = nullptr;
  void* context_ = &image_;
  RecordingHost host_;
};

TEST_F(EntryPoints, ReturnTheVersionOfTheInterface) {
  EXPECT_EQ(Find<unsigned()>("BrevixExtensionVersion")(), 0x19500000u);
  EXPECT_EQ(Find<unsigned()>("Ext_getversion")(), 0x19500000u);
}

TEST_F(EntryPoints, InitClearsTheHostsWord) {
  for (const char* name : {"BrevixExtensionInit", "Ext_init"}) {
    std::uint32_t word = 0xDEADBEEF;
    EXPECT_EQ(Find<int(void*, std::uint32_t*)>(name)(context_, &word), 1);
    EXPECT_EQ(word, 0u);
  }
}

TEST_F(EntryPoints, EnumerateListsTheTwoItems) {
  MenuItemTexts texts;
  std::memset(&texts, 0xAA, sizeof(texts));
  EXPECT_EQ(Enumerate(0, &texts), 1);
  EXPECT_EQ(TextOf(texts.text1), u"Hide Ledger Lines");
  EXPECT_EQ(TextOf(texts.text2), u"Hide ledger lines");
  EXPECT_EQ(TextOf(texts.text3), u"Hides the ledger lines of all notes in the selected region.");
  EXPECT_EQ(texts.reserved, 0u);

  std::memset(&texts, 0xAA, sizeof(texts));
  EXPECT_EQ(Enumerate(1, &texts, "Ext_enumerate_UTF16"), 1);
  EXPECT_EQ(TextOf(texts.text1), u"Show Ledger Lines");
  EXPECT_EQ(TextOf(texts.text2), u"Show ledger lines");
  EXPECT_EQ(TextOf(texts.text3), u"Shows the ledger lines of all notes in the selected region.");
  EXPECT_EQ(texts.reserved, 0u);
}

TEST_F(EntryPoints, EnumerateEndsTheListAtItemTwoAndLeavesTheRecord) {
  MenuItemTexts untouched;
  std::memset(&untouched, 0xAA, sizeof(untouched));
  for (const int item : {2, 3, 0x7FFF, 0xFFFF, -1}) {
    MenuItemTexts texts = untouched;
    EXPECT_EQ(Enumerate(item, &texts), 0) << item;
    EXPECT_EQ(std::memcmp(&texts, &untouched, sizeof(texts)), 0) << item;
  }
}

TEST_F(EntryPoints, ReadTheLowSixteenBitsOfAnItem) {
  MenuItemTexts texts;
  EXPECT_EQ(Enumerate(0x10001, &texts), 1);
  EXPECT_EQ(TextOf(texts.text1), u"Show Ledger Lines");
  EREGION region = {};
  region.startStaff = 1;
  EXPECT_EQ(Invoke(0x10001, &region), 0);
  EXPECT_EQ(host_.Calls().back().Int(2), 0x4E840003);
}

TEST_F(EntryPoints, EveryItemIsAlwaysEnabled) {
  EXPECT_EQ(Find<int(void*, int)>("BrevixExtensionGetMenuStatus")(nullptr, 5), 1);
  EXPECT_EQ(Find<int(void*, int)>("Ext_getmenustatus")(nullptr, 0), 1);
}

TEST_F(EntryPoints, TerminateCallsNothing) {
  Find<void()>("BrevixExtensionTerminate")();
  Find<void()>("Ext_terminate")();
  EXPECT_THAT(host_.Calls(), IsEmpty());
}

TEST_F(EntryPoints, InvokeOfAnotherItemReturnsZeroWithoutAnAlert) {
  EREGION region = {};
  for (const int item : {2, 0xFFFF, -1}) EXPECT_EQ(Invoke(item, &region), 0) << item;
  EXPECT_EQ(Invoke(2, nullptr, &region), 0);
  EXPECT_THAT(host_.Calls(), IsEmpty());
}

TEST_F(EntryPoints, InvokeWithoutARegionAsksAndNeverReadsTheFallbackWithoutAYes) {
  auto* const unreadable = reinterpret_cast<EREGION*>(8);
  for (const std::uint64_t answer : {0x0u, 0x2u, 0xFFFFu, 0x10000u}) {
    host_.Forget();
    host_.Answer("BX_AlertMessage", answer);
    EXPECT_EQ(Invoke(0, nullptr, unreadable), 0) << answer;
    ASSERT_EQ(host_.Calls().size(), 1u) << answer;
    const HostCall& alert = host_.Calls()[0];
    EXPECT_EQ(alert.name, "BX_AlertMessage");
    EXPECT_EQ(alert.Pointer<void>(0), context_);
    EXPECT_EQ(alert.Int(1), 33);
    EXPECT_EQ(alert.Int(2), 0x4E840001);
    EXPECT_EQ(alert.Pointer<void>(3), nullptr);
    EXPECT_EQ(alert.arguments[4], 0x19500000u);
  }
}

TEST_F(EntryPoints, InvokeWithoutARegionUsesTheFallbackOnAYesOfSixteenBits) {
  EREGION fallback = {};
  fallback.regionScope = 0xFEDC;
  fallback.startStaff = fallback.endStaff = 4;
  fallback.startMeasure = fallback.endMeasure = 9;
  host_.Answer("BX_GetMaxLayers", 1);
  host_.Answer("BX_GetShowLayer", 1);
  host_.Answer("BX_AlertMessage", 0x00010001);
  EXPECT_EQ(Invoke(0, nullptr, &fallback), 0);
  EXPECT_THAT(host_.Texts(), testing::Contains("BX_LoadTGF(65244, 4, 9, 0, 1)"));
}

TEST_F(EntryPoints, InvokeReportsThatNothingChanged) {
  EREGION region = {};
  region.startStaff = 1;  // past the end: an empty region
  for (const int item : {0, 1}) {
    host_.Forget();
    EXPECT_EQ(Invoke(item, &region, nullptr, item == 0 ? "BrevixExtensionInvoke" : "Ext_invoke"), 0);
    const HostCall& alert = host_.Calls().back();
    EXPECT_EQ(alert.name, "BX_AlertMessage");
    EXPECT_EQ(alert.Pointer<void>(0), context_);
    EXPECT_EQ(alert.Int(1), 64);
    EXPECT_EQ(alert.Int(2), 0x4E840002 + item);
    EXPECT_EQ(alert.Pointer<void>(3), nullptr);
  }
}

TEST_F(EntryPoints, InvokeReturnsWhatTheCommandReturnsWithoutAnAlert) {
  EXENTRY entry = {};
  EXTGF2005a frame = {};
  frame.entries = &entry;
  frame.entryCount = 1;
  host_.Answer("BX_LoadTGF", reinterpret_cast<std::uint64_t>(&frame));
  host_.Answer("BX_GetMaxLayers", 1);
  host_.Answer("BX_GetShowLayer", 1);
  EREGION region = {};
  EXPECT_EQ(Invoke(0, &region), 1);
  EXPECT_EQ(entry.flags, 0x40);
  EXPECT_EQ(Invoke(1, &region), 1);
  EXPECT_EQ(entry.flags, 0);
  EXPECT_EQ(host_.Count("BX_AlertMessage"), 0);
}

class DialogHandlers : public EntryPoints {
 protected:
  static constexpr const char* kText = "Should not get here!";

  void ExpectInternalError() {
    ASSERT_THAT(host_.Names(), ElementsAre("BX_IsMachO", "BX_AlertMessage"));
    EXPECT_THAT(host_.Calls()[0].arguments, ElementsAre(0x19500000u));
    const HostCall& alert = host_.Calls()[1];
    EXPECT_EQ(alert.Pointer<void>(0), nullptr);
    EXPECT_EQ(alert.Int(1), 48);
    EXPECT_EQ(alert.Int(2), 0);
    EXPECT_STREQ(alert.Pointer<char>(3), kText);
    EXPECT_EQ(alert.arguments[4], 0x19500000u);
  }
};

TEST_F(DialogHandlers, PassThroughInAMachOHost) {
  host_.Answer("BX_IsMachO", 1);
  EXPECT_EQ(Find<void*(void*)>("NewFF_DialogHandlerProc")(context_), context_);
  Find<void(void*)>("DisposeFF_DialogHandlerProc")(context_);
  EXPECT_THAT(host_.Names(), ElementsAre("BX_IsMachO", "BX_IsMachO"));
}

TEST_F(DialogHandlers, TakeAnyAnswerButZeroOfSixteenBitsForYes) {
  for (const std::uint64_t answer : {0x2u, 0x8000u, 0xFFFFu, 0x10001u}) {
    host_.Forget();
    host_.Answer("BX_IsMachO", answer);
    EXPECT_EQ(Find<void*(void*)>("NewFF_DialogHandlerProc")(nullptr), nullptr) << answer;
    Find<void(void*)>("DisposeFF_DialogHandlerProc")(context_);
    EXPECT_THAT(host_.Names(), ElementsAre("BX_IsMachO", "BX_IsMachO")) << answer;
  }
}

TEST_F(DialogHandlers, RaiseAnInternalErrorElsewhereAndStillPassThrough) {
  host_.Answer("BX_IsMachO", 0x10000);
  EXPECT_EQ(Find<void*(void*)>("NewFF_DialogHandlerProc")(context_), context_);
  ExpectInternalError();
  host_.Forget();
  Find<void(void*)>("DisposeFF_DialogHandlerProc")(nullptr);
  ExpectInternalError();
}

}  // namespace
