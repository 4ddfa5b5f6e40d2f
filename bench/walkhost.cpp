#include "walkhost.h"

#include <optional>

#include "brevixpdk.h"
#include "host/files/inputfile.h"
#include "host/files/scorefile.h"
#include "host/score/region.h"
#include "host/services/document.h"

namespace {

struct OpenedScore {
  explicit OpenedScore(const char* path)
      : file(brvhost::InputFile(path)), document(file.GetScore()), score(file.GetScore()) {
    const int places = score.staves * score.layers * score.measures;
    byPlace.resize(static_cast<std::size_t>(places));
    for (int staff = 1; staff <= score.staves; ++staff) {
      for (int layer = 0; layer < score.layers; ++layer) {
        for (int measure = 1; measure <= score.measures; ++measure) Keep(staff, layer, measure);
      }
    }
  }

  std::size_t IndexOf(int staff, int layer, int measure) const {
    const int index = ((staff - 1) * score.layers + layer) * score.measures + measure - 1;
    return static_cast<std::size_t>(index);
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

std::optional<OpenedScore> opened;

}  // namespace

extern "C" {

EREGION WalkHostOpenScore(const char* path) noexcept {
  opened.emplace(path);
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
