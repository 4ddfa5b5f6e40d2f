#include "bxstring.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

#include "unitblocks.h"

namespace {

constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

// So many blocks are checked one by one before four at a time pay off: most texts are names of a few units.
constexpr std::size_t kShortTextBlocks = 4;

struct FourBlocks {
  UnitBlock at[4];
};

FourBlocks LoadFour(const UniChar* units) {
  return {{LoadBlock(units), LoadBlock(units + kBlockUnits), LoadBlock(units + 2 * kBlockUnits),
           LoadBlock(units + 3 * kBlockUnits)}};
}

struct IsEnd {
  UnitBlock operator()(UnitBlock block) const { return MarkZero(block); }
  UnitBlock InAny(const FourBlocks& four) const {
    return MarkZeroInAny(four.at[0], four.at[1], four.at[2], four.at[3]);
  }
  bool operator()(UniChar unit) const { return unit == 0; }
};

struct IsUnitOrEnd {
  UnitBlock operator()(UnitBlock block) const { return Either(MarkEqual(block, Filled(wanted)), MarkZero(block)); }
  UnitBlock InAny(const FourBlocks& four) const {
    const IsUnitOrEnd& stopsAt = *this;
    return Either(Either(stopsAt(four.at[0]), stopsAt(four.at[1])), Either(stopsAt(four.at[2]), stopsAt(four.at[3])));
  }
  bool operator()(UniChar unit) const { return unit == wanted || unit == 0; }

  UniChar wanted;
};

// Returns the first unit, from units on, at which stopsAt holds. It must hold at the end of the text.
template <class StopsAt>
const UniChar* Scan(const UniChar* units, StopsAt stopsAt) {
  const auto nextStop = [&](std::size_t blocks) {
    for (; blocks != 0; --blocks, units += kBlockUnits) {
      const UnitBlock marks = stopsAt(LoadBlock(units));
      if (AnyMarked(marks)) {
        units += FirstMarked(marks);
        return true;
      }
    }
    return false;
  };
  for (;;) {
    std::size_t blocks = BlocksInPage(units);
    const std::size_t shortText = std::min(blocks, kShortTextBlocks);
    if (nextStop(shortText)) return units;
    for (blocks -= shortText; blocks >= 4; blocks -= 4, units += 4 * kBlockUnits) {
      if (AnyMarked(stopsAt.InAny(LoadFour(units)))) break;
    }
    if (nextStop(blocks)) return units;
    for (; BlocksInPage(units) == 0; ++units) {
      if (stopsAt(LoadUnit(units))) return units;
    }
  }
}

// Marks the units that are equal in both and not the end of the text.
UnitBlock MarkMatch(const UniChar* a, const UniChar* b) {
  const UnitBlock blockA = LoadBlock(a);
  return OnlyFirst(MarkEqual(blockA, LoadBlock(b)), MarkZero(blockA));
}

// Compares a and b at the first place where they differ or both end: -1, 0 or 1; 0 if the first limit units are equal.
int Compare(const UniChar* a, const UniChar* b, std::size_t limit) {
  std::size_t at = 0;
  const auto decide = [&] {
    const UniChar unitA = LoadUnit(a + at);
    const UniChar unitB = LoadUnit(b + at);
    return (unitA > unitB) - (unitA < unitB);
  };
  const auto nextStop = [&](std::size_t blocks) {
    for (; blocks != 0; --blocks, at += kBlockUnits) {
      const UnitBlock matches = MarkMatch(a + at, b + at);
      if (AllMarked(matches)) continue;
      at += FirstUnmarked(matches);
      return true;
    }
    return false;
  };
  while (at < limit) {
    const std::size_t blocksToLimit = (limit - at - 1) / kBlockUnits + 1;
    std::size_t blocks = std::min({BlocksInPage(a + at), BlocksInPage(b + at), blocksToLimit});
    const std::size_t shortText = std::min(blocks, kShortTextBlocks);
    if (nextStop(shortText)) return at < limit ? decide() : 0;
    for (blocks -= shortText; blocks >= 4; blocks -= 4, at += 4 * kBlockUnits) {
      const UnitBlock first = Both(MarkMatch(a + at, b + at), MarkMatch(a + at + kBlockUnits, b + at + kBlockUnits));
      const UnitBlock second = Both(MarkMatch(a + at + 2 * kBlockUnits, b + at + 2 * kBlockUnits),
                                    MarkMatch(a + at + 3 * kBlockUnits, b + at + 3 * kBlockUnits));
      if (!AllMarked(Both(first, second))) break;
    }
    if (nextStop(blocks)) return at < limit ? decide() : 0;
    for (; at < limit && (BlocksInPage(a + at) == 0 || BlocksInPage(b + at) == 0); ++at) {
      if (LoadUnit(a + at) != LoadUnit(b + at) || LoadUnit(a + at) == 0) return decide();
    }
  }
  return 0;
}

// Copies four blocks at a time, as long as the text does not end in them; returns the number of blocks. Each four are
// loaded before the first is stored, so that dst may overlap src if it comes first. A function of its own, so that
// short texts do not pay for it.
[[gnu::noinline]] std::size_t CopyLongText(UniChar* dst, const UniChar* src, std::size_t blocks) {
  std::size_t copied = 0;
  for (; blocks - copied >= 4; copied += 4) {
    const UniChar* const from = src + copied * kBlockUnits;
    const FourBlocks four = LoadFour(from);
    if (AnyMarked(IsEnd().InAny(four))) break;
    for (std::size_t i = 0; i < 4; ++i) StoreBlock(dst + (copied + i) * kBlockUnits, four.at[i]);
  }
  return copied;
}

// Copies up to and including the 0 unit, but no more than limit units; returns how many were copied. What is loaded
// from src is stored before more is loaded, so that dst may overlap src if it comes first.
std::size_t CopyUpTo(UniChar* dst, const UniChar* src, std::size_t limit) {
  std::size_t at = 0;
  while (at < limit) {
    std::size_t oneByOne = kShortTextBlocks;
    for (std::size_t blocks = std::min(BlocksInPage(src + at), (limit - at) / kBlockUnits); blocks != 0; --blocks) {
      if (oneByOne-- == 0) {
        const std::size_t copied = CopyLongText(dst + at, src + at, blocks);
        at += copied * kBlockUnits;
        blocks -= copied;
        if (blocks == 0) break;
      }
      const UnitBlock block = LoadBlock(src + at);
      const UnitBlock ends = MarkZero(block);
      if (AnyMarked(ends)) {
        const std::size_t last = FirstMarked(ends) + 1;
        StoreFirstUnits(dst + at, block, last);
        return at + last;
      }
      StoreBlock(dst + at, block);
      at += kBlockUnits;
    }
    for (; at < limit && (BlocksInPage(src + at) == 0 || limit - at < kBlockUnits); ++at) {
      const UniChar unit = LoadUnit(src + at);
      StoreUnit(dst + at, unit);
      if (unit == 0) return at + 1;
    }
  }
  return limit;
}

bool StartsWith(const UniChar* text, const UniChar* beginning) {
  for (; LoadUnit(beginning) != 0; ++text, ++beginning) {
    if (LoadUnit(text) != LoadUnit(beginning)) return false;
  }
  return true;
}

}  // namespace

std::size_t bx_strlen(const UniChar* s) { return static_cast<std::size_t>(Scan(s, IsEnd()) - s); }

UniChar* bx_strchr(const UniChar* s, ushort16 unit) {
  const UniChar wanted = static_cast<UniChar>(unit);
  const UniChar* found = Scan(s, IsUnitOrEnd{wanted});
  return LoadUnit(found) == wanted ? const_cast<UniChar*>(found) : nullptr;
}

UniChar* bx_strstr(const UniChar* haystack, const UniChar* needle) {
  const UniChar first = LoadUnit(needle);
  if (first == 0) return const_cast<UniChar*>(haystack);
  const UniChar second = LoadUnit(needle + 1);
  if (second == 0) return bx_strchr(haystack, first);
  for (const UniChar* at = haystack;;) {
    for (std::size_t blocks = BlocksInPage(at); blocks != 0; --blocks, at += kBlockUnits) {
      // Most blocks do not have the first unit. Where it is frequent, checking the second as well rules out most places
      // without a scan for each.
      const UnitBlock block = LoadBlock(at);
      const UnitBlock zeros = MarkZero(block);
      if (!AnyMarked(Either(MarkEqual(block, Filled(first)), zeros))) continue;
      const UnitBlock pairs = MarkPair(block, first, second);
      if (!AnyMarked(Either(pairs, zeros))) continue;
      const unsigned ends = MarkedUnits(zeros);
      const unsigned upToEnd = ends ^ (ends - 1);
      for (unsigned places = MarkedUnits(pairs) & upToEnd; places != 0; places &= places - 1) {
        const UniChar* place = at + std::countr_zero(places);
        if (StartsWith(place + 1, needle + 1)) return const_cast<UniChar*>(place);
      }
      if (ends != 0) return nullptr;
    }
    for (; BlocksInPage(at) == 0; ++at) {
      if (LoadUnit(at) == 0) return nullptr;
      if (StartsWith(at, needle)) return const_cast<UniChar*>(at);
    }
  }
}

int32 bx_strcmp(const UniChar* a, const UniChar* b) { return Compare(a, b, kNoLimit); }

int32 bx_strncmp(const UniChar* a, const UniChar* b, std::size_t n) { return Compare(a, b, n); }

void bx_strncpy(UniChar* dst, const UniChar* src, std::size_t n) {
  const std::size_t copied = CopyUpTo(dst, src, n);
  if (copied < n) std::memset(dst + copied, 0, (n - copied) * sizeof(UniChar));
}

void bx_strcpy(UniChar* dst, const UniChar* src) { CopyUpTo(dst, src, kNoLimit); }

// Compatibility: the size is not used, and nothing is cut. Extensions pass sizes in bytes, or of another buffer.
void bx_strcpy(UniChar* dst, std::size_t, const UniChar* src) { bx_strcpy(dst, src); }

// Compatibility: the size is not used, as in bx_strcpy.
void bx_strcat(UniChar* dst, std::size_t, const UniChar* src) { bx_strcpy(dst + bx_strlen(dst), src); }
