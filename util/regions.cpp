#include "regions.h"

#include "brevixpdk.h"

namespace {

// A host's record may be longer than the part of it that the kit knows.
union ScratchRegion {
  EREGION region;
  unsigned char bytes[64];
};

}  // namespace

short16 GetRegions(EREGION* first, EREGION* second) {
  ScratchRegion unread;
  ScratchRegion scratchFirst;
  ScratchRegion scratchSecond;
  return BX_GetCurERegions(&unread.region, second != nullptr ? second : &scratchSecond.region,
                           first != nullptr ? first : &scratchFirst.region, kBrvVersion);
}
