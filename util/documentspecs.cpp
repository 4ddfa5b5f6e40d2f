#include "documentspecs.h"

#include <cstdint>

#include "loadrecord.h"

namespace {

// The key of a group.
//
// Compatibility: a third word, 0, follows the two that every key has. Older hosts read three words for groups.
struct GroupKey {
  EDataKey key;
  std::uint16_t third;
};

}  // namespace

short16 BXUtilGetMeasureSpec(short16 measure, EDTMeasureSpec2014* spec) {
  return LoadRecord(kMeasureSpecTag, measure, spec);
}

short16 BXUtilPutMeasureSpec(short16 measure, EDTMeasureSpec2014* spec) {
  EDataKey key = {static_cast<std::uint16_t>(measure), 0};
  return BX_SaveEData(kMeasureSpecTag, &key, spec, sizeof(*spec), kBrvVersion);
}

short16 BXUtilGetStaffSpec(short16 staff, EDTStaffSpec2014* spec) { return LoadRecord(kStaffSpecTag, staff, spec); }

short16 BXUtilGetGroupSpec(short16 first, short16 second, EDTGroupSpec* spec) {
  GroupKey key = {{static_cast<std::uint16_t>(first), static_cast<std::uint16_t>(second)}, 0};
  std::int32_t size = sizeof(*spec);
  return BX_LoadEData(kGroupSpecTag, &key.key, spec, &size, kBrvVersion);
}

short16 BXUtilGetPageSpec(short16 page, EDTPageSpec* spec) { return LoadRecord(kPageSpecTag, page, spec); }

short16 BXUtilGetGeneralPrefs(EDTGeneralPrefs2008* prefs) { return LoadRecord(kGeneralPrefsTag, 0, prefs); }

short16 BXUtilCountIUSlots(short16 id) {
  int slot = 1;
  while (slot <= INT16_MAX && BX_SlotToInst(slot, id, kBrvVersion) != 0) ++slot;
  return slot - 1;
}
