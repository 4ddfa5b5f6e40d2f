// How long the processes that this one starts may live.
#pragma once

#include <sys/types.h>

#include <functional>

namespace brvhost {

// From now on this process is killed when its parent, which must be `parent`, ends in whatever way. Where the system
// cannot do that it goes on.
void DieWithParent(pid_t parent);

// From now on the descendants of this process that lose their own parent become its children, where the system can do
// that.
void AdoptOrphans();

// Does the work for each child of this thread, adopted ones included, where the system can list them. One may be passed
// over while others end. Needs no memory.
void ForEachChild(const std::function<void(pid_t)>& work);

}  // namespace brvhost
