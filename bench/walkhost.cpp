#include "walkhost.h"

#include "host/files/scorefile.h"
#include "host/score/region.h"
#include "host/services/document.h"
#include "hosttypes.h"

namespace {

struct OpenedScore {
  explicit OpenedScore(const char* path) : file(path), document(file.GetScore()), score(file.GetScore()) {
    byPlace.resize(static_cast<std::size_t>(score.staves * score.layers * score.measures));
    for (int staff = 1; staff <= score.staves; ++staff) {
      for (int layer = 0; layer < score.layers; ++layer) {
        for (int measure = 1; measure <= score.measures; ++measure) Keep(staff, layer, measure);
      }
    }
  }

  std::size_t IndexOf(int staff, int layer, int measure) const {
    return static_cast<std::size_t>(((staff - 1) * score.layers + layer) * score.measures + measure - 1);
  }

  void Keep(int staff, int layer, int measure) {
    EXTGF2005a* const frame = document.LoadFrame(staff, measure, layer);
    byPlace[IndexOf(staff, layer, measure)] = frame;
    if (frame != nullptr) all.push_back(frame);
  }

  brvhost::ScoreFile file;
  brvhost::OpenDocument document;
  const brvhost::Score& score;
  std::vector<EXTGF2005a*> byPlace;
  std::vector<EXTGF2005a*> all;
};

OpenedScore* opened = nullptr;

}  // namespace

extern "C" {

BRV_EXPORT EREGION WalkHostOpenScore(const char* path) {
  opened = new OpenedScore(path);  // for the rest of the run
  return brvhost::WholeScore(opened->score);
}

BRV_EXPORT const std::vector<EXTGF2005a*>* WalkHostAllFrames() { return &opened->all; }

BRV_EXPORT int BX_GetMaxLayers(BrvVersion) { return opened->score.layers; }
BRV_EXPORT int BX_GetShowLayer(int, BrvVersion) { return 1; }
BRV_EXPORT EXTGF2005a* BX_LoadTGF(int, int staff, int measure, int layer, int, BrvVersion) {
  return opened->byPlace[opened->IndexOf(staff, layer, measure)];
}
BRV_EXPORT int BX_SaveTGF(EXTGF2005a*, BrvVersion) { return 1; }
BRV_EXPORT int BX_FreeTGF(EXTGF2005a*, BrvVersion) { return 1; }

}  // extern "C"
