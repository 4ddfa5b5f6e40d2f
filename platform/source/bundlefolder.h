// Where things stand in a bundle's folder.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace brvplatform {

// How a folder is laid out: with Contents, as a framework's version with Resources, in the older way with Support
// Files, or flat.
struct BundleFolder {
  std::filesystem::path top;
  std::filesystem::path contents;   // holds Info.plist and the folder of the executable
  std::filesystem::path infoPlist;  // may not exist
  std::filesystem::path resources;  // may not exist

  static BundleFolder At(const std::filesystem::path& top);

  std::filesystem::path Executable(const std::string& name) const;

  // The names of its localizations, in alphabetical order.
  std::vector<std::string> Localizations() const;

  // The file of a resource: outside the localizations first, then in the one that serves the user, then in Base, in
  // that of the development region, and in any.
  std::optional<std::filesystem::path> FindResource(const std::string& fileName, const std::string& subfolder,
                                                    const std::string& developmentRegion) const;
};

}  // namespace brvplatform
