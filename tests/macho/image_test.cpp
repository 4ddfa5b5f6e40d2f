// The executable for macOS as a file: what a Mac's loader finds in it, and what must not be in it.
#include <cxxabi.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <regex>
#include <set>
#include <sstream>

#include "tests/macho/loader/fatfile.h"
#include "tests/macho/loader/machofile.h"
#include "tests/macho/loader/machoformat.h"

namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAreArray;

std::string BytesOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  EXPECT_TRUE(stream) << path;
  return {std::istreambuf_iterator<char>(stream), {}};
}

const std::string& FileBytes() {
  static const std::string bytes = BytesOf(BRV_MACOS_IMAGE);
  return bytes;
}

std::vector<macho::Bind> AllBinds(const macho::MachOFile& image) {
  std::vector<macho::Bind> binds = image.binds;
  binds.insert(binds.end(), image.lazyBinds.begin(), image.lazyBinds.end());
  return binds;
}

// What holds for the image of either processor.
class MacOSImage : public testing::TestWithParam<std::uint32_t> {
 protected:
  std::uint32_t Processor() const { return GetParam(); }
  const std::string_view bytes_ = macho::ImageFor(Processor(), FileBytes());
  const macho::MachOFile image_ = macho::ReadMachO(bytes_);
};

INSTANTIATE_TEST_SUITE_P(EitherProcessor, MacOSImage, testing::Values(macho::CPU_TYPE_X86_64, macho::CPU_TYPE_ARM64),
                         [](const testing::TestParamInfo<std::uint32_t>& processor) {
                           return processor.param == macho::CPU_TYPE_ARM64 ? "arm64" : "x86_64";
                         });

const std::string kFrameworks = "/System/Library/Frameworks/";
const std::string kCoreFoundation = kFrameworks + "CoreFoundation.framework/Versions/A/CoreFoundation";
const std::string kCarbon = kFrameworks + "Carbon.framework/Versions/A/Carbon";
const std::string kAppKit = kFrameworks + "AppKit.framework/Versions/C/AppKit";
const std::string kObjectiveC = "/usr/lib/libobjc.A.dylib";
const std::string kCxx = "/usr/lib/libc++.1.dylib";
const std::string kSystem = "/usr/lib/libSystem.B.dylib";

// The library that has a symbol on a Mac, by the family of its name.
std::string HomeOf(const std::string& symbol) {
  const std::pair<std::regex, std::string> families[] = {
      {std::regex("_(__)?k?CF[A-Z].*"), kCoreFoundation},
      {std::regex("_(GetKeys|GetApplicationTextEncoding)"), kCarbon},
      {std::regex("_(objc|sel)_.*"), kObjectiveC},
      {std::regex("__Z.*|___cxa_(guard|throw|rethrow|begin_catch|end_catch|allocate|free)_?.*|___gxx_personality_v0"),
       kCxx},
  };
  for (const auto& [family, library] : families) {
    if (std::regex_match(symbol, family)) return library;
  }
  return kSystem;
}

// The name as a reader writes it; each standard library has its types in a namespace of its own inside std.
std::string ReadableName(const std::string& symbol) {
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> demangled(abi::__cxa_demangle(symbol.c_str(), nullptr, nullptr, &status),
                                                         std::free);
  return std::regex_replace(status == 0 ? demangled.get() : symbol, std::regex("std::(__1|__cxx11)::"), "std::");
}

// The names in what nm prints.
std::vector<std::string> NamesIn(const std::string& path) {
  std::istringstream lines(BytesOf(path));
  std::vector<std::string> names;
  for (std::string address, kind, name; lines >> address >> kind >> name;) names.push_back(ReadableName(name));
  return names;
}

std::set<std::string> SymbolsOf(const std::string& stub) {
  std::istringstream lines(BytesOf(BRV_STUBS + stub));
  const std::regex symbol(" *- '(.*)'");
  std::set<std::string> symbols;
  std::smatch match;
  for (std::string line; std::getline(lines, line);) {
    if (std::regex_match(line, match, symbol)) symbols.insert(match[1]);
  }
  return symbols;
}

// The strings of the file that begin with a slash and a letter.
std::set<std::string> PathsIn(const std::string& bytes) {
  std::set<std::string> paths;
  const std::regex path("/[A-Za-z][A-Za-z0-9_.+/-]+");
  for (std::size_t at = 0; at < bytes.size(); at += std::strlen(bytes.c_str() + at) + 1) {
    const std::string text = bytes.c_str() + at;
    std::smatch found;
    if (std::regex_search(text, found, path) && found.position() == 0) paths.insert(found.str());
  }
  return paths;
}

TEST(MacOSExecutable, HoldsAnImageForEitherProcessorOfMacs) {
  std::vector<std::uint32_t> processors;
  for (const macho::FatImage& image : macho::ReadFat(FileBytes())) processors.push_back(image.cpuType);
  EXPECT_THAT(processors, ElementsAre(macho::CPU_TYPE_X86_64, macho::CPU_TYPE_ARM64));
}

TEST(MacOSExecutable, FindsNoOtherSymbolsOfTheObjectiveCRuntimeThanItImports) {
  std::set<std::string> imported;
  for (const macho::FatImage& image : macho::ReadFat(FileBytes())) {
    for (const macho::Bind& bind : AllBinds(macho::ReadMachO(image.bytes))) {
      if (bind.library == kObjectiveC) imported.insert(bind.symbol);
    }
  }
  EXPECT_EQ(SymbolsOf("/usr/lib/libobjc.tbd"), imported);
}

TEST(StubsOfFrameworks, HaveWhatThePlatformHasForLinux) {
  std::set<std::string> ofFrameworks =
      SymbolsOf("/System/Library/Frameworks/CoreFoundation.framework/CoreFoundation.tbd");
  ofFrameworks.merge(SymbolsOf("/System/Library/Frameworks/Carbon.framework/Carbon.tbd"));
  std::set<std::string> ofPlatform;
  for (const std::string& name : NamesIn(BRV_PLATFORM_EXPORTS)) {
    if (!name.starts_with("BrvPlatform")) ofPlatform.insert("_" + name);
  }
  EXPECT_EQ(ofFrameworks, ofPlatform);
}

TEST(MacOSExecutable, HoldsNoPathButThoseOfTheSystemsLibraries) {
  std::set<std::string> expected = {kCoreFoundation, kCarbon, kAppKit, kObjectiveC, kCxx, kSystem};
  EXPECT_EQ(PathsIn(FileBytes()), expected);
  EXPECT_EQ(FileBytes().find(BRV_SOURCE_DIR), std::string::npos);
  EXPECT_EQ(FileBytes().find(std::getenv("HOME")), std::string::npos);
}

TEST_P(MacOSImage, IsALoadableBundleForItsProcessor) {
  EXPECT_EQ(image_.fileType, macho::MH_BUNDLE);
  EXPECT_EQ(image_.cpuType, Processor());
}

TEST_P(MacOSImage, RunsFromMacOS11On) {
  EXPECT_EQ(image_.platform, macho::PLATFORM_MACOS);
  EXPECT_EQ(image_.minimumSystem, 0x000B0000u);
}

TEST_P(MacOSImage, HasItselfAndItsSegmentsOnPagesOfItsProcessor) {
  const std::uint64_t pageSize = Processor() == macho::CPU_TYPE_ARM64 ? 16384 : 4096;
  EXPECT_EQ(static_cast<std::uint64_t>(bytes_.data() - FileBytes().data()) % pageSize, 0u);
  for (const macho::Segment& segment : image_.segments) {
    EXPECT_EQ(segment.address % pageSize, 0u) << segment.name;
    EXPECT_EQ(segment.fileOffset % pageSize, 0u) << segment.name;
  }
}

TEST_P(MacOSImage, HasNoPageThatIsWrittenAndRun) {
  for (const macho::Segment& segment : image_.segments) {
    EXPECT_NE(segment.protection & (macho::VM_PROT_WRITE | macho::VM_PROT_EXECUTE),
              macho::VM_PROT_WRITE | macho::VM_PROT_EXECUTE)
        << segment.name;
  }
}

TEST_P(MacOSImage, NamesTheLibraryOfEachImport) { EXPECT_NE(image_.flags & macho::MH_TWOLEVEL, 0u); }

TEST_P(MacOSImage, NeedsTheseLibrariesOnly) {
  EXPECT_THAT(image_.libraries, ElementsAre(kCoreFoundation, kCarbon, kAppKit, kObjectiveC, kCxx, kSystem));
}

TEST_P(MacOSImage, ImportsEachSymbolFromTheLibraryThatHasItOnAMac) {
  ASSERT_FALSE(AllBinds(image_).empty());
  for (const macho::Bind& bind : AllBinds(image_)) EXPECT_EQ(bind.library, HomeOf(bind.symbol)) << bind.symbol;
}

TEST_P(MacOSImage, ExportsWhatTheLinuxBundleExports) {
  std::vector<std::string> exported;
  for (const macho::Export& symbol : image_.exports) {
    ASSERT_EQ(symbol.name.front(), '_');
    exported.push_back(ReadableName(symbol.name.substr(1)));
  }
  EXPECT_THAT(exported, UnorderedElementsAreArray(NamesIn(BRV_LINUX_EXPORTS)));
}

TEST_P(MacOSImage, IsRefusedWhenItIsCutOff) {
  for (std::size_t size = 0; size < bytes_.size(); size += 97) {
    EXPECT_THROW(macho::ReadMachO(bytes_.substr(0, size)), std::runtime_error) << size;
  }
}

TEST(ReadMachO, RefusesAFileOfAnotherKind) {
  EXPECT_THROW(macho::ReadMachO(BytesOf(BRV_LINUX_IMAGE)), std::runtime_error);
}

}  // namespace
