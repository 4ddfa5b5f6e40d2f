// Where files are in a bundle's folder.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace brvplatform {

// The layout of a folder: with Contents, with Resources as in a version of a framework, with Support Files as in older
// bundles, or flat.
struct BundleFolder {
  std::string top;
  std::string contents;   // holds Info.plist and the folder of the executable
  std::string infoPlist;  // may not exist
  std::string resources;  // may not exist

  // The path is absolute, without dots.
  static BundleFolder At(const std::string& top);

  std::string Executable(const std::string& name) const;

  // The names of its localizations, in alphabetical order.
  std::vector<std::string> Localizations() const;

  // The file of a resource. It is searched for outside the localizations, then in the user's, then in Base, in that of
  // the development region, and in any other.
  std::optional<std::string> FindResource(const std::string& fileName, const std::string& subfolder,
                                          const std::string& developmentRegion) const;
};

}  // namespace brvplatform
