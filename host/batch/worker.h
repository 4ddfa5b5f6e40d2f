// Runs an item of an extension on one score, in a process of its own: the score comes as an image, and what the
// extension changed goes back. Nothing else of what it does to its process is felt elsewhere.
#pragma once

#include "host/batch/channel.h"
#include "host/batch/job.h"
#include "host/bundle/extension.h"

namespace brvhost {

// Returns the process's exit status.
[[nodiscard]] int RunWorker(const Extension& extension, const JobSettings& settings, int item, Channel channel);

}  // namespace brvhost
