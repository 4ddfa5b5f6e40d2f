// The entry points before the host has called main: none of them binds the host, and none reaches it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "brevixpdk.h"
#include "convention.h"
#include "dialoghandlers.h"
#include "hostbundle.h"
#include "recordinghost.h"
#include "tests/support/text.h"

namespace {

class Unbound : public testing::Test {
 protected:
  void SetUp() override {
    setenv("LANGUAGE", "en", 1);
    // There is a host to be found.
    ASSERT_NE(OpenHostBundle("RecordingHost"), nullptr);
    ASSERT_EQ(GetBrevixBundleRef(), nullptr) << "each test wants a process that is not bound yet";
  }
  void TearDown() override { EXPECT_EQ(GetBrevixBundleRef(), nullptr) << "an entry point bound the host"; }
};

TEST_F(Unbound, TellsTheVersion) {
  EXPECT_EQ(BrevixExtensionVersion(), 0x19500000u);
  EXPECT_EQ(Ext_getversion(), 0x19500000u);
}

TEST_F(Unbound, IsReady) {
  for (const auto init : {BrevixExtensionInit, Ext_init}) {
    std::uint32_t word = 0xDEADBEEF;
    EXPECT_EQ(init(&word, &word), 1);
    EXPECT_EQ(word, 0u);
  }
}

TEST_F(Unbound, EnumeratesTheTwoItems) {
  for (const auto enumerate : {BrevixExtensionEnumerate_UTF16, Ext_enumerate_UTF16}) {
    MenuItemTexts texts;
    std::memset(&texts, 0xAA, sizeof(texts));
    EXPECT_EQ(enumerate(nullptr, 0, &texts), 1);
    EXPECT_EQ(TextOf(texts.text1), u"Hide Ledger Lines");
    EXPECT_EQ(texts.reserved, 0u);
    EXPECT_EQ(enumerate(nullptr, 1, &texts), 1);
    EXPECT_EQ(TextOf(texts.text1), u"Show Ledger Lines");
    EXPECT_EQ(enumerate(nullptr, 2, &texts), 0);
  }
}

TEST_F(Unbound, HasItsItemsEnabled) {
  EXPECT_EQ(BrevixExtensionGetMenuStatus(), 1);
  EXPECT_EQ(Ext_getmenustatus(), 1);
}

TEST_F(Unbound, Terminates) {
  BrevixExtensionTerminate();
  Ext_terminate();
}

TEST_F(Unbound, ChangesNothing) {
  for (const auto invoke : {BrevixExtensionInvoke, Ext_invoke}) {
    for (const int item : {0, 1, 2}) {
      EREGION region = {};
      EXPECT_EQ(invoke(nullptr, item, &region, nullptr), 0);
    }
  }
  EXPECT_EQ(LoadedTGFCounter, 0) << "no layer is shown, so no frame is asked for";
}

TEST_F(Unbound, TakesTheQuestionForDeclinedAndNeverReadsTheFallback) {
  auto* const unreadable = reinterpret_cast<EREGION*>(8);
  EXPECT_EQ(BrevixExtensionInvoke(nullptr, 0, nullptr, unreadable), 0);
  EXPECT_EQ(Ext_invoke(nullptr, 1, nullptr, unreadable), 0);
}

TEST_F(Unbound, PassesDialogHandlersThrough) {
  int handler = 0;
  EXPECT_EQ(NewFF_DialogHandlerProc(&handler), &handler);
  DisposeFF_DialogHandlerProc(&handler);
}

TEST(InvokedBeforeMain, TheExtensionStaysWithoutTheFunctionsThatItAskedFor) {
  OpenHostBundle("RecordingHost");
  ASSERT_EQ(GetBrevixBundleRef(), nullptr);
  EREGION region = {};
  EXPECT_EQ(BrevixExtensionInvoke(nullptr, 0, &region, nullptr), 0);

  RecordingHost host;
  ASSERT_NE(GetBrevixBundleRef(), nullptr);
  host.Answer("BX_GetMaxLayers", 1);
  host.Answer("BX_GetShowLayer", 1);
  EXPECT_EQ(BrevixExtensionInvoke(nullptr, 0, &region, nullptr), 0);
  EXPECT_TRUE(host.Calls().empty());
  EXPECT_EQ(BX_GetMaxLayers(kBrvVersion), 4);

  // One that it had no need of yet is found.
  BX_LoadTGF(0, 1, 1, 0, 1, kBrvVersion);
  EXPECT_EQ(host.Count("BX_LoadTGF"), 1);
}

}  // namespace
