// Each call of the platform while memory runs out: none lets an exception out, loses memory, or is broken afterwards.
#include <Carbon/Carbon.h>
#include <brvplatform.h>
#include <gtest/gtest.h>
#include <plist/plist.h>

#include <array>
#include <string>

#include "ownbundle.h"
#include "tests/support/failingmemory.h"
#include "vectors.h"

extern "C" __attribute__((visibility("default"))) int BrvFunctionOfTheProgram() { return 42; }

namespace {

// Each longer than what a string of the C++ library holds in itself.
constexpr const char* kText = "a text that is much too long for a short string";
constexpr const char* kIdentifier = "org.example.memory.that.runs.out";

bool Release(CFTypeRef object) {
  if (object == nullptr) return false;
  CFRelease(object);
  return true;
}

class Strings : public testing::Test {
 protected:
  ~Strings() override { CFRelease(string_); }
  CFStringRef string_ = CFStringCreateWithCString(kCFAllocatorDefault, kText, kCFStringEncodingUTF8);
};

TEST_F(Strings, FromBytes) {
  for (const CFStringEncoding encoding :
       {CFStringEncoding{kCFStringEncodingMacRoman}, CFStringEncoding{kCFStringEncodingUTF8},
        CFStringEncoding{kCFStringEncodingUTF16}, CFStringEncoding{kCFStringEncodingUTF16BE},
        CFStringEncoding{kCFStringEncodingUTF16LE}}) {
    ExpectNothingWhileMemoryRunsOut(
        [&] { return Release(CFStringCreateWithCString(kCFAllocatorDefault, kText, encoding)); });
  }
}

TEST_F(Strings, FromUnits) {
  const std::u16string units(100, u'x');
  ExpectNothingWhileMemoryRunsOut([&] { return Release(MakeString(units)); });
}

TEST_F(Strings, FromUnitsOfANegativeNumberAreNone) {
  const UniChar unit = 'x';
  EXPECT_EQ(CFStringCreateWithCharacters(kCFAllocatorDefault, &unit, -1), nullptr);
}

TEST_F(Strings, FromAFormat) {
  const CFStringRef format = CFSTR("an object %@, units %S, bytes %s, and at last the numbers %+08d %.3f %p");
  const auto* const units = reinterpret_cast<const UniChar*>(u"more than eight units");
  ExpectNothingWhileMemoryRunsOut([&] {
    return Release(
        CFStringCreateWithFormat(kCFAllocatorDefault, nullptr, format, string_, units, kText, 42, 2.5, string_));
  });
}

TEST_F(Strings, Bytes) {
  std::array<UInt8, 100> bytes;
  for (const CFStringEncoding encoding :
       {CFStringEncoding{kCFStringEncodingMacRoman}, CFStringEncoding{kCFStringEncodingASCII},
        CFStringEncoding{kCFStringEncodingUTF8}, CFStringEncoding{kCFStringEncodingUTF16BE}}) {
    bytes.fill(0xAA);
    ExpectNothingWhileMemoryRunsOut([&] {
      CFIndex used = 77;
      const CFIndex units = CFStringGetBytes(string_, CFRangeMake(0, CFStringGetLength(string_)), encoding, '?', false,
                                             bytes.data(), bytes.size(), &used);
      if (units == 0 && (used != 0 || bytes[0] != 0xAA)) ADD_FAILURE() << "something of nothing";
      return units > 0;
    });
  }
}

TEST_F(Strings, PascalStrings) {
  std::array<UInt8, 100> bytes;
  bytes.fill(0xAA);
  ExpectNothingWhileMemoryRunsOut([&] {
    const bool done = CFStringGetPascalString(string_, bytes.data(), bytes.size(), kCFStringEncodingMacRoman);
    if (!done && bytes[0] != 0xAA) ADD_FAILURE() << "something of nothing";
    return done;
  });
}

TEST_F(Strings, CStrings) {
  std::array<char, 100> bytes;
  bytes.fill('\x55');
  ExpectNothingWhileMemoryRunsOut([&] {
    const bool done = CFStringGetCString(string_, bytes.data(), bytes.size(), kCFStringEncodingUTF8);
    if (!done && bytes[0] != '\x55') ADD_FAILURE() << "something of nothing";
    return done;
  });
  EXPECT_STREQ(bytes.data(), kText);
}

TEST_F(Strings, Constants) {
  ExpectNothingWhileMemoryRunsOut([] { return CFSTR("a constant text that is used for the first time") != nullptr; });
  EXPECT_EQ(CFSTR("a constant text that is used for the first time"),
            CFSTR("a constant text that is used for the first time"));
}

TEST_F(Strings, ConstantsOfNoTextAreNone) { EXPECT_EQ(CFSTR("\xFF"), nullptr); }

TEST_F(Strings, FromNoFormatAreNone) {
  EXPECT_EQ(CFStringCreateWithFormat(kCFAllocatorDefault, nullptr, nullptr), nullptr);
}

TEST_F(Strings, AreShownWholeOrNotAtAll) {
  const std::string line = std::string(kText) + "\n";
  bool failed = true;
  for (long successes = 0; failed; ++successes) {
    testing::internal::CaptureStderr();
    {
      const FailingMemory memory(successes);
      CFShow(string_);
      failed = memory.HasFailed();
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), failed ? "" : line);
  }
}

TEST_F(Strings, AreReadWithoutMemory) {
  const CFStringRef another = CFSTR("another text that is too long for a short string");
  ExpectNoAllocation([&] {
    std::array<UniChar, 100> units;
    CFStringGetCharacters(string_, CFRangeMake(1, CFStringGetLength(string_) - 1), units.data());
    CFStringGetIntValue(string_);
    CFStringGetMaximumSizeForEncoding(10, kCFStringEncodingUTF8);
    CFStringGetTypeID();
    CFGetTypeID(string_);
    CFStringCompare(string_, another, 0);
    CFEqual(string_, another);
    CFRelease(CFRetain(string_));
  });
}

TEST(Keys, NeedNoMemoryToLoad) {
  EXPECT_FALSE(MemoryWasNeededToLoad());
  EXPECT_TRUE(CFEqual(kCFBundleExecutableKey, CFSTR("CFBundleExecutable")));
  EXPECT_TRUE(CFEqual(kCFBundleIdentifierKey, CFSTR("CFBundleIdentifier")));
}

TEST(Keyboard, NeedsNoMemory) {
  ExpectNoAllocation([] {
    KeyMap keys;
    BrvPlatformSetKeyDown(3, true);
    BrvPlatformSetModifierFlags(1);
    BrvPlatformSetApplicationTextEncoding(kCFStringEncodingMacRoman);
    GetKeys(keys);
    BrvPlatformModifierFlags();
    GetApplicationTextEncoding();
  });
}

TEST(URLs, AreMadeAndRead) {
  const std::string path = "a/relative/path/that/is/long/enough";
  ExpectNothingWhileMemoryRunsOut([&] { return Release(MakeURL(path)); });
  const CFURLRef url = MakeURL(path);
  std::array<UInt8, 4096> bytes;
  ExpectNothingWhileMemoryRunsOut(
      [&] { return CFURLGetFileSystemRepresentation(url, true, bytes.data(), bytes.size()) != 0; });
  CFRelease(url);
}

TEST(MainBundle, IsMadeAsSoonAsThereIsMemory) {
  ExpectNothingWhileMemoryRunsOut([] { return CFBundleGetMainBundle() != nullptr; });
  EXPECT_EQ(CFBundleGetFunctionPointerForName(CFBundleGetMainBundle(), CFSTR("BrvFunctionOfTheProgram")),
            reinterpret_cast<void*>(&BrvFunctionOfTheProgram));
}

// The same list in each form.

std::string OldStyle() {
  return std::string("{ CFBundleExecutable = Executable; CFBundleIdentifier = \"") + kIdentifier +
         "\"; List = (\"one that is long enough\", { k = v; }, <0123>); CFBundleDevelopmentRegion = \"a region of "
         "its own\"; }";
}

plist_t Tree() {
  const plist_t tree = plist_new_dict();
  plist_dict_set_item(tree, "CFBundleExecutable", plist_new_string("Executable"));
  plist_dict_set_item(tree, "CFBundleIdentifier", plist_new_string(kIdentifier));
  plist_dict_set_item(tree, "List", plist_new_array());
  return tree;
}

template <class Write>
std::string Written(Write write) {
  const plist_t tree = Tree();
  char* bytes = nullptr;
  std::uint32_t size = 0;
  write(tree, &bytes, &size);
  std::string text(bytes, size);
  std::free(bytes);
  plist_free(tree);
  return text;
}

std::string Xml() { return Written(plist_to_xml); }
std::string Binary() { return Written(plist_to_bin); }

class Bundles : public OwnBundle {
 protected:
  void SetUp() override {
    setenv("LANGUAGE", "a-language-that-nobody-speaks:en-GB-and-so-on", 1);
    name_ = "a folder of a long name.bundle";
  }

  void Fill() {
    Open(OldStyle(), "\"a key that is long enough\" = \"a text that is long enough\"; k = v;");
    std::filesystem::create_directories(Contents() / "Resources/fr-CA.lproj");
    std::filesystem::create_directories(Contents() / BRV_EXECUTABLE_FOLDER);
    std::ofstream(Contents() / BRV_EXECUTABLE_FOLDER "/Executable.so") << "nothing to load";
  }

  void ExpectToOpen(const std::string& infoPlist) {
    Write(infoPlist);
    const CFURLRef url = MakeURL(Folder());
    const CFStringRef identifier = CFSTR("org.example.memory.that.runs.out");
    ExpectNothingWhileMemoryRunsOut([&] {
      const CFBundleRef bundle = CFBundleCreate(kCFAllocatorDefault, url);
      if (CFBundleGetBundleWithIdentifier(identifier) != bundle) ADD_FAILURE() << "half of a bundle is registered";
      return Release(bundle);
    });
    EXPECT_EQ(CFBundleGetBundleWithIdentifier(identifier), nullptr);
    CFRelease(url);
  }
};

TEST_F(Bundles, AreMadeWholeOrNotAtAllFromAnOldStyleList) { ExpectToOpen(OldStyle()); }
TEST_F(Bundles, AreMadeWholeOrNotAtAllFromAnXmlList) { ExpectToOpen(Xml()); }
TEST_F(Bundles, AreMadeWholeOrNotAtAllFromABinaryList) { ExpectToOpen(Binary()); }

TEST_F(Bundles, GiveTheirTexts) {
  Fill();
  const CFStringRef key = CFSTR("a key that is long enough");
  const CFStringRef text = CFSTR("a text that is long enough");
  const CFStringRef table = CFSTR("Localizable");
  const CFStringRef tables[] = {nullptr, table};
  for (const CFStringRef name : tables) {
    ExpectNothingWhileMemoryRunsOut([&] {
      const CFStringRef found = CFBundleCopyLocalizedString(bundle_, key, key, name);
      if (found != nullptr && !CFEqual(found, text)) ADD_FAILURE() << "not its text";
      return Release(found);
    });
  }
}

TEST_F(Bundles, GiveTheirFiles) {
  Fill();
  const CFStringRef name = CFSTR("Localizable");
  const CFStringRef type = CFSTR("strings");
  ExpectNothingWhileMemoryRunsOut([&] { return Release(CFBundleCopyResourceURL(bundle_, name, type, nullptr)); });
  ExpectNothingWhileMemoryRunsOut([&] { return Release(CFBundleCopyExecutableURL(bundle_)); });
}

TEST_F(Bundles, GiveTheirFunctions) {
  const CFBundleRef bundle = CFBundleGetMainBundle();
  const CFStringRef name = CFSTR("BrvFunctionOfTheProgram");
  ExpectNothingWhileMemoryRunsOut([&] { return CFBundleGetFunctionPointerForName(bundle, name) != nullptr; });
}

// A constant that memory ran out for is null where it is used.
TEST_F(Bundles, HaveNothingForAConstantThatIsNull) {
  Fill();
  EXPECT_EQ(CFBundleGetBundleWithIdentifier(nullptr), nullptr);
  EXPECT_EQ(CFBundleGetValueForInfoDictionaryKey(bundle_, nullptr), nullptr);
  EXPECT_EQ(CFBundleCopyResourceURL(bundle_, nullptr, nullptr, nullptr), nullptr);
  EXPECT_EQ(CFBundleCopyLocalizedString(bundle_, nullptr, nullptr, nullptr), nullptr);
  EXPECT_EQ(CFBundleGetFunctionPointerForName(CFBundleGetMainBundle(), nullptr), nullptr);
}

TEST_F(Bundles, AreDescribed) {
  Fill();
  const CFStringRef format = CFSTR("%@");
  ExpectNothingWhileMemoryRunsOut(
      [&] { return Release(CFStringCreateWithFormat(kCFAllocatorDefault, nullptr, format, bundle_)); });
}

TEST_F(Bundles, AreFoundAndAskedWithoutMemory) {
  Fill();
  const CFStringRef identifier = CFSTR("org.example.memory.that.runs.out");
  ExpectNoAllocation([&] {
    EXPECT_EQ(CFBundleGetBundleWithIdentifier(identifier), bundle_);
    EXPECT_NE(CFBundleGetIdentifier(bundle_), nullptr);
    EXPECT_NE(CFBundleGetValueForInfoDictionaryKey(bundle_, kCFBundleExecutableKey), nullptr);
    EXPECT_FALSE(CFBundleIsExecutableLoaded(bundle_));
  });
}

}  // namespace
