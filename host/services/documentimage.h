// What an extension's process has to know of a score: handed over as bytes, so that only other processes read scores.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/score/region.h"
#include "host/score/score.h"
#include "host/services/edatastore.h"

namespace brvhost {

// A score without its notes, names and details, which are in the records; and what of it is selected.
struct DocumentImage {
  Score score;
  EDataStore records;
  std::vector<Block> blocks;
};

// For a process on the same machine.
std::string ImageOf(const Score& score, const std::vector<Block>& blocks);

// What ImageOf made bytes of.
DocumentImage ReadImage(std::string_view bytes);

// Whether the ledger lines of each entry are hidden, as bytes, and back. False when the bytes are not those of a score
// with as many entries; nothing is taken over then.
std::string HiddenBits(const Score& score);
[[nodiscard]] bool TakeHiddenBits(std::string_view bits, Score& score);

}  // namespace brvhost
