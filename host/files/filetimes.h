// When a file was last changed: systems name these members of its status differently.
#pragma once

#include <sys/stat.h>

#include <ctime>

namespace brvhost {

// Its content.
const timespec& ModifiedAt(const struct stat& status);
// Its content, its names, or its attributes.
const timespec& ChangedAt(const struct stat& status);

}  // namespace brvhost
