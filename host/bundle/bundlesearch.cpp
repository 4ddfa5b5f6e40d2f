#include "host/bundle/bundlesearch.h"

#include <fmt/format.h>

#include <cstddef>
#include <filesystem>
#include <set>
#include <string_view>
#include <system_error>
#include <vector>

#include "host/bundle/bundlefolders.h"
#include "host/bundle/bundlename.h"
#include "host/bundle/loadedbundle.h"
#include "host/text/nearest.h"

namespace brvhost {
namespace {

bool Exists(const std::string& path) {
  std::error_code error;
  return std::filesystem::exists(path, error);
}

// "/a, /b and /c".
std::string Listed(const std::vector<std::string>& folders) {
  std::string text;
  for (std::size_t i = 0; i < folders.size(); ++i) {
    if (i > 0) text += i + 1 == folders.size() ? " and " : ", ";
    text += folders[i];
  }
  return text;
}

std::string NearestInstalled(const std::string& name, const std::vector<std::string>& folders) {
  std::set<std::string> names;
  for (const std::string& path : BundlesIn(folders)) names.insert(NameOfBundle(path));
  return NearestName(name, {names.begin(), names.end()});
}

[[noreturn]] void FailToFind(const std::string& asked, const std::string& name,
                             const std::vector<std::string>& folders) {
  const std::string nearest = NearestInstalled(name, folders);
  throw BundleError(fmt::format(
      "{}: there is no such bundle here, and no {}{} in {}; {}", asked, name, kBundleEnding, Listed(folders),
      nearest.empty() ? "`brvhost list` lists what is installed" : fmt::format("did you mean {}?", nearest)));
}

}  // namespace

std::string PathOfBundle(const std::string& nameOrPath) {
  if (nameOrPath.empty() || nameOrPath.find('/') != std::string::npos || Exists(nameOrPath)) return nameOrPath;
  std::string name = nameOrPath;
  if (name.ends_with(kBundleEnding)) name.resize(name.size() - kBundleEnding.size());
  const std::vector<std::string> folders = BundleFolders();
  for (const std::string& folder : folders) {
    std::string path = fmt::format("{}/{}{}", folder, name, kBundleEnding);
    if (Exists(path)) return path;
  }
  FailToFind(nameOrPath, name, folders);
}

}  // namespace brvhost
