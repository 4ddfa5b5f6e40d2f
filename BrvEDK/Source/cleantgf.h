// The sanitiser of frames on their way back to the host.
#pragma once

#include "hostrecords.h"

// Makes the entries of a frame fit for the host: gives notes identifiers that are not 0 and, up to 0x7FFF, unique in
// their entry, copies their low bits into the note words, zeroes unused note slots, and gives each rest one placeholder
// note unless CanAddNoteRecordToRests is 0. The frame's header and all other bytes of its entries stay. The flag is
// part of the host kit's signature and means nothing.
//
// A note count below 0 counts as 0. One above twelve is followed over the memory behind the entry's notes: its own
// position, then the entries after it.
void CleanTGF(const EXTGF2005a* frame, bool);
