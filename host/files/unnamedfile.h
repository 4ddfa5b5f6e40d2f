// Files that have no name until they are complete, where the system and the file system have them.
#pragma once

#include <sys/types.h>

#include <string>

#include "host/process/descriptor.h"

namespace brvhost {

// A new file in the folder, open for writing, which goes when it is closed without a name. No descriptor where there
// are no such files.
Descriptor OpenUnnamedFile(const std::string& folder, mode_t mode);

// Gives such a file a name. False, with errno, when it cannot have it: EEXIST when something has that name.
[[nodiscard]] bool NameFile(int file, const std::string& path);

// Gives a file another name, unless something has that. False, with errno: EEXIST when something has it, EINVAL or
// ENOTSUP where the file system cannot do this in one step.
[[nodiscard]] bool RenameToFreeName(const std::string& from, const std::string& to);

}  // namespace brvhost
