// What an executable for Linux exports.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "host/code/codeimage.h"
#include "tests/host/code/codewriter.h"
#include "tests/host/code/refusal.h"

namespace brvhost {
namespace {

using testing::ElementsAre;

constexpr int kLocal = 0, kGlobal = 1, kWeak = 2, kUnique = 10;
constexpr int kDefault = 0, kInternal = 1, kHidden = 2, kProtected = 3;
constexpr int kUndefined = 0, kText = 7;

struct Symbol {
  std::string name;
  int binding = kGlobal;
  int visibility = kDefault;
  int home = kText;
};

struct Kind {
  int bits = 64;
  ByteOrder order = ByteOrder::kLowestFirst;
  int machine = 62;
};

std::string SymbolRecord(const Symbol& symbol, std::size_t name, const Kind& kind) {
  constexpr int kFunction = 2;
  CodeWriter record(kind.order);
  record.Word(name);
  if (kind.bits == 32) record.Word(0x1000).Word(4);
  record.Byte(static_cast<std::uint64_t>(symbol.binding << 4 | kFunction))
      .Byte(static_cast<std::uint64_t>(symbol.visibility))
      .Half(static_cast<std::uint64_t>(symbol.home));
  if (kind.bits == 64) record.Number(0x1000, 8).Number(4, 8);
  return record.Bytes();
}

std::string Section(int type, std::size_t at, std::size_t size, int link, const Kind& kind) {
  const unsigned word = kind.bits == 64 ? 8 : 4;
  CodeWriter header(kind.order);
  header.Word(0).Word(static_cast<std::uint64_t>(type)).Number(0, word).Number(0, word);
  header.Number(at, word).Number(size, word).Word(static_cast<std::uint64_t>(link)).Word(0);
  return header.Number(1, word).Number(0, word).Bytes();
}

// Symbols and their names after the header, and three sections: none, the symbols, the names.
std::string Elf(const std::vector<Symbol>& symbols, const Kind& kind = {}) {
  constexpr int kDynamicSymbols = 11, kNames = 3;
  const std::size_t header = kind.bits == 64 ? 64 : 52;
  const unsigned word = kind.bits == 64 ? 8 : 4;
  std::string records = SymbolRecord({"", kLocal, kDefault, kUndefined}, 0, kind);
  CodeWriter names(kind.order);
  names.Byte(0);
  for (const Symbol& symbol : symbols) {
    records += SymbolRecord(symbol, names.Size(), kind);
    names.Text(symbol.name);
  }
  const std::size_t namesAt = header + records.size();
  CodeWriter file(kind.order);
  file.Add("\x7F").Add("ELF").Byte(kind.bits == 64 ? 2 : 1).Byte(kind.order == ByteOrder::kLowestFirst ? 1 : 2).Byte(1);
  file.FillTo(16).Half(3).Half(static_cast<std::uint64_t>(kind.machine)).Word(1);
  file.Number(0, word).Number(0, word).Number(namesAt + names.Size(), word);
  file.Word(0).Half(header).Half(0).Half(0).Half(kind.bits == 64 ? 64 : 40).Half(3).Half(0);
  file.Add(records).Add(names.Bytes()).Add(Section(0, 0, 0, 0, kind));
  file.Add(Section(kDynamicSymbols, header, records.size(), 2, kind));
  return file.Add(Section(kNames, namesAt, names.Size(), 0, kind)).Bytes();
}

CodeImage ImageOf(const std::string& bytes) {
  std::vector<CodeImage> images = ImagesIn(bytes);
  EXPECT_EQ(images.size(), 1u);
  return images.at(0);
}

TEST(ElfImage, ExportsWhatIsDefinedInItAndVisible) {
  const CodeImage image = ImageOf(Elf({{"main"},
                                       {"local", kLocal},
                                       {"weak", kWeak},
                                       {"unique", kUnique},
                                       {"internal", kGlobal, kInternal},
                                       {"hidden", kGlobal, kHidden},
                                       {"protected", kGlobal, kProtected},
                                       {"imported", kGlobal, kDefault, kUndefined}}));
  EXPECT_THAT(image.Exports(), ElementsAre("main", "protected", "unique", "weak"));
  EXPECT_TRUE(image.Imports().empty());
}

TEST(ElfImage, IsReadForAnyProcessor) {
  for (const auto& [kind, processor] : {std::pair(Kind(), CodeProcessor::kX64),
                                        std::pair(Kind{64, ByteOrder::kLowestFirst, 183}, CodeProcessor::kArm64),
                                        std::pair(Kind{64, ByteOrder::kHighestFirst, 22}, CodeProcessor::kOther),
                                        std::pair(Kind{64, ByteOrder::kHighestFirst, 62}, CodeProcessor::kOther),
                                        std::pair(Kind{32, ByteOrder::kLowestFirst, 40}, CodeProcessor::kOther),
                                        std::pair(Kind{32, ByteOrder::kHighestFirst, 4}, CodeProcessor::kOther)}) {
    const CodeImage image = ImageOf(Elf({{"main"}, {"hidden", kGlobal, kHidden}, {"other"}}, kind));
    EXPECT_EQ(image.Processor(), processor);
    EXPECT_THAT(image.Exports(), ElementsAre("main", "other"));
  }
}

TEST(ElfImage, IsRefusedWithoutATable) {
  std::string file = Elf({{"main"}});
  file[file.size() - 2 * 64 + 4] = 5;
  EXPECT_EQ(RefusalOf(file), "has no table of what it exports");
  file = Elf({{"main"}});
  file[0x3C] = 0;
  EXPECT_EQ(RefusalOf(file), "has no table of what it exports");
  file = Elf({{"main"}});
  file[file.size() - 2 * 64 + 0x28] = 3;
  EXPECT_EQ(RefusalOf(file), "refers to a section that it does not have");
  file = Elf({{"main"}});
  file[0x3A] = 63;
  EXPECT_EQ(RefusalOf(file), "has headers of sections of an unknown size");
}

TEST(ElfImage, IsRefusedWhereItEndsEarly) {
  const std::string file = Elf({{"main"}});
  EXPECT_EQ(RefusalOf(file), "");
  for (std::size_t size = 4; size < file.size(); ++size) EXPECT_EQ(RefusalOf(file.substr(0, size)), "ends early");
}

TEST(ElfImage, IsRefusedWhereASizeLeadsBeyondItsEnd) {
  const std::string sound = Elf({{"main"}});
  const std::size_t symbols = sound.size() - 2 * 64;
  // The section's place and size, such that either is beyond the end, and that both together are none.
  for (const std::size_t at : {symbols + 0x18, symbols + 0x20, std::size_t{0x28}}) {
    for (const char high : {'\x01', '\x7F', '\xFF'}) {
      std::string file = sound;
      file[at + 7] = high;
      EXPECT_EQ(RefusalOf(file), "ends early");
    }
  }
  std::string file = sound;
  file.replace(symbols + 0x18, 16, "\xF0\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x40\x00\x00\x00\x00\x00\x00\x00", 16);
  EXPECT_EQ(RefusalOf(file), "ends early");
  // A name beyond the names.
  file = sound;
  file[64 + 24] = 100;
  EXPECT_EQ(RefusalOf(file), "ends early");
}

TEST(ElfImage, BreaksNothingWhenItIsGarbled) {
  ExpectHarmlessWhenGarbled(Elf({{"main"}, {"other"}}));
  ExpectHarmlessWhenGarbled(Elf({{"main"}, {"other"}}, {32, ByteOrder::kHighestFirst, 4}));
}

}  // namespace
}  // namespace brvhost
