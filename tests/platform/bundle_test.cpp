// Bundles and the functions in them.
#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

CFBundleRef OpenBundle(const std::string& path) {
  const CFURLRef url = CFURLCreateFromFileSystemRepresentation(
      kCFAllocatorDefault, reinterpret_cast<const UInt8*>(path.data()), static_cast<CFIndex>(path.size()), true);
  const CFBundleRef bundle = CFBundleCreate(kCFAllocatorDefault, url);
  CFRelease(url);
  return bundle;
}

// A bundle of a given Info.plist and table, gone after the test.
class OwnBundle : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = fs::temp_directory_path() / "brv-platform-XXXXXX";
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    folder_ = name;
    fs::create_directories(folder_ / "Own.bundle/Contents/Resources/en.lproj");
    setenv("LANGUAGE", "en", 1);
  }

  void TearDown() override {
    if (bundle_ != nullptr) CFRelease(bundle_);
    fs::remove_all(folder_);
  }

  void Open(const std::string& infoPlist, const std::string& table = "") {
    std::ofstream(folder_ / "Own.bundle/Contents/Info.plist") << infoPlist;
    std::ofstream(folder_ / "Own.bundle/Contents/Resources/en.lproj/Localizable.strings") << table;
    bundle_ = OpenBundle(folder_ / "Own.bundle");
    ASSERT_NE(bundle_, nullptr);
  }

  std::string Text(CFStringRef key) const {
    const CFStringRef text = CFBundleCopyLocalizedString(bundle_, key, key, nullptr);
    char buffer[64];
    EXPECT_TRUE(CFStringGetCString(text, buffer, sizeof(buffer), kCFStringEncodingUTF8));
    CFRelease(text);
    return buffer;
  }

  fs::path folder_;
  CFBundleRef bundle_ = nullptr;
};

TEST_F(OwnBundle, WithoutAnExecutableHasNoFunctions) {
  Open("{ CFBundleIdentifier = x; }");
  EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle_, CFSTR("main")), nullptr);
  EXPECT_FALSE(CFBundleIsExecutableLoaded(bundle_));
  EXPECT_EQ(CFBundleCopyExecutableURL(bundle_), nullptr);
}

TEST_F(OwnBundle, WhoseExecutableIsMissingHasNoFunctions) {
  Open("{ CFBundleExecutable = nothere; }");
  EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle_, CFSTR("main")), nullptr);
  EXPECT_FALSE(CFBundleIsExecutableLoaded(bundle_));
}

TEST_F(OwnBundle, IsFoundByItsIdentifierAsLongAsItLives) {
  Open("{ CFBundleIdentifier = \"org.example.own\"; }");
  EXPECT_EQ(CFBundleGetBundleWithIdentifier(CFSTR("org.example.own")), bundle_);
  EXPECT_TRUE(CFEqual(CFBundleGetIdentifier(bundle_), CFSTR("org.example.own")));
  CFRelease(bundle_);
  bundle_ = nullptr;
  EXPECT_EQ(CFBundleGetBundleWithIdentifier(CFSTR("org.example.own")), nullptr);
}

TEST_F(OwnBundle, IsOneObjectForItsFolder) {
  Open("{}");
  const CFBundleRef again = OpenBundle(folder_ / "Own.bundle/Contents/..");
  EXPECT_EQ(again, bundle_);
  CFRelease(again);
}

TEST_F(OwnBundle, ReadsItsTable) {
  Open("{}", "/* a */ \"k\" = \"v\\n\\\"\\U00e9\"; // b\nplain = word; lone;");
  EXPECT_EQ(Text(CFSTR("k")), "v\n\"\u00e9");
  EXPECT_EQ(Text(CFSTR("plain")), "word");
  EXPECT_EQ(Text(CFSTR("lone")), "lone");
  EXPECT_EQ(Text(CFSTR("missing")), "missing");
}

TEST_F(OwnBundle, LosesATableWithASyntaxErrorWhole) {
  Open("{}", "a = one; b = ;");
  EXPECT_EQ(Text(CFSTR("a")), "a");
}

TEST_F(OwnBundle, LosesATableThatIsNestedTooDeep) {
  Open("{}", "a = one; b = " + std::string(1000000, '('));
  EXPECT_EQ(Text(CFSTR("a")), "a");
}

class HostBundle : public testing::Test {
 protected:
  void TearDown() override { CFRelease(bundle_); }

  CFBundleRef bundle_ = OpenBundle(BRV_BINARY_DIR "/tests/RecordingHost.bundle");
};

TEST_F(HostBundle, GivesTheFunctionsOfItsOwnExecutable) {
  EXPECT_NE(CFBundleGetFunctionPointerForName(bundle_, CFSTR("BX_GetMaxLayers")), nullptr);
  EXPECT_TRUE(CFBundleIsExecutableLoaded(bundle_));
  EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle_, CFSTR("BX_NoSuchFunction")), nullptr);
}

TEST_F(HostBundle, GivesNoFunctionOfAnotherImage) {
  EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle_, CFSTR("malloc")), nullptr);
  EXPECT_EQ(CFBundleGetFunctionPointerForName(CFBundleGetMainBundle(), CFSTR("BX_GetMaxLayers")), nullptr);
}

TEST_F(HostBundle, KnowsItsExecutable) {
  const CFURLRef url = CFBundleCopyExecutableURL(bundle_);
  ASSERT_NE(url, nullptr);
  UInt8 path[4096];
  EXPECT_TRUE(CFURLGetFileSystemRepresentation(url, true, path, sizeof(path)));
  EXPECT_EQ(fs::path(reinterpret_cast<const char*>(path)).filename(), "RecordingHost.so");
  EXPECT_FALSE(CFURLGetFileSystemRepresentation(url, true, path, 5));
  CFRelease(url);
}

extern "C" __attribute__((visibility("default"))) int BrvFunctionOfTheProgram() { return 42; }

TEST(MainBundle, GivesTheFunctionsOfTheProgram) {
  void* const found = CFBundleGetFunctionPointerForName(CFBundleGetMainBundle(), CFSTR("BrvFunctionOfTheProgram"));
  EXPECT_EQ(found, reinterpret_cast<void*>(&BrvFunctionOfTheProgram));
  EXPECT_TRUE(CFBundleIsExecutableLoaded(CFBundleGetMainBundle()));
}

}  // namespace
