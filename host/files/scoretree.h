// The scores in a folder and in those below it.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "host/files/fileidentity.h"

namespace brvhost {

// The paths, from the folder, of the files in it and below it that are named as scores are, in the order of their
// names. Each is added to `seen`; what is in it already, be it a file or a folder, is passed over, and so is what
// begins with a dot, a symbolic link to a folder, and an XML document that is named .xml and is no score. A folder that
// cannot be read is among them, so that whoever opens it learns why.
std::vector<std::string> ScoresBelow(const std::string& folder, std::set<Inode>& seen);

}  // namespace brvhost
