// The operations on blocks, unit by unit against loops. Compiled for the form of this processor and for the plain one.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <vector>

#include "unitblocks.h"

namespace {

typedef std::array<UniChar, kBlockUnits> Block;

// One unit for each place in turn, on both sides of each border of a byte and of a sign, among units that differ from
// it in few bits.
std::vector<Block> Blocks() {
  constexpr UniChar kUnits[] = {0, 1, 0x7F, 0x80, 0xFF, 0x100, 0x7FFF, 0x8000, 0x8001, 0xFFFF};
  std::vector<Block> blocks;
  for (const UniChar most : kUnits) {
    for (const UniChar one : kUnits) {
      for (std::size_t place = 0; place < kBlockUnits; ++place) {
        Block block;
        block.fill(most);
        block[place] = one;
        blocks.push_back(block);
        block[kBlockUnits - 1] = 2;
        blocks.push_back(block);
      }
    }
  }
  return blocks;
}

UnitBlock Loaded(const Block& block) { return LoadBlock(block.data()); }

// One bit for each unit at which `holds` is true.
template <class Holds>
unsigned Bits(const Block& block, Holds holds) {
  unsigned bits = 0;
  for (std::size_t i = 0; i < kBlockUnits; ++i) bits |= static_cast<unsigned>(holds(block[i])) << i;
  return bits;
}

TEST(UnitBlocks, AreLoadedFromAnyAddressAndStoredThere) {
  for (const Block& block : Blocks()) {
    std::array<char, sizeof(Block) + 2> from = {};
    std::array<char, sizeof(Block) + 2> to = {};
    std::memcpy(from.data() + 1, block.data(), sizeof(Block));
    StoreBlock(reinterpret_cast<UniChar*>(to.data() + 1), LoadBlock(reinterpret_cast<UniChar*>(from.data() + 1)));
    EXPECT_EQ(from, to);
  }
}

TEST(UnitBlocks, StoreTheirFirstUnitsAndNoMore) {
  Block block;
  for (std::size_t i = 0; i < kBlockUnits; ++i) block[i] = static_cast<UniChar>(0x8101 + i * 0x0203);
  for (std::size_t count = 0; count <= kBlockUnits; ++count) {
    Block stored = {};
    Block expected = {};
    StoreFirstUnits(stored.data(), Loaded(block), count);
    std::copy_n(block.begin(), count, expected.begin());
    EXPECT_EQ(stored, expected) << count;
  }
}

TEST(UnitBlocks, MarkEachUnitThatIsEqualOrZero) {
  for (const Block& block : Blocks()) {
    EXPECT_EQ(MarkedUnits(MarkZero(Loaded(block))), Bits(block, [](UniChar unit) { return unit == 0; }));
    for (const UniChar wanted :
         {UniChar{0}, UniChar{1}, UniChar{0x80}, UniChar{0x7FFF}, UniChar{0x8000}, UniChar{0xFFFF}}) {
      EXPECT_EQ(MarkedUnits(MarkEqual(Loaded(block), Filled(wanted))),
                Bits(block, [wanted](UniChar unit) { return unit == wanted; }));
    }
  }
}

TEST(UnitBlocks, MarkWhereAnyOfFourIsZero) {
  for (const Block& block : Blocks()) {
    const unsigned zeros = Bits(block, [](UniChar unit) { return unit == 0; });
    for (std::size_t place = 0; place < 4; ++place) {
      UnitBlock four[] = {Filled(1), Filled(0x7FFF), Filled(0x8001), Filled(0xFFFF)};
      four[place] = Loaded(block);
      EXPECT_EQ(MarkedUnits(MarkZeroInAny(four[0], four[1], four[2], four[3])), zeros);
    }
  }
}

TEST(UnitBlocks, MarkPairsAndAFirstUnitAtTheEnd) {
  for (const Block& block : Blocks()) {
    for (const UniChar first : block) {
      for (const UniChar second : block) {
        unsigned expected = 0;
        for (std::size_t i = 0; i < kBlockUnits; ++i) {
          const bool pair = block[i] == first && (i + 1 == kBlockUnits || block[i + 1] == second);
          expected |= static_cast<unsigned>(pair) << i;
        }
        EXPECT_EQ(MarkedUnits(MarkPair(Loaded(block), first, second)), expected);
      }
    }
  }
}

// All combinations of marks: bit i of `bits` is the mark of unit i.
UnitBlock Marks(unsigned bits) {
  Block block;
  for (std::size_t i = 0; i < kBlockUnits; ++i) block[i] = (bits >> i & 1) != 0 ? 0 : 1;
  return MarkZero(Loaded(block));
}

TEST(UnitBlocks, FindAndCountWhatIsMarked) {
  constexpr unsigned kAll = (1u << kBlockUnits) - 1;
  for (unsigned bits = 0; bits <= kAll; ++bits) {
    EXPECT_EQ(MarkedUnits(Marks(bits)), bits);
    EXPECT_EQ(AnyMarked(Marks(bits)), bits != 0);
    EXPECT_EQ(AllMarked(Marks(bits)), bits == kAll);
    EXPECT_EQ(FirstMarked(Marks(bits)), bits == 0 ? kBlockUnits : static_cast<std::size_t>(std::countr_zero(bits)));
    EXPECT_EQ(FirstUnmarked(Marks(bits)), static_cast<std::size_t>(std::countr_one(bits)));
  }
}

TEST(UnitBlocks, CombineMarks) {
  constexpr unsigned kAll = (1u << kBlockUnits) - 1;
  for (unsigned a = 0; a <= kAll; ++a) {
    for (const unsigned b : {0u, 1u, 0x5Au & kAll, 0xC3u & kAll, kAll}) {
      EXPECT_EQ(MarkedUnits(Either(Marks(a), Marks(b))), a | b);
      EXPECT_EQ(MarkedUnits(Both(Marks(a), Marks(b))), a & b);
      EXPECT_EQ(MarkedUnits(OnlyFirst(Marks(a), Marks(b))), a & ~b);
    }
  }
}

TEST(UnitBlocks, EndWithTheirPage) {
  alignas(4096) static UniChar page[2048];
  for (std::size_t place = 0; place < 2048; ++place) {
    EXPECT_EQ(BlocksInPage(page + place), (2048 - place) / kBlockUnits);
    EXPECT_EQ(BlocksInPage(reinterpret_cast<UniChar*>(reinterpret_cast<char*>(page + place) + 1)),
              (2 * (2048 - place) - 1) / sizeof(UnitBlock));
  }
}

}  // namespace
