// The names that the lists of the sources have.
#include "host/code/knownnames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace brvhost {
namespace {

TEST(EntryPointNames, AreThoseThatHostsCall) {
  EXPECT_THAT(EntryPointNames(),
              testing::UnorderedElementsAre("main", "BrevixExtensionVersion", "BrevixExtensionInit",
                                            "BrevixExtensionEnumerate_UTF16", "BrevixExtensionInvoke",
                                            "BrevixExtensionTerminate", "BrevixExtensionGetMenuStatus"));
}

TEST(KitNames, AreThoseOfEachStandardLibrary) {
  EXPECT_TRUE(IsOfTheKit("BX_LoadTGF"));
  EXPECT_TRUE(IsOfTheKit("Ext_invoke"));
  EXPECT_TRUE(IsOfTheKit("_ZTV10eu16string"));
  const std::string method = "_ZNK10eu16string12GetStdStringE";
  EXPECT_TRUE(IsOfTheKit(method + "RNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE"));
  EXPECT_TRUE(IsOfTheKit(method + "RNSt3__112basic_stringIcNS0_11char_traitsIcEENS0_9allocatorIcEEEE"));
}

TEST(KitNames, AreNoOthers) {
  for (const std::string_view name : {"", "BX_LoadTG", "BX_LoadTGF2", "Helper", "_ZNSt6vectorIiE", "# Data", "_main"}) {
    EXPECT_FALSE(IsOfTheKit(name)) << name;
  }
}

TEST(KnownMacLibraries, AreThoseThatHaveStubs) {
  const std::string frameworks = "/System/Library/Frameworks/";
  std::vector<std::string_view> paths;
  for (const MacLibrary& library : KnownMacLibraries()) paths.push_back(library.path);
  EXPECT_THAT(paths, testing::UnorderedElementsAre("/usr/lib/libobjc.A.dylib",
                                                   frameworks + "AppKit.framework/Versions/C/AppKit",
                                                   frameworks + "Carbon.framework/Versions/A/Carbon",
                                                   frameworks + "CoreFoundation.framework/Versions/A/CoreFoundation"));
}

TEST(KnownMacLibraries, HaveTheNamesOfTheSource) {
  const auto& libraries = KnownMacLibraries();
  const auto carbon =
      std::ranges::find_if(libraries, [](const MacLibrary& library) { return library.path.ends_with("/Carbon"); });
  ASSERT_NE(carbon, libraries.end());
  EXPECT_THAT(carbon->names, testing::Contains("GetKeys"));
  EXPECT_THAT(carbon->names, testing::Not(testing::Contains("_GetKeys")));
}

}  // namespace
}  // namespace brvhost
