// What brvhost reads of the executable for macOS is what the loader of the tests reads, which runs it.
#include "host/code/codeimage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "tests/macho/loader/fatfile.h"
#include "tests/macho/loader/machofile.h"

namespace {

std::string FileBytes() {
  std::ifstream stream(BRV_MACOS_IMAGE, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// The loader has some names that no source has.
std::string NameInSource(const std::string& symbol) { return symbol.substr(symbol.front() == '_' ? 1 : 0); }

std::set<std::string> ImportsOf(const brvhost::CodeImage& image) {
  std::set<std::string> imports;
  for (const brvhost::CodeImport& entry : image.Imports()) {
    imports.insert(entry.name + " " + image.Libraries().at(entry.library).path);
  }
  return imports;
}

std::set<std::string> ImportsOf(const macho::MachOFile& file) {
  std::set<std::string> imports;
  for (const auto* const binds : {&file.binds, &file.lazyBinds}) {
    for (const macho::Bind& bind : *binds) imports.insert(NameInSource(bind.symbol) + " " + bind.library);
  }
  return imports;
}

std::set<std::string> ExportsOf(const macho::MachOFile& file) {
  std::set<std::string> exports;
  for (const macho::Export& symbol : file.exports) exports.insert(NameInSource(symbol.name));
  return exports;
}

TEST(CodeImage, HasTheNamesThatTheLoaderBinds) {
  const std::string bytes = FileBytes();
  const std::vector<brvhost::CodeImage> images = brvhost::ImagesIn(bytes);
  const std::vector<macho::FatImage> expected = macho::ReadFat(bytes);
  ASSERT_EQ(images.size(), expected.size());
  for (std::size_t i = 0; i < images.size(); ++i) {
    const macho::MachOFile file = macho::ReadMachO(expected[i].bytes);
    std::vector<std::string> libraries;
    for (const brvhost::CodeLibrary& library : images[i].Libraries()) libraries.push_back(library.path);
    EXPECT_EQ(libraries, file.libraries);
    EXPECT_THAT(ImportsOf(images[i]), testing::ContainerEq(ImportsOf(file)));
    EXPECT_THAT(images[i].Exports(), testing::ContainerEq(ExportsOf(file)));
    EXPECT_FALSE(images[i].Exports().empty());
  }
}

}  // namespace
