// An extension without faults, every entry point of which a faulty one can replace: those here are weak.
#pragma once

#include "brevixpdk.h"
#include "convention.h"

// What the one item of the extension without faults does with a region: hides the ledger lines of its first frame,
// as far as that is in the region.
int HideFirstFrame(const EREGION& region);

// Whether an entry of the region's first measure is in the region.
bool IsWithin(const EREGION& region, const EXENTRY& entry);

// The texts "item", "item", "item".
void FillTexts(MenuItemTexts& texts);
