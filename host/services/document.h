// The open score as extensions change it: the frames that they load, and what an edit can take back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "BrvEDK/Source/hostrecords.h"
#include "host/score/score.h"
#include "host/services/edatastore.h"
#include "host/services/loadedframes.h"
#include "host/services/misuse.h"

namespace brvhost {

// A function that throws because there is no memory leaves the document as it was.
class OpenDocument {
 public:
  // The score outlives the document and carries its changes. The document starts with the records of the score.
  explicit OpenDocument(Score& score);
  // Likewise, with these for the records of the score.
  OpenDocument(Score& score, EDataStore records);

  const Score& GetScore() const { return score_; }
  EDataStore& Records() { return records_; }

  // A new frame record with the entries of one place, or null where there are none or no such place. It stays loaded
  // until it is freed.
  EXTGF2005a* LoadFrame(int staff, int measure, int layer);
  // Takes over the ledger-line bit of every entry. False when the frame is not loaded, or anything else in it was
  // changed: the score's notes cannot be. Nothing of it is taken over then.
  [[nodiscard]] bool SaveFrame(const EXTGF2005a* record);
  // False when the frame is not loaded.
  bool FreeFrame(const EXTGF2005a* record);
  std::size_t LoadedFrames() const { return loaded_.Count(); }
  // From now on, who loads a frame is found out, which takes much longer than the loading.
  void WatchLoaders() { watchesLoaders_ = true; }
  // Of each frame that is loaded: the exported function of the extension that loaded it, or null.
  std::vector<const char*> LoadersOfFrames() const { return loaded_.Loaders(); }
  int EditDepth() const { return editDepth_; }
  std::uint64_t SavedFrames() const { return savedFrames_; }

  // The first change that the score cannot take, unless it was taken back, as a clause without its subject ("moved
  // entry 1 of staff 1, measure 2, layer 1"); empty: none.
  std::string RefusedChange() const;
  // How many records were added that the score did not have. They are lost with the document.
  std::size_t AddedRecords() const;
  Misuse& Misuses() { return misuses_; }
  // All so far, and what has become of the frames that were freed.
  Misuse MisusesSoFar() const;

  // Edits nest; the outermost is what a cancel takes back, records included. Ending or cancelling without a start
  // returns false.
  void StartEdit();
  bool EndEdit();
  bool CancelEdit();

 private:
  struct Checkpoint {
    std::vector<bool> hidden;
    EDataStore records;
    std::string refusedChange;
  };

  const ScoreFrame* Find(int staff, int measure, int layer);
  EXENTRY RecordOf(const ScoreEntry& entry) const;
  // What was changed in a loaded frame that the score cannot take, or nothing.
  std::string RefusedChangeIn(const LoadedFrame& frame) const;

  Score& score_;
  EDataStore records_;
  std::size_t nextFrame_ = 0;  // in the score's list: extensions usually ask in this order
  brvhost::LoadedFrames loaded_;
  Misuse misuses_;
  std::string refusedChange_;
  std::uint64_t savedFrames_ = 0;
  int editDepth_ = 0;
  bool watchesLoaders_ = false;
  Checkpoint checkpoint_;
};

}  // namespace brvhost
