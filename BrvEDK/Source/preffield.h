// Converts one field of a preference record from and to the words of its legacy record.
#pragma once

#include "preffieldmap.h"

// Writes the field into the preference record at `data`.
void LoadPrefField(const PrefFieldMap& field, const LegacyRecord& legacy, void* data);

// Writes the field of the preference record back into the legacy record if the two differ. Returns whether it was
// written.
bool StorePrefField(const PrefFieldMap& field, const void* data, LegacyRecord& legacy);
