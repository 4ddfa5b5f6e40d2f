// Blocks of eight UTF-16 units, with instructions that every x86-64 processor has.
#pragma once

#include <emmintrin.h>

#include <bit>
#include <cstddef>
#include <cstring>

#include "singleunits.h"

typedef __m128i UnitBlock;
inline constexpr std::size_t kBlockUnits = sizeof(UnitBlock) / sizeof(UniChar);

// Not checked by the address sanitizer: it would report the units after the end of the text, which are loaded but never
// used.
__attribute__((no_sanitize("address"))) inline UnitBlock LoadBlock(const UniChar* units) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i_u*>(units));
}

inline void StoreBlock(UniChar* units, UnitBlock block) {
  _mm_storeu_si128(reinterpret_cast<__m128i_u*>(units), block);
}

inline void StoreFirstUnits(UniChar* units, UnitBlock block, std::size_t count) {
  if (count == kBlockUnits) return StoreBlock(units, block);
  if (count & 4) {
    _mm_storel_epi64(reinterpret_cast<__m128i_u*>(units), block);
    block = _mm_srli_si128(block, 8);
    units += 4;
  }
  if (count & 2) {
    const int pair = _mm_cvtsi128_si32(block);
    std::memcpy(units, &pair, sizeof(pair));
    block = _mm_srli_si128(block, 4);
    units += 2;
  }
  if (count & 1) StoreUnit(units, static_cast<UniChar>(_mm_cvtsi128_si32(block)));
}

inline UnitBlock Filled(UniChar unit) { return _mm_set1_epi16(static_cast<short>(unit)); }

// Marks are all ones at each unit that is marked, and 0 elsewhere.
inline UnitBlock MarkEqual(UnitBlock a, UnitBlock b) { return _mm_cmpeq_epi16(a, b); }
inline UnitBlock MarkZero(UnitBlock block) { return _mm_cmpeq_epi16(block, _mm_setzero_si128()); }
inline UnitBlock MarkPair(UnitBlock block, UniChar first, UniChar second) {
  const UnitBlock last = _mm_slli_si128(_mm_set1_epi8(-1), sizeof(UnitBlock) - sizeof(UniChar));
  const UnitBlock followed = MarkEqual(_mm_srli_si128(block, sizeof(UniChar)), Filled(second));
  return _mm_and_si128(MarkEqual(block, Filled(first)), _mm_or_si128(followed, last));
}
inline UnitBlock Either(UnitBlock a, UnitBlock b) { return _mm_or_si128(a, b); }
inline UnitBlock Both(UnitBlock a, UnitBlock b) { return _mm_and_si128(a, b); }
inline UnitBlock MarkZeroInAny(UnitBlock a, UnitBlock b, UnitBlock c, UnitBlock d) {
  return Either(Either(MarkZero(a), MarkZero(b)), Either(MarkZero(c), MarkZero(d)));
}
inline UnitBlock OnlyFirst(UnitBlock a, UnitBlock b) { return _mm_andnot_si128(b, a); }

inline bool AnyMarked(UnitBlock marks) { return _mm_movemask_epi8(marks) != 0; }
inline bool AllMarked(UnitBlock marks) { return _mm_movemask_epi8(marks) == 0xFFFF; }
inline unsigned MarkedUnits(UnitBlock marks) {
  return static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(marks, _mm_setzero_si128())));
}
inline std::size_t FirstMarked(UnitBlock marks) {
  const unsigned bytes = static_cast<unsigned>(_mm_movemask_epi8(marks)) | 0x10000u;
  return static_cast<std::size_t>(std::countr_zero(bytes)) / sizeof(UniChar);
}
inline std::size_t FirstUnmarked(UnitBlock marks) {
  const unsigned bytes = ~static_cast<unsigned>(_mm_movemask_epi8(marks));
  return static_cast<std::size_t>(std::countr_zero(bytes)) / sizeof(UniChar);
}
