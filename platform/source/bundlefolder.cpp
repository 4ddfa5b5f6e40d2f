#include "bundlefolder.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "files.h"
#include "languages.h"

namespace brvplatform {
namespace {

constexpr const char* kInfoPlist = "Info.plist";
constexpr std::string_view kLocalizationSuffix = ".lproj";
constexpr const char* kBase = "Base";

// These hold a part of a bundle and are not bundles themselves, though they may contain an Info.plist.
bool IsPartOfABundle(const std::string& folder) {
  const std::string_view name = LastName(folder);
  return name == "Contents" || name == "Resources" || name == "Support Files";
}

std::string LocalizationFor(const std::vector<std::string>& localizations, const std::string& developmentRegion) {
  std::vector<std::string> languages = UserLanguages();
  languages.push_back(developmentRegion);
  return BestLocalization(localizations, languages).value_or("");
}

}  // namespace

BundleFolder BundleFolder::At(const std::string& top) {
  const std::string contents = Inside(top, "Contents");
  const std::string resources = Inside(top, "Resources");
  const std::string supportFiles = Inside(top, "Support Files");
  if (IsPartOfABundle(top)) return {top, top, {}, top};
  if (IsFolder(contents)) return {top, contents, Inside(contents, kInfoPlist), Inside(contents, "Resources")};
  if (Exists(Inside(resources, kInfoPlist))) return {top, top, Inside(resources, kInfoPlist), resources};
  if (Exists(Inside(supportFiles, kInfoPlist))) return {top, top, Inside(supportFiles, kInfoPlist), resources};
  return {top, top, Inside(top, kInfoPlist), IsFolder(resources) ? resources : top};
}

std::string BundleFolder::Executable(const std::string& name) const {
  return Inside(Inside(contents, BRV_EXECUTABLE_FOLDER), name + ".so");
}

std::vector<std::string> BundleFolder::Localizations() const {
  std::vector<std::string> localizations;
  for (std::string& name : NamesIn(resources)) {
    if (!name.ends_with(kLocalizationSuffix)) continue;
    name.resize(name.size() - kLocalizationSuffix.size());
    if (!name.empty() && name != kBase) localizations.push_back(std::move(name));
  }
  std::sort(localizations.begin(), localizations.end());
  return localizations;
}

std::optional<std::string> BundleFolder::FindResource(const std::string& fileName, const std::string& subfolder,
                                                      const std::string& developmentRegion) const {
  const std::string unlocalized = Inside(Inside(resources, subfolder), fileName);
  if (Exists(unlocalized)) return unlocalized;

  const std::vector<std::string> localizations = Localizations();
  std::vector<std::string> order = {LocalizationFor(localizations, developmentRegion), kBase, developmentRegion};
  order.insert(order.end(), localizations.begin(), localizations.end());
  for (const std::string& localization : order) {
    if (localization.empty()) continue;
    const std::string folder = Inside(resources, localization).append(kLocalizationSuffix);
    const std::string localized = Inside(Inside(folder, subfolder), fileName);
    if (Exists(localized)) return localized;
  }
  return std::nullopt;
}

}  // namespace brvplatform
