// The report on a region of the score.
#pragma once

#include <BrvEDK/hostrecords.h>

#include <string>

// A table of the staves, and one of the measures at which the key or the meter changes.
std::u16string ReportOn(const EREGION& region);
