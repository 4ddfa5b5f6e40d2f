// Cleaned frames byte for byte, with note counts from below 0 to far beyond the twelve of an entry: the notes from the
// thirteenth on cover the end of their entry and those that follow, whatever compiler built the kit.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

#include "brevixpdk.h"
#include "recordinghost.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int kFrames = 10000;
constexpr int kMinCount = -3;
constexpr int kMaxCount = 40;

// The steps of cleaning, one after the other, over bytes that are checked at every access.
class Model {
 public:
  explicit Model(Bytes bytes) : bytes_(std::move(bytes)) {}

  const Bytes& Clean(int entryCount, bool fillRests) {
    for (int i = 0; i < entryCount; ++i) CleanEntry(static_cast<std::size_t>(i) * 146, fillRests);
    return bytes_;
  }

 private:
  int Unsigned(std::size_t at) const { return bytes_.at(at) | bytes_.at(at + 1) << 8; }
  int Signed(std::size_t at) const { return Unsigned(at) < 0x8000 ? Unsigned(at) : Unsigned(at) - 0x10000; }
  void Put(std::size_t at, int word) {
    bytes_.at(at) = static_cast<std::uint8_t>(word & 0xFF);
    bytes_.at(at + 1) = static_cast<std::uint8_t>(word >> 8 & 0xFF);
  }

  void CleanEntry(std::size_t entry, bool fillRests) {
    const std::size_t count = static_cast<std::size_t>(std::max(Signed(entry + 14), 0));
    const auto id = [entry](std::size_t slot) { return entry + 16 + 10 * slot + 4; };
    const auto word = [entry](std::size_t slot) { return entry + 16 + 10 * slot + 8; };

    int greatest = 0;
    for (std::size_t j = 0; j < count; ++j) greatest = std::max(greatest, Signed(id(j)));
    for (std::size_t j = 0; j < count; ++j) {
      bool replace = Unsigned(id(j)) == 0;
      for (std::size_t k = 0; k < count; ++k) replace |= k != j && Unsigned(id(k)) == Unsigned(id(j));
      if (replace) Put(id(j), ++greatest);
    }
    for (std::size_t j = 0; j < count; ++j) Put(word(j), (Unsigned(word(j)) & 0xFFE0) | (Unsigned(id(j)) & 0x1F));
    for (std::size_t at = entry + 16 + 10 * count; at < entry + 136; ++at) bytes_.at(at) = 0;
    if (count > 0 || !fillRests) return;
    Put(entry + 14, 1);
    Put(word(0), 0x8000);
    bytes_.at(entry + 11) |= 1;
  }

  Bytes bytes_;
};

// Words of which many are equal, some 0, and some negative. Small ones, so that a count which a note covers stays small
// when it is renumbered.
Bytes RandomWords(std::mt19937& random, std::size_t size) {
  Bytes bytes(size);
  for (std::size_t at = 0; at + 1 < size; at += 2) {
    const std::uint32_t number = random();
    const std::uint32_t word = (number & 3) == 0   ? 0x8000 | number >> 8
                               : (number & 3) == 1 ? number >> 8 & 3
                                                   : number >> 8 & 63;
    bytes[at] = static_cast<std::uint8_t>(word);
    bytes[at + 1] = static_cast<std::uint8_t>(word >> 8);
  }
  return bytes;
}

void PutCount(Bytes& bytes, int entry, int count) {
  const auto word = static_cast<std::int16_t>(count);
  std::memcpy(bytes.data() + entry * 146 + 14, &word, sizeof(word));
}

void Save(void* entries, int entryCount) {
  EXTGF2005a frame = {};
  frame.entries = static_cast<EXENTRY*>(entries);
  frame.entryCount = static_cast<std::int16_t>(entryCount);
  BX_SaveTGF(&frame, kBrvVersion);
}

int RandomCount(std::mt19937& random) {
  return kMinCount + static_cast<int>(random() % static_cast<unsigned>(kMaxCount - kMinCount + 1));
}

class CleanedFrame : public testing::Test {
 protected:
  void TearDown() override { CanAddNoteRecordToRests = 1; }
  RecordingHost host_;
};

TEST_F(CleanedFrame, IsWhatTheStepsMakeOfItForAnyCount) {
  std::mt19937 random(20050415);
  for (int i = 0; i < kFrames; ++i) {
    // After the last entry comes memory that its count may reach once a note that covers the count has been renumbered.
    Bytes bytes = RandomWords(random, 4096);
    const int entryCount = 1 + static_cast<int>(random() % 4);
    for (int entry = 0; entry < entryCount; ++entry) PutCount(bytes, entry, RandomCount(random));
    CanAddNoteRecordToRests = random() % 2;
    const Bytes expected = Model(bytes).Clean(entryCount, CanAddNoteRecordToRests != 0);
    Save(bytes.data(), entryCount);
    host_.Forget();
    ASSERT_TRUE(bytes == expected) << "frame " << i << " differs from byte "
                                   << std::mismatch(bytes.begin(), bytes.end(), expected.begin()).first - bytes.begin();
  }
}

TEST_F(CleanedFrame, IsNotReachedBeyondItsNotesAtTheEndOfABlock) {
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  auto* const block =
      static_cast<std::uint8_t*>(mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
  ASSERT_NE(block, MAP_FAILED);
  ASSERT_EQ(mprotect(block + page, page, PROT_NONE), 0);
  std::mt19937 random(1);
  for (int count = kMinCount; count <= kMaxCount; ++count) {
    const std::size_t size = std::max<std::size_t>(146, 16 + 10 * static_cast<std::size_t>(std::max(count, 0)));
    Bytes bytes = RandomWords(random, size);
    PutCount(bytes, 0, count);
    std::memcpy(block + page - size, bytes.data(), size);
    Save(block + page - size, 1);
    EXPECT_EQ(Bytes(block + page - size, block + page), Model(bytes).Clean(1, true)) << count;
  }
  munmap(block, 2 * page);
}

}  // namespace
