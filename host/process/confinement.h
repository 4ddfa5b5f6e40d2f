// Takes rights away from a process that is about to run foreign code.
#pragma once

namespace brvhost {

// From now on this process, and whatever it starts, may read files but not write, create, rename or remove any, open no
// network connection, and start no program; what it tries in vain fails with EACCES. Descriptors that are open stay as
// they are. Throws std::runtime_error where the system has no means for it.
void Confine();

}  // namespace brvhost
