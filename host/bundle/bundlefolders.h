// Where extensions are installed.
#pragma once

#include <string>
#include <vector>

namespace brvhost {

// The folders in which an extension is looked for by its name, the first first: those that BRVHOST_PATH lists, with
// colons between them; the user's, $XDG_DATA_HOME/brvhost or ~/.local/share/brvhost; and the one that is installed with
// this program, wherever that is. A folder that is listed twice stands at its first place. They need not exist.
std::vector<std::string> BundleFolders();

// The paths of what is named as bundles are in these folders, in their order; those of one folder by their names.
std::vector<std::string> BundlesIn(const std::vector<std::string>& folders);

}  // namespace brvhost
