// The extensions that are installed.
#pragma once

#include <string>
#include <vector>

namespace brvhost {

struct InstalledBundle {
  std::string name;     // by which it is found: LegerLines
  std::string path;     // of the bundle
  std::string version;  // as Info.plist has it for people; empty where it has none
  std::vector<std::string> languages;
  std::vector<std::string> systems;  // with an executable: "Linux on arm64"
  std::string hiddenBy;              // the path of the bundle that is found by this name instead; empty: none is
  std::string wrong;                 // why it cannot be used on this system, as a clause about it; empty: it can
};

// The bundles in these folders, which are searched in this order; those of one folder by their names. No code of theirs
// is loaded.
std::vector<InstalledBundle> InstalledBundles(const std::vector<std::string>& folders);

}  // namespace brvhost
