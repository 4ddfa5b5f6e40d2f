// Bundles that are not as they should be: a copy of the product's, changed, in a folder of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "portable.h"
#include "recordinghost.h"
#include "tests/support/assertions.h"
#include "tests/support/copiedbundle.h"
#include "tests/support/text.h"

namespace {

namespace fs = std::filesystem;

using GetUnits = UniChar* (*)(int, UniChar*, short);

class OwnBundle : public CopiedBundle {
 protected:
  std::u16string TextOfCopy(int id, short size = 128) const {
    BindCopy();
    UniChar buffer[128];
    const auto get = reinterpret_cast<GetUnits>(LoadCopy("_Z24PlugIn_GetStringResourceiPts"));
    EXPECT_EQ(get(id, buffer, size), buffer);
    return TextOf(buffer);
  }
};

TEST_F(OwnBundle, WithoutATableShowsTheAlertAtEachLookupAndDeliversTheKey) {
  RemoveTable();
  RecordingHost host;
  std::vector<std::string> texts;
  host.On("BX_AlertMessage", [&](const HostCall& call) -> std::uint64_t {
    EXPECT_EQ(call.Pointer<void>(0), nullptr);
    EXPECT_EQ(call.Int(1), 0);
    EXPECT_EQ(call.Int(2), 0);
    texts.push_back(call.Pointer<char>(3));
    return 0;
  });
  EXPECT_EQ(TextOfCopy(0x4E200001), u"20000,1");
  EXPECT_EQ(TextOfCopy(0x4E840002), u"20100,2");
  EXPECT_THAT(texts, testing::ElementsAre("Missing Localizable.strings", "Missing Localizable.strings"));
}

TEST_F(OwnBundle, WithATableOfOtherKeysDeliversTheKeySilently) {
  WriteTable("\"1,1\" = \"one\";");
  RecordingHost host;
  EXPECT_EQ(TextOfCopy(0x00010001), u"one");
  EXPECT_EQ(TextOfCopy(0x4E200001), u"20000,1");
  EXPECT_THAT(host.Calls(), testing::IsEmpty());
}

TEST_F(OwnBundle, CutsBetweenTheHalvesOfASurrogatePair) {
  WriteTable("\"1,1\" = \"ab\U0001D11E\";");
  RecordingHost host;
  EXPECT_EQ(TextOfCopy(0x00010001), u"ab\U0001D11E");
  EXPECT_EQ(TextOfCopy(0x00010001, 4), std::u16string({u'a', u'b', 0xD834}));
}

TEST_F(OwnBundle, IsFoundByClimbingFromTheExecutable) {
  fs::create_directories(Contents() / "Linux-x86-64/deeper/still");
  fs::copy(Contents() / "Linux-x86-64/LegerLines.so", Contents() / "Linux-x86-64/deeper/still/LegerLines.so");
  RecordingHost host;
  const auto get = reinterpret_cast<GetUnits>(
      Load(Contents() / "Linux-x86-64/deeper/still/LegerLines.so", "_Z24PlugIn_GetStringResourceiPts"));
  UniChar buffer[128];
  get(0x4E200001, buffer, 128);
  EXPECT_EQ(TextOf(buffer), u"Hide Ledger Lines");
}

class OwnBundleDeathTest : public OwnBundle {};

TEST_F(OwnBundleDeathTest, AnExecutableOutsideOfAnyBundleOnARelativePathFailsTheAssertion) {
  fs::copy(Contents() / "Linux-x86-64/LegerLines.so", folder_ / "Alone.so");
  const auto ask = [&] {
    fs::current_path(folder_);
    reinterpret_cast<CFStringRef (*)(int)>(Load("./Alone.so", "CopyPlugInStringResource"))(1);
  };
  EXPECT_DEATH(ask(),
               testing::StrEq(AssertionMessage("CopyPlugInStringResource", "LIB/portable:176", "bundleRef != NULL")));
}

}  // namespace
