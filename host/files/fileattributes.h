// What a file has besides its content.
#pragma once

#include <sys/stat.h>

#include <string>
#include <vector>

namespace brvhost {

// Gives a new file the owner, the group, the mode, the extended attributes and the access control list of the file that
// it is to replace. Returns a sentence about the owner and the group each that it cannot have, as only root may give
// files away. Throws std::runtime_error when anything else cannot be kept.
[[nodiscard]] std::vector<std::string> CopyAttributes(int from, const struct stat& status, int to);

// The part of it that differs between systems: extended attributes and access control list.
void CopyExtendedAttributes(int from, int to);

}  // namespace brvhost
