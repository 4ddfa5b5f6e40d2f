#include "host/files/foldernames.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <utility>

namespace brvhost {
namespace {

struct Close {
  void operator()(DIR* folder) const { closedir(folder); }
};

}  // namespace

// The C++ library's directory iterators end the program when memory runs out.
std::optional<std::vector<std::string>> NamesIn(const std::string& folder) {
  const std::unique_ptr<DIR, Close> files(opendir(folder.c_str()));
  if (files == nullptr) return std::nullopt;
  std::vector<std::string> names;
  errno = 0;
  while (const dirent* const file = readdir(files.get())) {
    std::string name = file->d_name;
    if (name != "." && name != "..") names.push_back(std::move(name));
    errno = 0;
  }
  if (errno != 0) return std::nullopt;
  std::ranges::sort(names);
  return names;
}

}  // namespace brvhost
