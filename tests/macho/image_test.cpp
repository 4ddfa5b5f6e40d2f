// The executable for macOS as a file: what a Mac's loader finds in it, and what must not be in it.
#include <cxxabi.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <regex>
#include <set>
#include <sstream>

#include "tests/macho/loader/machofile.h"
#include "tests/macho/loader/machoformat.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

std::string BytesOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  EXPECT_TRUE(stream) << path;
  return {std::istreambuf_iterator<char>(stream), {}};
}

const std::string& ImageBytes() {
  static const std::string bytes = BytesOf(BRV_MACOS_IMAGE);
  return bytes;
}

const macho::MachOFile& Image() {
  static const macho::MachOFile image = macho::ReadMachO(ImageBytes());
  return image;
}

std::vector<macho::Bind> AllBinds() {
  std::vector<macho::Bind> binds = Image().binds;
  binds.insert(binds.end(), Image().lazyBinds.begin(), Image().lazyBinds.end());
  return binds;
}

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

std::vector<std::string> NamesInLinuxBundle() {
  const std::string command = BRV_NM " -D --defined-only " BRV_LINUX_IMAGE;
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::vector<std::string> names;
  std::array<char, 4096> line;
  while (std::fgets(line.data(), line.size(), pipe.get()) != nullptr) {
    std::istringstream words(line.data());
    std::string address, kind, name;
    words >> address >> kind >> name;
    names.push_back(ReadableName(name));
  }
  return names;
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

TEST(MacOSImage, IsALoadableBundleForIntelMacs) {
  EXPECT_EQ(Image().fileType, macho::MH_BUNDLE);
  EXPECT_EQ(Image().cpuType, macho::CPU_TYPE_X86_64);
}

TEST(MacOSImage, RunsFromMacOS11On) {
  EXPECT_EQ(Image().platform, macho::PLATFORM_MACOS);
  EXPECT_EQ(Image().minimumSystem, 0x000B0000u);
}

TEST(MacOSImage, NamesTheLibraryOfEachImport) { EXPECT_NE(Image().flags & macho::MH_TWOLEVEL, 0u); }

TEST(MacOSImage, NeedsTheseLibrariesOnly) {
  EXPECT_THAT(Image().libraries, ElementsAre(kCoreFoundation, kCarbon, kAppKit, kObjectiveC, kCxx, kSystem));
}

TEST(MacOSImage, ImportsEachSymbolFromTheLibraryThatHasItOnAMac) {
  ASSERT_FALSE(AllBinds().empty());
  for (const macho::Bind& bind : AllBinds()) EXPECT_EQ(bind.library, HomeOf(bind.symbol)) << bind.symbol;
}

TEST(MacOSImage, FindsNothingInItsStubsThatItDoesNotImport) {
  std::set<std::string> imported;
  for (const macho::Bind& bind : AllBinds()) imported.insert(bind.symbol);
  for (const std::string stub : {BRV_STUBS "/System/Library/Frameworks/CoreFoundation.framework/CoreFoundation.tbd",
                                 BRV_STUBS "/System/Library/Frameworks/Carbon.framework/Carbon.tbd",
                                 BRV_STUBS "/System/Library/Frameworks/AppKit.framework/AppKit.tbd",
                                 BRV_STUBS "/usr/lib/libobjc.tbd", BRV_STUBS "/usr/lib/libc++.tbd"}) {
    std::istringstream lines(BytesOf(stub));
    const std::regex symbol(" *- '(.*)'");
    std::smatch match;
    for (std::string line; std::getline(lines, line);) {
      if (!std::regex_match(line, match, symbol)) continue;
      EXPECT_EQ(imported.count(match[1]), 1u) << match[1] << " in " << stub;
    }
  }
}

TEST(MacOSImage, ExportsWhatTheLinuxBundleExports) {
  std::vector<std::string> exported;
  for (const macho::Export& symbol : Image().exports) {
    ASSERT_EQ(symbol.name.front(), '_');
    exported.push_back(ReadableName(symbol.name.substr(1)));
  }
  EXPECT_THAT(exported, UnorderedElementsAreArray(NamesInLinuxBundle()));
}

TEST(MacOSImage, HoldsNoPathButThoseOfTheSystemsLibraries) {
  std::set<std::string> expected = {kCoreFoundation, kCarbon, kAppKit, kObjectiveC, kCxx, kSystem};
  EXPECT_EQ(PathsIn(ImageBytes()), expected);
  EXPECT_EQ(ImageBytes().find(BRV_SOURCE_DIR), std::string::npos);
  EXPECT_EQ(ImageBytes().find(std::getenv("HOME")), std::string::npos);
}

TEST(ReadMachO, RefusesAFileThatIsCutOff) {
  for (std::size_t size = 0; size < ImageBytes().size(); size += 97) {
    EXPECT_THROW(macho::ReadMachO(std::string_view(ImageBytes()).substr(0, size)), std::runtime_error) << size;
  }
}

TEST(ReadMachO, RefusesAFileOfAnotherKind) {
  EXPECT_THROW(macho::ReadMachO(BytesOf(BRV_LINUX_IMAGE)), std::runtime_error);
}

}  // namespace
