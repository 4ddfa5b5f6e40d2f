#include "host/bundle/missingexecutable.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "host/bundle/bundlesystems.h"

namespace brvhost {

std::string MissingExecutable(const std::string& bundle) {
  const std::vector<std::string> folders = FilledFolders(bundle);
  if (std::ranges::find(folders, BRV_EXECUTABLE_FOLDER) != folders.end()) {
    return fmt::format("its code does not load: Info.plist names no file in {}{}, or cannot be read",
                       FolderOfContents(bundle).substr(bundle.size() + 1), BRV_EXECUTABLE_FOLDER);
  }
  std::string text = "has no executable for " + SystemOf(BRV_EXECUTABLE_FOLDER);
  std::string_view separator = "; it has one for ";
  for (const std::string& system : SystemsOf(bundle)) {
    text.append(separator).append(system);
    separator = " and one for ";
  }
  return text;
}

}  // namespace brvhost
