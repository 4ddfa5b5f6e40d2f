// That a test which is run on the image for macOS really is.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "tests/macho/loader/fatfile.h"
#include "tests/macho/loader/machofile.h"
#include "tests/macho/loader/processor.h"
#include "tests/support/imageundertest.h"

namespace {

TEST(Casing, IsWhatTheTestsOfTheMacOSImageDrive) {
  EXPECT_EQ(ExecutableUnderTest(), std::filesystem::canonical(BRV_CASING));
}

TEST(Casing, RunsTheVeryBytesOfTheFile) {
  std::ifstream stream(BRV_MACOS_IMAGE, std::ios::binary);
  const std::string universal{std::istreambuf_iterator<char>(stream), {}};
  const std::string_view bytes = macho::ImageFor(macho::kOwnCpuType, universal);
  const macho::MachOFile file = macho::ReadMachO(bytes);
  const auto symbol = std::find_if(file.exports.begin(), file.exports.end(),
                                   [](const macho::Export& e) { return e.name == "_InitializeGlobals"; });
  ASSERT_NE(symbol, file.exports.end());
  const char* const memory = reinterpret_cast<const char*>(&InitializeGlobals) - symbol->address;
  // The code has no place to rebase or to bind.
  const auto code = std::find_if(file.sections.begin(), file.sections.end(),
                                 [](const macho::Section& section) { return section.name == "__text"; });
  ASSERT_NE(code, file.sections.end());
  EXPECT_EQ(bytes.compare(code->address, code->size, memory + code->address, code->size), 0);
}

}  // namespace
