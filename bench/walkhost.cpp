#include "walkhost.h"

#include "brevixpdk.h"
#include "host/files/scorefile.h"
#include "host/score/region.h"
#include "host/services/document.h"

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

EREGION WalkHostOpenScore(const char* path) noexcept {
  opened = new OpenedScore(path);  // for the rest of the run
  return brvhost::WholeScore(opened->score);
}

const std::vector<EXTGF2005a*>* WalkHostAllFrames() noexcept { return &opened->all; }

short16 BX_GetMaxLayers(BrvVersion) { return opened->score.layers; }
short16 BX_GetShowLayer(short16, BrvVersion) { return 1; }
EXTGF2005a* BX_LoadTGF(ushort16, short16 staff, short16 measure, short16 layer, short16, BrvVersion) {
  return opened->byPlace[opened->IndexOf(staff, layer, measure)];
}
short16 BX_SaveTGF(EXTGF2005a*, BrvVersion) { return 1; }
HostResult BX_FreeTGF(EXTGF2005a*, BrvVersion) { return 1; }

}  // extern "C"
