// Bundles that are not as they should be: a copy of the product's, changed, in a folder of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>

#include "portable.h"
#include "recordinghost.h"
#include "tests/support/assertions.h"
#include "tests/support/copiedbundle.h"
#include "tests/support/text.h"

namespace {

namespace fs = std::filesystem;

using GetUnits = UniChar* (*)(int, UniChar*, short);

constexpr const char* kGetUnits = "_Z24PlugIn_GetStringResourceiPts";
constexpr const char* kGetBytes = "_Z24PlugIn_GetStringResourceiPcs";

class OwnBundle : public CopiedBundle {
 protected:
  std::u16string TextOfCopy(int id, short size = 128) const {
    BindCopy();
    UniChar buffer[128];
    const auto get = reinterpret_cast<GetUnits>(LoadCopy(kGetUnits));
    EXPECT_EQ(get(id, buffer, size), buffer);
    return TextOf(buffer);
  }

  // What a buffer of eight that holds "left" looks like from the alert about a missing table.
  template <class Character>
  std::vector<Character> DuringTheAlert(const char* getText) const {
    fs::remove_all(Contents() / "Resources");
    std::vector<Character> buffer = {'l', 'e', 'f', 't', 0, 0, 0, 0};
    std::vector<Character> seen;
    RecordingHost host;
    host.On("BX_AlertMessage", [&](const HostCall&) -> std::uint64_t {
      seen = buffer;
      return 0;
    });
    BindCopy();
    const auto get = reinterpret_cast<Character* (*)(int, Character*, short)>(LoadCopy(getText));
    EXPECT_EQ(get(0x4E200001, buffer.data(), 8), buffer.data());
    EXPECT_THAT(buffer, testing::ElementsAre('2', '0', '0', '0', '0', ',', '1', 0));
    return seen;
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

// A host may draw the caller's window while its alert is up. What else is in the buffer stays until the text comes.
TEST_F(OwnBundle, EmptiesTheBufferOfUnitsBeforeTheAlert) {
  EXPECT_THAT((DuringTheAlert<UniChar>(kGetUnits)), testing::ElementsAre(0, 'e', 'f', 't', 0, 0, 0, 0));
}

TEST_F(OwnBundle, EmptiesTheBufferOfBytesBeforeTheAlert) {
  EXPECT_THAT((DuringTheAlert<char>(kGetBytes)), testing::ElementsAre(0, 'e', 'f', 't', 0, 0, 0, 0));
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
  fs::create_directories(Contents() / BRV_EXECUTABLE_FOLDER "/deeper/still");
  fs::copy(Contents() / BRV_EXECUTABLE_FOLDER "/LegerLines.so",
           Contents() / BRV_EXECUTABLE_FOLDER "/deeper/still/LegerLines.so");
  std::ofstream(Contents() / BRV_EXECUTABLE_FOLDER "/deeper/Info.plist")
      << "{ CFBundleIdentifier = \"org.example.passed\"; }";
  RecordingHost host;
  const auto get =
      reinterpret_cast<GetUnits>(Load(Contents() / BRV_EXECUTABLE_FOLDER "/deeper/still/LegerLines.so", kGetUnits));
  UniChar buffer[128];
  get(0x4E200001, buffer, 128);
  EXPECT_EQ(TextOf(buffer), u"Hide Ledger Lines");
  EXPECT_EQ(CFBundleGetBundleWithIdentifier(CFSTR("org.example.passed")), nullptr) << "it has no executable";
}

class OwnBundleDeathTest : public OwnBundle {
 protected:
  // Looks a text up from an executable outside of any bundle.
  static void AskAlone(const fs::path& executable) {
    reinterpret_cast<CFStringRef (*)(int)>(Load(executable, "CopyPlugInStringResource"))(1);
  }
};

TEST_F(OwnBundleDeathTest, AnExecutableOutsideOfAnyBundleOnAnAbsolutePathIsSearchedForEver) {
  fs::copy(Contents() / BRV_EXECUTABLE_FOLDER "/LegerLines.so", folder_ / "Alone.so");
  EXPECT_EXIT(
      {
        alarm(1);
        AskAlone(folder_ / "Alone.so");
        std::exit(0);
      },
      testing::KilledBySignal(SIGALRM), "");
}

TEST_F(OwnBundleDeathTest, AnExecutableOutsideOfAnyBundleOnARelativePathFailsTheAssertion) {
  fs::copy(Contents() / BRV_EXECUTABLE_FOLDER "/LegerLines.so", folder_ / "Alone.so");
  const auto ask = [&] {
    fs::current_path(folder_);
    AskAlone("./Alone.so");
  };
  EXPECT_DEATH(ask(),
               testing::StrEq(AssertionMessage("CopyPlugInStringResource", "LIB/portable:176", "bundleRef != NULL")));
}

}  // namespace
