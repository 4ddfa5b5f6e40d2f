// The process that runs an extension's code: it loads the bundle once, and forks a worker for each score.
#pragma once

#include <cstddef>

#include "host/batch/channel.h"
#include "host/batch/job.h"
#include "host/process/whereabouts.h"

namespace brvhost {

// Loads the bundle when the supervisor asks for it, and serves it until it closes its end. Then the extension is ended,
// and so is the process. Returns the exit status where there is nothing to serve.
//
// A worker reports where it is to the place of its slot, the loader to that of number `ownPlace`.
[[nodiscard]] int RunLoader(const JobSettings& settings, Channel supervisor, const SharedWhereabouts& whereabouts,
                            std::size_t ownPlace);

}  // namespace brvhost
