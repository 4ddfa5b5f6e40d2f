// One field of a preference record, from and to the words of its legacy record.
#pragma once

#include "preffieldmap.h"

// Puts the field into the preference record at `data`.
void LoadPrefField(const PrefFieldMap& field, const LegacyRecord& legacy, void* data);

// Puts the field of the preference record back into the legacy record where it says something else than that does.
// Returns whether it was put there.
bool StorePrefField(const PrefFieldMap& field, const void* data, LegacyRecord& legacy);
