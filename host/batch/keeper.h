// The process or thread that reads scores and writes results. It never runs an extension's code: it hands a score's
// image to a worker, and judges what comes back.
#pragma once

#include <vector>

#include "host/batch/channel.h"
#include "host/batch/job.h"

namespace brvhost {

// Does the jobs that the supervisor names, until it closes its end.
void RunKeeper(const std::vector<Job>& jobs, const JobSettings& settings, Channel& supervisor);

}  // namespace brvhost
