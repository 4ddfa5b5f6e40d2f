#include "bundlefolder.h"

#include <algorithm>

#include "languages.h"

namespace fs = std::filesystem;

namespace brvplatform {
namespace {

constexpr const char* kInfoPlist = "Info.plist";
constexpr const char* kLocalizationSuffix = ".lproj";

bool IsFolder(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

bool Exists(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

// These hold a part of a bundle and are none themselves, though an Info.plist may stand in them.
bool IsPartOfABundle(const fs::path& folder) {
  const fs::path name = folder.filename();
  return name == "Contents" || name == "Resources" || name == "Support Files";
}

std::string LocalizationFor(const std::vector<std::string>& localizations, const std::string& developmentRegion) {
  std::vector<std::string> languages = UserLanguages();
  languages.push_back(developmentRegion);
  return BestLocalization(localizations, languages).value_or("");
}

}  // namespace

BundleFolder BundleFolder::At(const fs::path& top) {
  fs::path folder = top.lexically_normal();
  if (!folder.has_filename()) folder = folder.parent_path();
  if (IsPartOfABundle(folder)) return {top, top, {}, top};
  if (IsFolder(folder / "Contents")) {
    return {top, folder / "Contents", folder / "Contents" / kInfoPlist, folder / "Contents" / "Resources"};
  }
  if (Exists(folder / "Resources" / kInfoPlist)) {
    return {top, folder, folder / "Resources" / kInfoPlist, folder / "Resources"};
  }
  if (Exists(folder / "Support Files" / kInfoPlist)) {
    return {top, folder, folder / "Support Files" / kInfoPlist, folder / "Resources"};
  }
  const fs::path resources = IsFolder(folder / "Resources") ? folder / "Resources" : folder;
  return {top, folder, folder / kInfoPlist, resources};
}

fs::path BundleFolder::Executable(const std::string& name) const { return contents / "Linux-x86-64" / (name + ".so"); }

std::vector<std::string> BundleFolder::Localizations() const {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(resources, error), end; !error && entry != end; entry.increment(error)) {
    const fs::path name = entry->path().filename();
    if (name.extension() == kLocalizationSuffix && name != "Base.lproj") names.push_back(name.stem());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::optional<fs::path> BundleFolder::FindResource(const std::string& fileName, const std::string& subfolder,
                                                   const std::string& developmentRegion) const {
  const std::vector<std::string> localizations = Localizations();
  std::vector<std::string> order = {LocalizationFor(localizations, developmentRegion), "Base", developmentRegion};
  order.insert(order.end(), localizations.begin(), localizations.end());

  const fs::path unlocalized = resources / subfolder / fileName;
  if (Exists(unlocalized)) return unlocalized;
  for (const std::string& localization : order) {
    if (localization.empty()) continue;
    const fs::path localized = resources / (localization + kLocalizationSuffix) / subfolder / fileName;
    if (Exists(localized)) return localized;
  }
  return std::nullopt;
}

}  // namespace brvplatform
