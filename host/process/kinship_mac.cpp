#include "host/process/kinship.h"

namespace brvhost {

// The system has neither. A process that has lost its parent notices when it next hears nothing from it, and what an
// extension starts is killed as a process group.
void DieWithParent(pid_t) {}

void AdoptOrphans() {}

void ForEachChild(const std::function<void(pid_t)>&) {}

}  // namespace brvhost
