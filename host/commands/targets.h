// Where the results of a run go.
#pragma once

#include <vector>

#include "host/batch/job.h"
#include "host/commands/options.h"

namespace brvhost {

// One job for each score, with the target that the options choose. Throws UsageError: unless they choose exactly one
// kind of target, when two results would be one file, and when a result would go to a score without --in-place, under
// whatever name.
std::vector<Job> JobsOf(const Options& options);

// Makes the folders that --out-dir has its results in. Throws UsageError.
void MakeFolders(const std::vector<Job>& jobs, const Options& options);

// Removes what runs that were killed left in the folders that these jobs write to.
void RemoveLeftovers(const std::vector<Job>& jobs);

}  // namespace brvhost
