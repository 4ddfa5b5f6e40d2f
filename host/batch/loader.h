// The process that runs an extension's code: it loads the bundle once, and forks a worker for each score.
#pragma once

#include <cstddef>

#include "host/batch/channel.h"
#include "host/batch/job.h"
#include "host/batch/sharedplaces.h"

namespace brvhost {

// Loads the bundle when the supervisor asks for it, and serves it until it closes its end. Then the extension is ended,
// and so is the process. Returns the exit status where there is nothing to serve.
//
// A worker reports to the places of its slot, the loader to those of number `ownPlace`.
[[nodiscard]] int RunLoader(const JobSettings& settings, Channel supervisor, const SharedPlaces& places,
                            std::size_t ownPlace);

}  // namespace brvhost
