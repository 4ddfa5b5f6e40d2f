// Blocks of eight UTF-16 units, with instructions that every arm64 processor has.
#pragma once

#include <arm_neon.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "singleunits.h"

typedef uint16x8_t UnitBlock;
inline constexpr std::size_t kBlockUnits = sizeof(UnitBlock) / sizeof(UniChar);

// Not checked by the address sanitizer: it would report the units after the end of the text, which are loaded but never
// used. Loaded as bytes, which may be at an odd address.
__attribute__((no_sanitize("address"))) inline UnitBlock LoadBlock(const UniChar* units) {
  return vreinterpretq_u16_u8(vld1q_u8(reinterpret_cast<const std::uint8_t*>(units)));
}

inline void StoreBlock(UniChar* units, UnitBlock block) {
  vst1q_u8(reinterpret_cast<std::uint8_t*>(units), vreinterpretq_u8_u16(block));
}

inline void StoreFirstUnits(UniChar* units, UnitBlock block, std::size_t count) {
  if (count == kBlockUnits) return StoreBlock(units, block);
  std::uint64_t rest = vgetq_lane_u64(vreinterpretq_u64_u16(block), 0);
  if (count & 4) {
    std::memcpy(units, &rest, sizeof(rest));
    rest = vgetq_lane_u64(vreinterpretq_u64_u16(block), 1);
    units += 4;
  }
  if (count & 2) {
    const std::uint32_t pair = static_cast<std::uint32_t>(rest);
    std::memcpy(units, &pair, sizeof(pair));
    rest >>= 32;
    units += 2;
  }
  if (count & 1) StoreUnit(units, static_cast<UniChar>(rest));
}

inline UnitBlock Filled(UniChar unit) { return vdupq_n_u16(unit); }

// Marks are all ones at each unit that is marked, and 0 elsewhere.
inline UnitBlock MarkEqual(UnitBlock a, UnitBlock b) { return vceqq_u16(a, b); }
inline UnitBlock MarkZero(UnitBlock block) { return vceqzq_u16(block); }
inline UnitBlock MarkPair(UnitBlock block, UniChar first, UniChar second) {
  const UnitBlock seconds = Filled(second);
  const UnitBlock followed = vceqq_u16(vextq_u16(block, seconds, 1), seconds);
  return vandq_u16(MarkEqual(block, Filled(first)), followed);
}
inline UnitBlock Either(UnitBlock a, UnitBlock b) { return vorrq_u16(a, b); }
inline UnitBlock Both(UnitBlock a, UnitBlock b) { return vandq_u16(a, b); }
// The least of four units is 0 if any of them is.
inline UnitBlock MarkZeroInAny(UnitBlock a, UnitBlock b, UnitBlock c, UnitBlock d) {
  return MarkZero(vminq_u16(vminq_u16(a, b), vminq_u16(c, d)));
}
inline UnitBlock OnlyFirst(UnitBlock a, UnitBlock b) { return vbicq_u16(a, b); }

// A byte for each unit; that of the first unit is the lowest.
inline std::uint64_t MarkBytes(UnitBlock marks) { return vget_lane_u64(vreinterpret_u64_u8(vshrn_n_u16(marks, 4)), 0); }
inline bool AnyMarked(UnitBlock marks) { return MarkBytes(marks) != 0; }
inline bool AllMarked(UnitBlock marks) { return MarkBytes(marks) == ~std::uint64_t{0}; }
inline unsigned MarkedUnits(UnitBlock marks) {
  const UnitBlock bits = {1, 2, 4, 8, 16, 32, 64, 128};
  return vaddvq_u16(vandq_u16(marks, bits));
}
inline std::size_t FirstMarked(UnitBlock marks) {
  return static_cast<std::size_t>(std::countr_zero(MarkBytes(marks))) / 8;
}
inline std::size_t FirstUnmarked(UnitBlock marks) {
  return static_cast<std::size_t>(std::countr_zero(~MarkBytes(marks))) / 8;
}
