// Blocks of four UTF-16 units in a whole number, for any processor that has its lowest byte first.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "singleunits.h"

typedef std::uint64_t UnitBlock;
inline constexpr std::size_t kBlockUnits = sizeof(UnitBlock) / sizeof(UniChar);
static_assert(std::endian::native == std::endian::little, "the first unit of a block is its lowest");

// Not checked by the address sanitizer: it would report the units after the end of the text, which are loaded but never
// used.
__attribute__((no_sanitize("address"))) inline UnitBlock LoadBlock(const UniChar* units) {
  struct [[gnu::packed, gnu::may_alias]] AtAnyAddress {
    UnitBlock block;
  };
  return reinterpret_cast<const AtAnyAddress*>(units)->block;
}

inline void StoreBlock(UniChar* units, UnitBlock block) { std::memcpy(units, &block, sizeof(block)); }

inline void StoreFirstUnits(UniChar* units, UnitBlock block, std::size_t count) {
  std::memcpy(units, &block, count * sizeof(UniChar));
}

inline UnitBlock Filled(UniChar unit) { return unit * UnitBlock{0x0001'0001'0001'0001}; }

// Marks are the highest bit of each unit that is marked, and 0 elsewhere.
inline constexpr UnitBlock kAllMarks = 0x8000'8000'8000'8000;
inline UnitBlock MarkZero(UnitBlock block) {
  // A sum of the lower bits reaches the highest bit unless they are all 0, and never the next unit.
  const UnitBlock lowerBits = (block & ~kAllMarks) + ~kAllMarks;
  return ~(lowerBits | block) & kAllMarks;
}
inline UnitBlock MarkEqual(UnitBlock a, UnitBlock b) { return MarkZero(a ^ b); }
inline UnitBlock MarkPair(UnitBlock block, UniChar first, UniChar second) {
  const UnitBlock next = block >> 16 | UnitBlock{second} << 48;
  return MarkEqual(block, Filled(first)) & MarkEqual(next, Filled(second));
}
inline UnitBlock Either(UnitBlock a, UnitBlock b) { return a | b; }
inline UnitBlock Both(UnitBlock a, UnitBlock b) { return a & b; }
inline UnitBlock MarkZeroInAny(UnitBlock a, UnitBlock b, UnitBlock c, UnitBlock d) {
  return Either(Either(MarkZero(a), MarkZero(b)), Either(MarkZero(c), MarkZero(d)));
}
inline UnitBlock OnlyFirst(UnitBlock a, UnitBlock b) { return a & ~b; }

inline bool AnyMarked(UnitBlock marks) { return marks != 0; }
inline bool AllMarked(UnitBlock marks) { return marks == kAllMarks; }
inline unsigned MarkedUnits(UnitBlock marks) {
  return static_cast<unsigned>((marks >> 15 | marks >> 30 | marks >> 45 | marks >> 60) & 0xF);
}
inline std::size_t FirstMarked(UnitBlock marks) { return static_cast<std::size_t>(std::countr_zero(marks)) / 16; }
inline std::size_t FirstUnmarked(UnitBlock marks) { return FirstMarked(marks ^ kAllMarks); }
