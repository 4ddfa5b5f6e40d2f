// The header of a universal file: what is read from it, and what is refused.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/macho/loader/fatfile.h"

namespace {

constexpr std::uint32_t kMagic = 0xCAFEBABE;
constexpr std::uint32_t kIntel = 0x01000007;
constexpr std::uint32_t kArm = 0x0100000C;

// The parts of the header's record of an image.
struct Record {
  std::uint32_t processor, offset, size, align;
};

std::string BigEndian(std::uint32_t number) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
  return bytes;
}

std::string Header(std::uint32_t magic, std::uint32_t count, const std::vector<Record>& records) {
  std::string bytes = BigEndian(magic) + BigEndian(count);
  for (const Record& record : records) {
    for (const std::uint32_t field : {record.processor, 0u, record.offset, record.size, record.align}) {
      bytes += BigEndian(field);
    }
  }
  return bytes;
}

// A file of 64 bytes: 48 of the header for two images, "Intel!!!" and "8 bytes.".
std::string File(const std::vector<Record>& records) {
  std::string bytes = Header(kMagic, static_cast<std::uint32_t>(records.size()), records);
  bytes.resize(48);
  return bytes + "Intel!!!8 bytes.";
}

void ExpectRefused(const std::string& file) { EXPECT_THROW(macho::ReadFat(file), std::runtime_error); }

TEST(ReadFat, FindsTheImageOfEachProcessor) {
  const std::string file = File({{kIntel, 48, 8, 3}, {kArm, 56, 8, 3}});
  EXPECT_EQ(macho::ImageFor(kIntel, file), "Intel!!!");
  EXPECT_EQ(macho::ImageFor(kArm, file), "8 bytes.");
}

TEST(ReadFat, KeepsTheOrderOfTheHeader) {
  const auto images = macho::ReadFat(File({{kArm, 56, 8, 3}, {kIntel, 48, 8, 3}}));
  ASSERT_EQ(images.size(), 2u);
  EXPECT_EQ(images[0].cpuType, kArm);
  EXPECT_EQ(images[1].cpuType, kIntel);
}

TEST(ReadFat, HasNoImageForAProcessorThatTheHeaderDoesNotName) {
  EXPECT_THROW(macho::ImageFor(kArm, File({{kIntel, 48, 8, 3}})), std::runtime_error);
}

TEST(ReadFat, RefusesAFileWithoutItsMagicNumber) {
  ExpectRefused("");
  ExpectRefused(Header(0xBEBAFECA, 0, {}));
  ExpectRefused(Header(0xFEEDFACF, 0, {}));
}

TEST(ReadFat, RefusesAHeaderThatIsCutOff) {
  const std::string header = Header(kMagic, 2, {{kIntel, 48, 0, 0}, {kArm, 48, 0, 0}});
  EXPECT_EQ(macho::ReadFat(header).size(), 2u);
  for (std::size_t size = 0; size < header.size(); ++size) ExpectRefused(header.substr(0, size));
}

TEST(ReadFat, RefusesACountThatNoFileHoldsRecordsFor) {
  ExpectRefused(Header(kMagic, 0xFFFFFFFF, {{kIntel, 28, 0, 0}}));
  // 20 times this count is 4 more than 2 to the power of 32.
  ExpectRefused(Header(kMagic, 0x0CCCCCCD, {{kIntel, 28, 0, 0}}));
}

TEST(ReadFat, RefusesAnImageBeyondTheEndOfTheFile) {
  ExpectRefused(File({{kIntel, 56, 9, 3}}));
  ExpectRefused(File({{kIntel, 72, 0, 3}}));
  // With 32 bits alone, either would end at 8.
  ExpectRefused(File({{kIntel, 56, 0xFFFFFFD0, 3}}));
  ExpectRefused(File({{kIntel, 0xFFFFFFD0, 56, 3}}));
}

TEST(ReadFat, RefusesAnImageOverTheHeader) {
  ExpectRefused(File({{kIntel, 0, 64, 3}}));
  ExpectRefused(File({{kIntel, 24, 8, 3}}));
}

TEST(ReadFat, RefusesAnImageOverAnother) {
  ExpectRefused(File({{kIntel, 48, 9, 3}, {kArm, 56, 8, 3}}));
  ExpectRefused(File({{kIntel, 48, 16, 3}, {kArm, 56, 8, 3}}));
}

TEST(ReadFat, RefusesAnImageThatIsNotAlignedAsItsRecordHasIt) { ExpectRefused(File({{kIntel, 56, 8, 4}})); }

TEST(ReadFat, RefusesAnAlignmentOfMoreThanTwoToThePowerOf15) {
  constexpr std::uint32_t kPlace = 1 << 16;
  const auto file = [](std::uint32_t align) {
    std::string bytes = Header(kMagic, 1, {{kIntel, kPlace, 8, align}});
    bytes.resize(kPlace + 8);
    return bytes;
  };
  EXPECT_EQ(macho::ReadFat(file(15)).size(), 1u);
  ExpectRefused(file(16));
  ExpectRefused(file(0xFFFFFFFF));
}

TEST(ReadFat, RefusesTwoImagesForOneProcessor) { ExpectRefused(File({{kIntel, 48, 8, 3}, {kIntel, 56, 8, 3}})); }

}  // namespace
