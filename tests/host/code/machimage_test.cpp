// What an executable for macOS imports and exports.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "host/code/codeimage.h"
#include "tests/host/code/codewriter.h"
#include "tests/host/code/refusal.h"

namespace brvhost {
namespace {

using testing::ElementsAre;

constexpr std::uint32_t kLibrary = 0xC, kWeakLibrary = 0x80000018, kSearchFolder = 0x8000001C;
constexpr std::uint32_t kDynamicInfo = 0x80000022, kExportTrie = 0x80000033, kChainedImports = 0x80000034;

std::string Command(std::uint32_t kind, const std::string& content) {
  return CodeWriter().Word(kind).Word(8 + content.size()).Add(content).Bytes();
}

std::string Library(const std::string& path, std::uint32_t kind = kLibrary) {
  return Command(kind, CodeWriter().Word(24).Word(0).Word(0).Word(0).Text(path).Bytes());
}

std::string SearchFolder(const std::string& path) {
  return Command(kSearchFolder, CodeWriter().Word(12).Text(path).Bytes());
}

// A head, commands, and what they refer to.
std::string Mach(const std::vector<std::string>& commands, const std::string& rest = "") {
  CodeWriter file;
  file.Word(0xFEEDFACF).Word(0x0100000C).Word(0).Word(8).Word(commands.size()).Word(0).Word(0x80).Word(0);
  for (const std::string& command : commands) file.Add(command);
  return file.Add(rest).Bytes();
}

// With libraries and the two kinds of instructions for the loader.
std::string WithImports(const std::string& atStart, const std::string& whenUsed) {
  const std::vector<std::string> libraries = {Library("/usr/lib/a"), Library("/usr/lib/b", kWeakLibrary)};
  const std::size_t at = Mach(libraries).size() + 48;
  CodeWriter info;
  info.Word(0).Word(0).Word(at).Word(atStart.size()).Word(0).Word(0);
  info.Word(at + atStart.size()).Word(whenUsed.size()).Word(0).Word(0);
  return Mach({libraries[0], libraries[1], Command(kDynamicInfo, info.Bytes())}, atStart + whenUsed);
}

std::string WithTable(std::uint32_t kind, const std::string& table) {
  const std::string library = Library("/usr/lib/a");
  const std::size_t at = Mach({library}).size() + 16;
  return Mach({library, Command(kind, CodeWriter().Word(at).Word(table.size()).Bytes())}, table);
}

CodeImage ImageOf(const std::string& bytes) {
  std::vector<CodeImage> images = ImagesIn(bytes);
  EXPECT_EQ(images.size(), 1u);
  return images.at(0);
}

// "name from library 1", with "perhaps" before it where it may be missing.
std::vector<std::string> ImportsIn(const std::string& bytes) {
  std::vector<std::string> imports;
  const CodeImage image = ImageOf(bytes);
  for (const CodeImport& entry : image.Imports()) {
    const std::string from = entry.from == CodeImport::kProgram    ? "the program"
                             : entry.from == CodeImport::kAnything ? "anything"
                                                                   : image.Libraries().at(entry.library).path;
    imports.push_back((entry.mayBeMissing ? "perhaps " : "") + entry.name + " from " + from);
  }
  return imports;
}

// Instructions.
std::string From(int library) { return CodeWriter().Byte(0x10u + static_cast<unsigned>(library)).Bytes(); }
std::string Origin(int origin) { return CodeWriter().Byte(0x30u | (static_cast<unsigned>(origin) & 15u)).Bytes(); }
std::string Name(const std::string& name, bool isWeak = false) {
  return CodeWriter().Byte(isWeak ? 0x41 : 0x40).Text(name).Bytes();
}
const std::string kBind = "\x90";

TEST(MachImage, NamesItsLibraries) {
  const CodeImage image =
      ImageOf(Mach({Library("/usr/lib/a"), Library("@rpath/b", kWeakLibrary), SearchFolder("@loader_path/.."),
                    Library("c", 0x8000001F), Library("d", 0x20), Library("e", 0x80000023), Library("own", 0xD)}));
  std::vector<std::string> paths;
  for (const CodeLibrary& library : image.Libraries())
    paths.push_back((library.mayBeMissing ? "perhaps " : "") + library.path);
  EXPECT_THAT(paths, ElementsAre("/usr/lib/a", "perhaps @rpath/b", "c", "d", "e"));
  EXPECT_THAT(image.SearchFolders(), ElementsAre("@loader_path/.."));
  EXPECT_EQ(image.Processor(), CodeProcessor::kArm64);
}

TEST(MachImage, ImportsAtItsStart) {
  EXPECT_THAT(ImportsIn(WithImports("\xD0\x02\xD1" + From(1) + Name("_one") + "\x51\x72\x08" + kBind + kBind +
                                        Name("_two", true) + kBind + "\x20\x02" + Name("three") + "\xA0\x90\x01" +
                                        Name("_four") + "\xB3" + Name("_five") + "\xC0\x02\x08" + Name("_six") +
                                        "\x60\x7F\x80\x04" + Name("_seven") + kBind,
                                    "")),
              ElementsAre("five from /usr/lib/b", "four from /usr/lib/b", "one from /usr/lib/a",
                          "seven from /usr/lib/b", "three from /usr/lib/b", "perhaps two from /usr/lib/a"));
}

TEST(MachImage, ImportsWhenANameIsUsed) {
  using namespace std::string_literals;
  const std::string first = From(1) + Name("_one") + kBind + "\0"s;
  const std::string second = From(2) + Name("_two") + kBind + "\0\0"s;
  EXPECT_THAT(ImportsIn(WithImports("", first + second)), ElementsAre("one from /usr/lib/a", "two from /usr/lib/b"));
  // At the start, the first end is the end.
  EXPECT_THAT(ImportsIn(WithImports(first + second, "")), ElementsAre("one from /usr/lib/a"));
}

TEST(MachImage, ImportsFromNoLibrary) {
  EXPECT_THAT(ImportsIn(WithImports(Origin(0) + Name("_own") + kBind + Origin(-1) + Name("_one") + kBind + Origin(-2) +
                                        Name("_two") + kBind + Origin(-3) + Name("_first") + kBind,
                                    "")),
              ElementsAre("one from the program", "two from anything"));
}

TEST(MachImage, ImportsOneNameFromSeveralPlaces) {
  EXPECT_THAT(ImportsIn(WithImports(Name("_one") + From(1) + kBind + From(2) + kBind + From(1) + kBind, "")),
              ElementsAre("one from /usr/lib/a", "one from /usr/lib/b"));
}

// Three names, and an entry of some format for each: from the library, from anything, perhaps from the library.
std::string Chained(std::uint32_t format) {
  const std::string names = CodeWriter().Byte(0).Text("_one").Text("_two").Text("_three").Bytes();
  struct Entry {
    std::uint64_t origin, isWeak, name;
  };
  CodeWriter entries;
  for (const Entry& entry : {Entry{1, 0, 1}, Entry{0xFFFE, 0, 6}, Entry{1, 1, 11}}) {
    if (format == 3) {
      entries.Number(entry.origin | entry.isWeak << 16 | entry.name << 32, 8).Number(8, 8);
    } else {
      entries.Word((entry.origin & 0xFF) | entry.isWeak << 8 | entry.name << 9);
      if (format == 2) entries.Word(8);
    }
  }
  CodeWriter table;
  table.Word(0).Word(28).Word(28).Word(28 + entries.Size()).Word(3).Word(format).Word(0);
  return table.Add(entries.Bytes()).Add(names).Bytes();
}

TEST(MachImage, ImportsByATable) {
  for (const std::uint32_t format : {1u, 2u, 3u}) {
    EXPECT_THAT(ImportsIn(WithTable(kChainedImports, Chained(format))),
                ElementsAre("one from /usr/lib/a", "perhaps three from /usr/lib/a", "two from anything"));
  }
}

TEST(MachImage, IsRefusedWithAnotherTable) {
  EXPECT_EQ(RefusalOf(WithTable(kChainedImports, Chained(4))), "has imports in a form that is not known");
  std::string compressed = Chained(1);
  compressed[24] = 1;
  EXPECT_EQ(RefusalOf(WithTable(kChainedImports, compressed)), "has names in a form that is not known");
  std::string many = Chained(1);
  many.replace(16, 4, "\xFF\xFF\xFF\xFF");
  EXPECT_EQ(RefusalOf(WithTable(kChainedImports, many)), "ends early");
  std::string far = Chained(3);
  far.replace(12, 4, "\xFF\xFF\xFF\xFF");
  EXPECT_EQ(RefusalOf(WithTable(kChainedImports, far)), "ends early");
}

// The names _a, _ab and _b; _ itself is none.
const std::string kTrie = [] {
  CodeWriter trie;
  trie.Byte(0).Byte(1).Text("_").Byte(5);                                  // 0
  trie.Byte(0).Byte(2).Text("a").Byte(14).Text("b").Byte(22);              // 5
  trie.FillTo(14).Byte(2).Byte(0).Byte(9).Byte(1).Text("b").Byte(22 + 5);  // 14
  trie.FillTo(22).Byte(2).Byte(0).Byte(7).Byte(0).FillTo(27);              // 22
  return trie.Byte(2).Byte(0).Byte(8).Byte(0).Bytes();                     // 27
}();

TEST(MachImage, ExportsTheNamesInATree) {
  EXPECT_THAT(ImageOf(WithTable(kExportTrie, kTrie)).Exports(), ElementsAre("a", "ab", "b"));
  EXPECT_TRUE(ImageOf(WithTable(kExportTrie, "")).Exports().empty());
}

TEST(MachImage, ExportsTheNamesThatItsInformationRefersTo) {
  const std::size_t at = Mach({}).size() + 48;
  CodeWriter info;
  for (int i = 0; i < 4; ++i) info.Word(0).Word(0);
  info.Word(at).Word(kTrie.size());
  for (const std::uint32_t kind : {0x22u, kDynamicInfo}) {
    EXPECT_THAT(ImageOf(Mach({Command(kind, info.Bytes())}, kTrie)).Exports(), ElementsAre("a", "ab", "b"));
  }
}

TEST(MachImage, IsRefusedWithATreeThatEndsNowhere) {
  std::string circle = kTrie;
  circle[4] = 0;
  EXPECT_EQ(RefusalOf(WithTable(kExportTrie, circle)), "has exports that go in a circle");
  std::string shared = kTrie;
  shared[12] = 14;
  EXPECT_EQ(RefusalOf(WithTable(kExportTrie, shared)), "has exports that go in a circle");
  std::string far = kTrie;
  far[4] = 31;
  EXPECT_EQ(RefusalOf(WithTable(kExportTrie, far)), "has exports beyond its end");
  std::string large = kTrie;
  large[14] = 100;
  EXPECT_EQ(RefusalOf(WithTable(kExportTrie, large)), "ends early");
  // With 64 bits alone, the content of the node would end in the number of its size.
  CodeWriter huge;
  huge.Add(std::string(9, '\xFF')).Byte(1).Text("a").Byte(13).Byte(0).Byte(0);
  EXPECT_EQ(RefusalOf(WithTable(kExportTrie, huge.Bytes())), "ends early");
  EXPECT_EQ(RefusalOf(WithTable(kExportTrie, std::string(11, '\xFF'))), "has a number of more than 64 bits");
}

// Each node exports the name so far, and adds 100 characters to it.
TEST(MachImage, IsRefusedWithMoreNamesThanAnyCode) {
  CodeWriter trie;
  for (int i = 0; i < 2000; ++i) {
    const std::uint64_t next = static_cast<std::uint64_t>(i + 1) * 108;
    trie.Byte(1).Byte(0).Byte(1).Text(std::string(100, 'x'));
    trie.Byte((next & 0x7F) | 0x80).Byte((next >> 7 & 0x7F) | 0x80).Byte((next >> 14 & 0x7F) | 0x80).Byte(0);
  }
  const std::string bytes = trie.Add(std::string(3, '\0')).Bytes();
  EXPECT_EQ(RefusalOf(WithTable(kExportTrie, bytes)), "has more names than any code");
}

TEST(MachImage, IsRefusedWhereItEndsEarly) {
  const std::string file = WithImports(From(1) + Name("_one") + kBind, "");
  EXPECT_EQ(RefusalOf(file), "");
  for (std::size_t size = 4; size < file.size(); ++size) EXPECT_EQ(RefusalOf(file.substr(0, size)), "ends early");
}

TEST(MachImage, IsRefusedWithCommandsThatAreNone) {
  std::string file = Mach({Library("/usr/lib/a")});
  file[32 + 4] = 7;
  EXPECT_EQ(RefusalOf(file), "has a load command without its size");
  file[32 + 7] = '\x7F';
  EXPECT_EQ(RefusalOf(file), "ends early");
  file = Mach({Library("/usr/lib/a")});
  file[32 + 8] = 100;
  EXPECT_EQ(RefusalOf(file), "ends early");
}

TEST(MachImage, IsRefusedWithImportsThatAreNone) {
  EXPECT_EQ(RefusalOf(WithImports(From(3) + Name("_one") + kBind, "")), "imports from a library that it does not name");
  EXPECT_EQ(RefusalOf(WithImports(Origin(-4) + Name("_one") + kBind, "")), "has an import of an unknown origin");
  EXPECT_EQ(RefusalOf(WithImports("\xE0", "")), "has imports in a form that is not known");
}

TEST(MachImage, IsRefusedFor32Bits) {
  std::string file = Mach({});
  file[0] = '\xCE';
  EXPECT_EQ(RefusalOf(file), "has no code for 64 bits");
}

TEST(MachImage, BreaksNothingWhenItIsGarbled) {
  ExpectHarmlessWhenGarbled(WithImports(From(1) + Name("_one") + kBind, From(2) + Name("_two") + kBind));
  ExpectHarmlessWhenGarbled(WithTable(kExportTrie, kTrie));
  for (const std::uint32_t format : {1u, 2u, 3u}) {
    ExpectHarmlessWhenGarbled(WithTable(kChainedImports, Chained(format)));
  }
}

}  // namespace
}  // namespace brvhost
