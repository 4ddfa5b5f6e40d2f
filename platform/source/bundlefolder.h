// Where things stand in a bundle's folder.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace brvplatform {

// How a folder is laid out: with Contents, as a framework's version with Resources, in the older way with Support
// Files, or flat.
struct BundleFolder {
  std::string top;
  std::string contents;   // holds Info.plist and the folder of the executable
  std::string infoPlist;  // may not exist
  std::string resources;  // may not exist

  // The path is one from the root, without dots.
  static BundleFolder At(const std::string& top);

  std::string Executable(const std::string& name) const;

  // The names of its localizations, in alphabetical order.
  std::vector<std::string> Localizations() const;

  // The file of a resource: outside the localizations first, then in the one that serves the user, then in Base, in
  // that of the development region, and in any.
  std::optional<std::string> FindResource(const std::string& fileName, const std::string& subfolder,
                                          const std::string& developmentRegion) const;
};

}  // namespace brvplatform
