// Blocks of UTF-16 units that are processed at once. Each processor has a form of them in a header of its own, which
// this one chooses while compiling: one source is compiled for each processor that a universal executable has.
//
// Every form has the type UnitBlock, the number kBlockUnits, and the same functions:
//   LoadBlock, StoreBlock     from and to any address, odd ones included
//   StoreFirstUnits           the first units of a block, up to all of them
//   Filled                    a block of one unit
//   MarkEqual, MarkZero       where two blocks are equal; where a block is 0
//   MarkZeroInAny             where any of four blocks is 0
//   MarkPair                  where a unit is followed by another or may be: what follows the block is not known
//   Either, Both, OnlyFirst   marks in a or b, in a and b, in a and not in b
//   AnyMarked, AllMarked
//   MarkedUnits               one bit for each unit; that of the first unit is the lowest
//   FirstMarked               the index of the first marked unit, or kBlockUnits if none is marked
//   FirstUnmarked             the same for units that are not marked
#pragma once

#include <cstddef>
#include <cstdint>

// The tests choose the plain form for any processor.
#if defined(BRV_PLAIN_UNIT_BLOCKS)
#include "unitblocks_plain.h"
#elif defined(__SSE2__)
#include "unitblocks_sse2.h"
#elif defined(__aarch64__) && defined(__ARM_NEON) && !defined(__ARM_BIG_ENDIAN)
#include "unitblocks_neon.h"
#else
#include "unitblocks_plain.h"
#endif

// The number of whole blocks between units and the end of its page. A page is readable as a whole or not at all, so if
// the first byte of units can be read, all of them can be loaded, wherever the text ends. Where pages are larger, 16 or
// 64 KB, this still holds: their size is a multiple of the least.
inline std::size_t BlocksInPage(const UniChar* units) {
  constexpr std::uintptr_t kMinPageSize = 4096;
  return (kMinPageSize - reinterpret_cast<std::uintptr_t>(units) % kMinPageSize) / sizeof(UnitBlock);
}
