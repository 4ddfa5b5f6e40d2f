#include "host/bundle/missingexecutable.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "host/bundle/bundlesystems.h"
#include "host/text/utf8.h"

namespace brvhost {
namespace {

constexpr const char* kInfoPlist = "Info.plist";

// The name in Info.plist; empty where there is none.
std::string NameOfExecutable(CFBundleRef bundle) {
  const CFTypeRef value = CFBundleGetValueForInfoDictionaryKey(bundle, kCFBundleExecutableKey);
  if (value == nullptr || CFGetTypeID(value) != CFStringGetTypeID()) return "";
  return Utf8FromString(static_cast<CFStringRef>(value));
}

// Of a bundle whose folder for this system has files.
std::string WrongInfoPlist(CFBundleRef bundle, const std::string& path) {
  const std::string contents = FolderOfContents(path);
  const std::string shown = contents.substr(path.size() + 1);
  std::error_code error;
  if (!std::filesystem::exists(contents + kInfoPlist, error)) return fmt::format("it has no {}{}", shown, kInfoPlist);
  const std::string name = NameOfExecutable(bundle);
  if (name.empty()) return fmt::format("{}{} has no CFBundleExecutable, or cannot be read", shown, kInfoPlist);
  return fmt::format("CFBundleExecutable in {0}{1} is {2}, which is not in {0}{3}", shown, kInfoPlist, name,
                     BRV_EXECUTABLE_FOLDER);
}

}  // namespace

std::string MissingExecutable(CFBundleRef bundle, const std::string& path) {
  const std::vector<std::string> folders = FilledFolders(path);
  if (std::ranges::find(folders, BRV_EXECUTABLE_FOLDER) != folders.end()) {
    return "its code does not load: " + WrongInfoPlist(bundle, path);
  }
  std::string text = "has no executable for " + SystemOf(BRV_EXECUTABLE_FOLDER);
  std::string_view separator = "; it has one for ";
  for (const std::string& system : SystemsOf(path)) {
    text.append(separator).append(system);
    separator = " and one for ";
  }
  return text;
}

}  // namespace brvhost
