// The frame records that an extension has loaded.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

#include "BrvEDK/Source/hostrecords.h"
#include "host/score/score.h"
#include "host/services/misuse.h"

namespace brvhost {

// A frame record, its entries, and the place in the score that they are from.
struct LoadedFrame {
  EXTGF2005a record{};
  std::vector<EXENTRY> entries;
  const ScoreFrame* place = nullptr;
  const char* loader = nullptr;  // the extension's function that loaded it, where that is known
};

// Records that are freed are not given out again for a while, so that a late use of one does not hit another. Where one
// was written to meanwhile, that is noted.
class LoadedFrames {
 public:
  // No entries, in memory that was used before.
  std::vector<EXENTRY> TakeSpareEntries();
  // The frame of these entries, loaded until it is freed.
  LoadedFrame& Load(const ScoreFrame& place, std::vector<EXENTRY> entries, Misuse& misuse);
  // The loaded frame of that record, or null.
  LoadedFrame* Find(const EXTGF2005a* record) const;
  // False when the record is not loaded.
  bool Free(const EXTGF2005a* record, Misuse& misuse);

  std::size_t Count() const { return loaded_.size(); }
  // The loader of each, null where it is not known.
  std::vector<const char*> Loaders() const;
  // Notes it for all that are not given out again.
  void LookAtFreed(Misuse& misuse) const;

 private:
  static constexpr std::size_t kKept = 64;

  std::unordered_map<const EXTGF2005a*, std::unique_ptr<LoadedFrame>> loaded_;
  std::array<std::unique_ptr<LoadedFrame>, kKept> freed_;  // a ring
  std::size_t oldest_ = 0;
  std::vector<EXENTRY> spareEntries_;  // whose memory the next frame takes
};

}  // namespace brvhost
