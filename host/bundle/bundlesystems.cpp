#include "host/bundle/bundlesystems.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <system_error>
#include <utility>

#include "host/files/foldernames.h"

namespace brvhost {

std::string SystemOf(std::string_view folder) {
  constexpr std::string_view kLinux = "Linux-";
  if (folder == "MacOS") return "macOS";
  return folder.starts_with(kLinux) ? fmt::format("Linux on {}", folder.substr(kLinux.size())) : "";
}

std::string FolderOfContents(const std::string& bundle) {
  std::error_code error;
  const std::string contents = bundle + "/Contents/";
  return std::filesystem::is_directory(contents, error) ? contents : bundle + "/";
}

std::vector<std::string> FilledFolders(const std::string& bundle) {
  const std::string contents = FolderOfContents(bundle);
  std::vector<std::string> folders = NamesIn(contents).value_or(std::vector<std::string>());
  std::erase_if(folders, [&contents](const std::string& name) {
    const auto content = NamesIn(contents + name);
    return !content || content->empty();
  });
  std::ranges::sort(folders, std::greater<>());
  return folders;
}

std::vector<std::string> SystemsOf(const std::string& bundle) {
  std::vector<std::string> systems;
  for (const std::string& folder : FilledFolders(bundle)) {
    std::string system = SystemOf(folder);
    if (!system.empty()) systems.push_back(std::move(system));
  }
  return systems;
}

}  // namespace brvhost
