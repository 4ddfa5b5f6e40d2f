#include "host/bundle/bundlefolders.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "host/bundle/bundlename.h"
#include "host/bundle/installedpaths.h"
#include "host/files/foldernames.h"
#include "host/process/programpath.h"

namespace brvhost {
namespace {

namespace fs = std::filesystem;

std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// Without the empty ones, which are left by a variable that was not set.
std::vector<std::string> FoldersIn(std::string_view list) {
  std::vector<std::string> folders;
  while (!list.empty()) {
    const std::string_view folder = list.substr(0, list.find(':'));
    if (!folder.empty()) folders.emplace_back(folder);
    list.remove_prefix(std::min(folder.size() + 1, list.size()));
  }
  return folders;
}

// Empty where there is none. A folder for data has to be an absolute path, or does not count.
std::string FolderOfUser() {
  const std::string data = Variable("XDG_DATA_HOME");
  if (data.starts_with('/')) return data + "/brvhost";
  const std::string home = Variable("HOME");
  return home.empty() ? "" : home + "/.local/share/brvhost";
}

std::string FolderOfProgram() {
  const std::string program = ProgramPath();
  if (program.empty()) return kInstalledBundles;
  return (fs::path(program).parent_path() / kBundlesFromProgram).lexically_normal().string();
}

bool IsSame(const std::string& a, const std::string& b) {
  std::error_code error;
  return a == b || fs::equivalent(a, b, error);
}

}  // namespace

std::vector<std::string> BundleFolders() {
  std::vector<std::string> folders;
  const auto add = [&folders](const std::string& folder) {
    const bool isThere = std::ranges::any_of(folders, [&](const std::string& other) { return IsSame(other, folder); });
    if (!folder.empty() && !isThere) folders.push_back(folder);
  };
  for (const std::string& folder : FoldersIn(Variable("BRVHOST_PATH"))) add(folder);
  add(FolderOfUser());
  add(FolderOfProgram());
  return folders;
}

std::vector<std::string> BundlesIn(const std::vector<std::string>& folders) {
  std::vector<std::string> bundles;
  for (const std::string& folder : folders) {
    for (const std::string& name : NamesIn(folder).value_or(std::vector<std::string>())) {
      if (name.ends_with(kBundleEnding) && name != kBundleEnding) bundles.push_back(fmt::format("{}/{}", folder, name));
    }
  }
  return bundles;
}

}  // namespace brvhost
