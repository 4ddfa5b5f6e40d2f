// What the loader and the workers report in memory that they share with the supervisor: it is there after a crash.
#pragma once

#include <cstddef>

#include "host/calls/missingfunctions.h"
#include "host/process/sharedarray.h"
#include "host/process/whereabouts.h"

namespace brvhost {

struct SharedPlaces {
  // Throws std::bad_alloc.
  explicit SharedPlaces(std::size_t count) : whereabouts(count), missing(count) {}

  SharedWhereabouts whereabouts;
  SharedArray<MissingFunctions> missing;
};

// From now on this process reports to the places of that number.
inline void ReportTo(const SharedPlaces& places, std::size_t number) {
  ReportWhereaboutsTo(places.whereabouts[number]);
  MarkMissingFunctionsIn(places.missing[number]);
}

}  // namespace brvhost
