// The heads of files for macOS that hold code for several processors.
#include "host/code/universalfile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/code/codefile.h"
#include "tests/host/code/codewriter.h"
#include "tests/host/code/refusal.h"

namespace brvhost {
namespace {

constexpr std::uint32_t kX64 = 0x01000007;
constexpr std::uint32_t kArm64 = 0x0100000C;
constexpr std::uint32_t kI386 = 7;

CodeWriter Head(std::uint32_t magic, std::uint32_t count) {
  CodeWriter file(ByteOrder::kHighestFirst);
  file.Word(magic).Word(count);
  return file;
}

TEST(UniversalFile, ListsItsParts) {
  CodeWriter file = Head(0xCAFEBABE, 2);
  file.Word(kX64).Word(3).Word(4096).Word(32).Word(12).Word(kArm64).Word(0).Word(16384).Word(33).Word(14);
  const auto parts = PartsOf(file.Bytes());
  ASSERT_EQ(parts.size(), 2u);
  EXPECT_EQ(parts[0].processor, CodeProcessor::kX64);
  EXPECT_EQ(parts[0].at, 4096u);
  EXPECT_EQ(parts[0].size, 32u);
  EXPECT_EQ(parts[1].processor, CodeProcessor::kArm64);
  EXPECT_EQ(parts[1].at, 16384u);
  EXPECT_EQ(parts[1].size, 33u);
}

TEST(UniversalFile, MayHavePlacesOf64Bits) {
  CodeWriter file = Head(0xCAFEBABF, 2);
  for (const std::uint32_t processor : {kX64, kArm64}) {
    file.Word(processor).Word(3).Number(0x100001000, 8).Number(0x200000020, 8).Word(12).Word(0);
  }
  const auto parts = PartsOf(file.Bytes());
  ASSERT_EQ(parts.size(), 2u);
  EXPECT_EQ(parts[1].processor, CodeProcessor::kArm64);
  EXPECT_EQ(parts[1].at, 0x100001000u);
  EXPECT_EQ(parts[1].size, 0x200000020u);
}

TEST(UniversalFile, IsRefusedWithPartsBeyondItsEnd) {
  for (const auto& [at, size] : {std::pair(28u, 1u), std::pair(0xFFFFFFFFu, 29u), std::pair(0u, 0xFFFFFFFFu)}) {
    EXPECT_EQ(RefusalOf(Head(0xCAFEBABE, 1).Word(kX64).Word(3).Word(at).Word(size).Word(0).Bytes()), "ends early");
  }
  EXPECT_EQ(RefusalOf(Head(0xCAFEBABE, 1).Word(kX64).Word(3).Word(28).Word(0).Bytes()), "ends early");
  EXPECT_EQ(RefusalOf(Head(0xCAFEBABE, 17).Bytes()), "lists more than 16 processors");
}

TEST(UniversalFile, IsReadWithoutWhatNoMacOfTodayRuns) {
  EXPECT_TRUE(ImagesIn(Head(0xCAFEBABE, 1).Word(kI386).Word(3).Word(28).Word(9).Word(0).Bytes()).empty());
}

TEST(Images, AreInNoOtherFile) {
  for (const std::string_view bytes : {"", "\x7F", "MZ code of another kind", "\xCF\xFA\xED"}) {
    EXPECT_EQ(RefusalOf(bytes), "is no code");
  }
}

}  // namespace
}  // namespace brvhost
