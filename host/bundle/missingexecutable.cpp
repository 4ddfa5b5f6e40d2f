#include "host/bundle/missingexecutable.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string_view>
#include <system_error>
#include <vector>

namespace brvhost {
namespace {

namespace fs = std::filesystem;

// The system whose executables are in the folder of that name: "Linux on arm64" for Linux-arm64. Empty for a folder
// that holds something else.
std::string SystemOf(std::string_view folder) {
  constexpr std::string_view kLinux = "Linux-";
  if (folder == "MacOS") return "macOS";
  return folder.starts_with(kLinux) ? fmt::format("Linux on {}", folder.substr(kLinux.size())) : "";
}

// The names of the folders in `contents` that are not empty, those for macOS first.
std::vector<std::string> FilledFolders(const fs::path& contents) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(contents, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code unreadable;
    const bool filled = fs::is_directory(entry->path(), unreadable) && !fs::is_empty(entry->path(), unreadable);
    if (filled && !unreadable) names.push_back(entry->path().filename());
  }
  std::ranges::sort(names, std::greater<>());
  return names;
}

}  // namespace

std::string MissingExecutable(const std::string& bundle) {
  std::error_code error;
  // A bundle without it has the folders itself.
  const std::string contents = fs::is_directory(fs::path(bundle) / "Contents", error) ? "Contents/" : "";
  const std::vector<std::string> folders = FilledFolders(fs::path(bundle) / contents);
  if (std::ranges::find(folders, BRV_EXECUTABLE_FOLDER) != folders.end()) {
    return fmt::format("its code does not load: Info.plist names no file in {}{}, or cannot be read", contents,
                       BRV_EXECUTABLE_FOLDER);
  }
  std::string text = "has no executable for " + SystemOf(BRV_EXECUTABLE_FOLDER);
  std::string_view separator = "; it has ";
  for (const std::string& folder : folders) {
    const std::string system = SystemOf(folder);
    if (system.empty()) continue;
    text += fmt::format("{}one for {}", separator, system);
    separator = " and ";
  }
  return text;
}

}  // namespace brvhost
