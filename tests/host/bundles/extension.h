// An extension without faults, every entry point of which a faulty one can replace: those here are weak.
#pragma once

#include "brevixpdk.h"
#include "extension/entrypoints.h"

// What the one item of the extension without faults does with a region: hides the ledger lines of its first frame.
int HideFirstFrame(const EREGION& region);

// The texts "item", "item", "item".
void FillTexts(MenuItemTexts& texts);
