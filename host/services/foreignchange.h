// What an extension may not change in an entry: everything but its ledger lines, as a score has no place for the rest.
#pragma once

#include "BrvEDK/Source/hostrecords.h"

namespace brvhost {

// What was changed in `saved`, besides its ledger-line bit, since the host gave it out as `given`: a verb with its
// preposition ("moved", "added notes to"), or null. What the kit's own cleaning does to an entry is no change.
const char* ForeignChange(const EXENTRY& given, EXENTRY saved);

}  // namespace brvhost
