// How long the processes that this one starts may live.
#pragma once

#include <sys/types.h>

#include <vector>

namespace brvhost {

// From now on this process is killed when its parent, which must be `parent`, ends in whatever way. Where the system
// cannot do that it goes on.
void DieWithParent(pid_t parent);

// From now on the descendants of this process that lose their own parent become its children, where the system can do
// that.
void AdoptOrphans();

// The children of this thread, adopted ones included, where the system can list them.
std::vector<pid_t> Children();

}  // namespace brvhost
