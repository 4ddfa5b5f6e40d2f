// Cleans frames before they go back to the host.
#pragma once

#include "hostrecords.h"

// Prepares the entries of a frame for the host: gives notes identifiers that are not 0 and, up to 0x7FFF, unique in
// their entry; copies the low bits of these into the note words; zeroes unused note slots; and gives each rest one
// placeholder note unless CanAddNoteRecordToRests is 0. The frame's header and all other bytes of its entries are left
// alone. The flag belongs to the signature and has no meaning.
//
// A note count below 0 counts as 0. One above twelve is followed through the memory after the entry's notes: its own
// position, then the next entries.
void CleanTGF(const EXTGF2005a* frame, bool);
