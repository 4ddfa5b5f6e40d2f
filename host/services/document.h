// The open score as extensions change it: the frames that they load, and what an edit can take back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "BrvEDK/Source/hostrecords.h"
#include "host/score/score.h"
#include "host/services/edatastore.h"

namespace brvhost {

// A function that throws because there is no memory leaves the document as it was.
class OpenDocument {
 public:
  // The score outlives the document and carries its changes. The document starts with the records of the score.
  explicit OpenDocument(Score& score);

  const Score& GetScore() const { return score_; }
  EDataStore& Records() { return records_; }

  // A new frame record with the entries of one place, or null where there are none or no such place. It stays loaded
  // until it is freed.
  EXTGF2005a* LoadFrame(int staff, int measure, int layer);
  // Takes over the ledger-line bit of every entry. False when the frame is not loaded, or has lost or gained entries:
  // the score's notes cannot be changed.
  [[nodiscard]] bool SaveFrame(const EXTGF2005a* record);
  // False when the frame is not loaded.
  bool FreeFrame(const EXTGF2005a* record);
  std::size_t LoadedFrames() const { return loaded_.size(); }
  // How often a frame was to be saved or freed that is not loaded: freed before, or never this document's.
  std::uint64_t StrayFrames() const { return strayFrames_; }
  int EditDepth() const { return editDepth_; }
  std::uint64_t SavedFrames() const { return savedFrames_; }

  // Edits nest; the outermost is what a cancel takes back, records included. Ending or cancelling without a start
  // returns false.
  void StartEdit();
  bool EndEdit();
  bool CancelEdit();

 private:
  struct Frame {
    EXTGF2005a record{};
    std::vector<EXENTRY> entries;
    std::uint32_t firstEntry = 0;
  };
  struct Checkpoint {
    std::vector<bool> hidden;
    EDataStore records;
  };

  using LoadedFrameMap = std::unordered_map<const EXTGF2005a*, std::unique_ptr<Frame>>;

  const ScoreFrame* Find(int staff, int measure, int layer);
  // Counts the record as a stray when it is not loaded.
  LoadedFrameMap::iterator FindLoaded(const EXTGF2005a* record);
  std::unique_ptr<Frame> NewFrame();
  EXENTRY RecordOf(const ScoreEntry& entry) const;

  Score& score_;
  EDataStore records_;
  std::size_t nextFrame_ = 0;  // in the score's list: extensions usually ask in this order
  LoadedFrameMap loaded_;
  std::unique_ptr<Frame> spare_;  // a freed frame, whose memory the next one takes
  std::uint64_t savedFrames_ = 0;
  std::uint64_t strayFrames_ = 0;
  int editDepth_ = 0;
  Checkpoint checkpoint_;
};

}  // namespace brvhost
