// Where the ledger lines of a score are no longer as its document has them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/score/score.h"

namespace brvhost {

// Its bytes are a message's.
struct EntryChange {
  std::uint64_t line = 0;      // of the start tag of the entry's first note
  std::int32_t position = 0;   // in ticks
  std::uint16_t staff = 0;     // from 1
  std::uint16_t measure = 0;   // from 1
  std::uint32_t layer = 0;     // from 0
  std::uint32_t isHidden = 0;  // 0 or 1: as it is now
};

// Each entry that has changed, in the order of the document, which is what the score was read from.
std::vector<EntryChange> ChangesOf(std::string_view document, const Score& score);

// For a process on the same machine, and back.
std::string BytesOf(std::span<const EntryChange> changes);
std::vector<EntryChange> ChangesFrom(std::string_view bytes);

}  // namespace brvhost
