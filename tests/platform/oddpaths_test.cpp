// Paths that are no text, that vanish, that may not be read, and folders with very much in them.
#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "ownbundle.h"
#include "vectors.h"

namespace {

namespace fs = std::filesystem;

std::string DescriptionOf(CFTypeRef object) {
  const CFStringRef text = CFStringCreateWithFormat(kCFAllocatorDefault, nullptr, CFSTR("%@"), object);
  if (text == nullptr) return "none";
  std::string utf8(4096, '\0');
  EXPECT_TRUE(CFStringGetCString(text, utf8.data(), static_cast<CFIndex>(utf8.size()), kCFStringEncodingUTF8));
  CFRelease(text);
  return utf8.c_str();
}

constexpr const char* kReplacement = "\uFFFD";

class NotUtf8 : public OwnBundle {
 protected:
  NotUtf8() { name_ = "K\xF6ln \xC3\xA9.bundle"; }
};

TEST_F(NotUtf8, ABundleIsDescribedWithAMarkForEachByteThatIsNoText) {
  Open("{}");
  EXPECT_EQ(DescriptionOf(bundle_), "CFBundle " + top_.Path().native() + "/K" + kReplacement + "ln \u00e9.bundle");
}

TEST_F(NotUtf8, ABundleIsShownWithAMarkForEachByteThatIsNoText) {
  Open("{}");
  testing::internal::CaptureStderr();
  CFShow(bundle_);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "CFBundle " + top_.Path().native() + "/K" + kReplacement + "ln \u00e9.bundle\n");
}

TEST_F(NotUtf8, AURLIsDescribedWithAMarkForEachByteThatIsNoText) {
  const CFURLRef url = MakeURL("/tmp/a\xFF\xFE/\xE2\x99");
  EXPECT_EQ(DescriptionOf(url), std::string("/tmp/a") + kReplacement + kReplacement + "/" + kReplacement);
  EXPECT_EQ(TakePath(url), "/tmp/a\xFF\xFE/\xE2\x99");
}

TEST_F(NotUtf8, ABundleServesItsTextsAndFiles) {
  Open("{ CFBundleIdentifier = \"org.example.odd\"; CFBundleExecutable = odd; }", "k = v;");
  fs::create_directories(Contents() / BRV_EXECUTABLE_FOLDER);
  std::ofstream(Contents() / BRV_EXECUTABLE_FOLDER "/odd.so") << "nothing";
  EXPECT_EQ(Text(CFSTR("k")), "v");
  EXPECT_EQ(Resource("Localizable", CFSTR("strings")), "Contents/Resources/en.lproj/Localizable.strings");
  EXPECT_EQ(TakePath(CFBundleCopyExecutableURL(bundle_)), Contents() / BRV_EXECUTABLE_FOLDER "/odd.so");
  EXPECT_EQ(CFBundleGetBundleWithIdentifier(CFSTR("org.example.odd")), bundle_);
  EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle_, CFSTR("main")), nullptr);
}

TEST_F(NotUtf8, LocalizationsAreNamesLikeOthers) {
  fs::create_directories(Contents() / "Resources/\xE9\xE9.lproj");
  std::ofstream(Contents() / "Resources/\xE9\xE9.lproj/Only.strings") << "k = v;";
  Open("{}");
  EXPECT_EQ(Resource("Only", CFSTR("strings")), "Contents/Resources/\xE9\xE9.lproj/Only.strings");
  setenv("LANGUAGE", "\xE9\xE9:\xFF", 1);
  EXPECT_EQ(Resource("Only", CFSTR("strings")), "Contents/Resources/\xE9\xE9.lproj/Only.strings");
}

// Names that no file has.

class NamesOfNoFile : public OwnBundle {
 protected:
  CFURLRef ResourceOf(const std::u16string& units) const {
    const CFStringRef name = MakeString(units);
    const CFURLRef url = CFBundleCopyResourceURL(bundle_, name, nullptr, nullptr);
    CFRelease(name);
    return url;
  }
};

TEST_F(NamesOfNoFile, ALoneSurrogateStandsForNoOtherCharacter) {
  Open("{ CFBundleExecutable = \"\\Ud800\"; }");
  fs::create_directories(Contents() / BRV_EXECUTABLE_FOLDER);
  std::ofstream(Contents() / BRV_EXECUTABLE_FOLDER "/?.so") << "nothing";
  std::ofstream(Contents() / "Resources/?") << "another";
  EXPECT_EQ(ResourceOf({0xD800}), nullptr);
  EXPECT_EQ(CFBundleCopyExecutableURL(bundle_), nullptr);
}

TEST_F(NamesOfNoFile, AZeroDoesNotEndAName) {
  Open("{}");
  std::ofstream(Contents() / "Resources/whole") << "a file";
  EXPECT_EQ(Resource("whole", nullptr), "Contents/Resources/whole");
  EXPECT_EQ(ResourceOf(std::u16string(u"whole\0 or not", 13)), nullptr);
}

TEST_F(NamesOfNoFile, AZeroDoesNotEndTheNameOfAFunction) {
  const CFStringRef name = MakeString(std::u16string(u"BrvFunctionOfTheProgram\0s", 25));
  EXPECT_EQ(CFBundleGetFunctionPointerForName(CFBundleGetMainBundle(), name), nullptr);
  CFRelease(name);
}

TEST_F(NamesOfNoFile, ATableOfSuchANameHasNoTexts) {
  Open("{}", "k = v;");
  std::ofstream(Contents() / "Resources/?.strings") << "k = another;";
  for (const std::u16string& name : {std::u16string(1, 0xD800), std::u16string(u"Localizable.strings\0", 20)}) {
    const CFStringRef table = MakeString(name);
    EXPECT_EQ(TakeHex(CFBundleCopyLocalizedString(bundle_, CFSTR("k"), nullptr, table)), HexOf(u"k"));
    CFRelease(table);
  }
}

TEST_F(NamesOfNoFile, ANameLongerThanAnyPathIsNotFound) {
  Open("{ CFBundleExecutable = " + std::string(5000, 'x') + "; }");
  EXPECT_EQ(Resource(std::string(5000, 'x'), CFSTR("strings")), "not found");
  EXPECT_EQ(CFBundleCopyExecutableURL(bundle_), nullptr);
  EXPECT_EQ(CreateBundle(std::string(5000, 'x')), nullptr);
}

// Folders that are not there any more, or not for everybody.

TEST_F(OwnBundle, ThatVanishesKeepsItsIdentityAndHasNoFiles) {
  Open("{ CFBundleIdentifier = \"org.example.own\"; CFBundleExecutable = own; }", "k = v;");
  fs::remove_all(Folder());
  EXPECT_EQ(Text(CFSTR("k")), "k");
  EXPECT_EQ(Resource("Localizable", CFSTR("strings")), "not found");
  EXPECT_EQ(CFBundleCopyExecutableURL(bundle_), nullptr);
  EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle_, CFSTR("main")), nullptr);
  EXPECT_EQ(CFBundleGetBundleWithIdentifier(CFSTR("org.example.own")), bundle_);
  EXPECT_EQ(DescriptionOf(bundle_), "CFBundle " + Folder().native());
  EXPECT_EQ(CreateBundle(Folder()), nullptr);
}

// Another user than root, whom no rights hold back.
class AsAnybody {
 public:
  AsAnybody() { Become(kNobody); }
  ~AsAnybody() { Become(0); }

 private:
  static constexpr uid_t kNobody = 65534;
  static void Become(uid_t user) {
    if (getuid() != 0) return;
    EXPECT_EQ(seteuid(user), 0);
  }
};

class Unreadable : public OwnBundle {
 protected:
  void SetUp() override {
    OwnBundle::SetUp();
    fs::permissions(top_.Path(), fs::perms::all);
  }
  void TearDown() override {
    fs::permissions(locked_, fs::perms::owner_all);
    OwnBundle::TearDown();
  }
  void Lock(const fs::path& path) {
    locked_ = path;
    fs::permissions(path, fs::perms::none);
  }
  fs::path locked_;
};

TEST_F(Unreadable, AFolderAboveABundleHidesIt) {
  Open("{}");
  CFRelease(bundle_);
  bundle_ = nullptr;
  Lock(top_.Path());
  const AsAnybody anybody;
  EXPECT_EQ(CreateBundle(Folder()), nullptr);
}

TEST_F(Unreadable, ABundleHasNothing) {
  fs::create_directories(Folder());
  Lock(Folder());
  const AsAnybody anybody;
  bundle_ = CreateBundle(Folder());
  ASSERT_NE(bundle_, nullptr);
  EXPECT_EQ(CFBundleGetIdentifier(bundle_), nullptr);
  EXPECT_EQ(Text(CFSTR("k")), "k");
  EXPECT_EQ(Resource("Localizable", CFSTR("strings")), "not found");
}

TEST_F(Unreadable, AnInfoPlistIsNone) {
  Open("{ CFBundleIdentifier = x; }");
  CFRelease(bundle_);
  Lock(Contents() / "Info.plist");
  const AsAnybody anybody;
  bundle_ = CreateBundle(Folder());
  ASSERT_NE(bundle_, nullptr);
  EXPECT_EQ(CFBundleGetIdentifier(bundle_), nullptr);
}

TEST_F(Unreadable, ResourcesAreNone) {
  Open("{}", "k = v;");
  Lock(Contents() / "Resources");
  const AsAnybody anybody;
  EXPECT_EQ(Text(CFSTR("k")), "k");
  EXPECT_EQ(Resource("Localizable", CFSTR("strings")), "not found");
}

TEST_F(Unreadable, ALocalizationHasNoTexts) {
  Open("{}", "k = v;");
  Lock(Contents() / "Resources/en.lproj");
  const AsAnybody anybody;
  EXPECT_EQ(Text(CFSTR("k")), "k");
}

TEST_F(OwnBundle, WithVeryManyLocalizationsServesTheUsers) {
  fs::create_directories(Contents() / "Resources");
  for (int i = 0; i < 400; ++i) {
    fs::create_directory(Contents() / "Resources" / ("x" + std::to_string(i) + ".lproj"));
  }
  std::ofstream(Contents() / "Resources/x399.lproj/Last.strings") << "k = v;";
  Open("{}", "k = v;");
  EXPECT_EQ(Text(CFSTR("k")), "v");
  EXPECT_EQ(Resource("Last", CFSTR("strings")), "Contents/Resources/x399.lproj/Last.strings");
  setenv("LANGUAGE", "x399", 1);
  EXPECT_EQ(Resource("Last", CFSTR("strings")), "Contents/Resources/x399.lproj/Last.strings");
}

// URLs

TEST(URLs, AnEmptyPathHasNone) { EXPECT_EQ(MakeURL(""), nullptr); }

TEST(URLs, APathOfNegativeLengthHasNone) {
  EXPECT_EQ(CFURLCreateFromFileSystemRepresentation(kCFAllocatorDefault, reinterpret_cast<const UInt8*>("/"), -1, true),
            nullptr);
}

TEST(URLs, APathNeedsRoomForItsEndToo) {
  const CFURLRef url = MakeURL("/a/b");
  UInt8 path[] = "xxxxx";
  EXPECT_FALSE(CFURLGetFileSystemRepresentation(url, true, path, 0));
  EXPECT_FALSE(CFURLGetFileSystemRepresentation(url, true, path, 4));
  EXPECT_STREQ(reinterpret_cast<const char*>(path), "xxxxx");
  EXPECT_TRUE(CFURLGetFileSystemRepresentation(url, true, path, 5));
  EXPECT_STREQ(reinterpret_cast<const char*>(path), "/a/b");
  CFRelease(url);
}

TEST(URLs, ARelativePathIsResolvedWhenItIsAskedFor) {
  const CFURLRef url = MakeURL("a/b");
  UInt8 path[4096];
  EXPECT_TRUE(CFURLGetFileSystemRepresentation(url, false, path, sizeof(path)));
  EXPECT_STREQ(reinterpret_cast<const char*>(path), "a/b");
  EXPECT_TRUE(CFURLGetFileSystemRepresentation(url, true, path, sizeof(path)));
  EXPECT_EQ(reinterpret_cast<const char*>(path), fs::current_path() / "a/b");
  CFRelease(url);
}

TEST(URLs, ARelativePathFromAFolderThatVanishedDoesNotResolve) {
  const CFURLRef url = MakeURL("a/b");
  const fs::path before = fs::current_path();
  {
    const TemporaryFolder folder;
    fs::current_path(folder.Path());
  }
  UInt8 path[] = "xxxxxxxx";
  EXPECT_FALSE(CFURLGetFileSystemRepresentation(url, true, path, sizeof(path)));
  EXPECT_STREQ(reinterpret_cast<const char*>(path), "xxxxxxxx");
  EXPECT_TRUE(CFURLGetFileSystemRepresentation(url, false, path, sizeof(path)));
  EXPECT_EQ(CreateBundle("a/b"), nullptr);
  fs::current_path(before);
  CFRelease(url);
}

}  // namespace
