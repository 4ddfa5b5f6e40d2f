// Typed functions for records of the document, and for what several records give together.
#pragma once

#include "documentrecords.h"
#include "hostrecords.h"
#include "hosttypes.h"

extern "C" {

// These load a record into the caller's. They return the host's result, non-zero for success. Bytes that the host does
// not write keep their value.
//
// Example:
//
//   EDTMeasureSpec2014 spec = {};
//   if (BXUtilGetMeasureSpec(12, &spec) != 0) beats = spec.beats;
BRV_EXPORT short16 BXUtilGetMeasureSpec(short16 measure, EDTMeasureSpec2014* spec);
BRV_EXPORT short16 BXUtilGetStaffSpec(short16 staff, EDTStaffSpec2014* spec);
BRV_EXPORT short16 BXUtilGetPageSpec(short16 page, EDTPageSpec* spec);
BRV_EXPORT short16 BXUtilGetGeneralPrefs(EDTGeneralPrefs2008* prefs);

// Loads the record of a group like those above. first and second are the two words of the group's key, by which the
// host numbers its groups.
BRV_EXPORT short16 BXUtilGetGroupSpec(short16 first, short16 second, EDTGroupSpec* spec);

// Saves the record of a measure. Returns the host's result, non-zero for success.
BRV_EXPORT short16 BXUtilPutMeasureSpec(short16 measure, EDTMeasureSpec2014* spec);

// Returns 1 if a measure of a staff holds no music, or 0 if an entry of any layer, even a hidden one, has the content
// bit. scope is that of the region (EREGION::regionScope).
//
// The frames that it looks at stay loaded: LoadedTGFCounter goes up by 1 for each layer that was asked for. Where that
// matters, as in a job over many measures, load each layer with BX_LoadTGF, look at its entries, and free it with
// BX_FreeTGF.
BRV_EXPORT int BXUtilIsEmptyMeasure(short16 scope, short16 staff, short16 measure);

// Writes the name of a staff, without its formatting tags, into a buffer of capacity UTF-16 units, and returns its
// length in units. A staff without a name gives 0 and the empty text. The second argument has no meaning.
//
// A name of capacity units or more leaves the buffer without a final 0, and the length is then counted beyond its end.
// Keep one unit back, set to 0, and a long name is cut instead.
//
// Example:
//
//   UniChar name[129] = {};
//   const int length = BXUtilGetStaffName(staff, 0, name, 128);
BRV_EXPORT int BXUtilGetStaffName(short16 staff, short16 unused, UniChar* buffer, int capacity);

// Returns the number of slots that id has in BX_SlotToInst. Slots are numbered from 1 without gaps.
BRV_EXPORT short16 BXUtilCountIUSlots(short16 id);

}  // extern "C"
