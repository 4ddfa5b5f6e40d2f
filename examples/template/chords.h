// The work of the menu item.
#pragma once

#include <BrvEDK/hostrecords.h>

// Hides the ledger lines of the chords in the region. Returns whether anything changed.
bool HideLedgerLinesOfChords(const EREGION& region);
