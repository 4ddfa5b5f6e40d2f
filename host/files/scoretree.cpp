#include "host/files/scoretree.h"

#include <strings.h>
#include <sys/stat.h>

#include <optional>
#include <utility>

#include "host/files/filekind.h"
#include "host/files/foldernames.h"

namespace brvhost {
namespace {

class Walk {
 public:
  Walk(const std::string& top, std::set<Inode>& seen) : top_(top), seen_(seen) {}

  // The folder's path from the top, with a slash at its end, or nothing.
  void In(const std::string& folder) {
    const auto names = NamesIn(top_ + "/" + folder);
    if (!names) {
      found_.push_back(folder.substr(0, folder.rfind('/')));
      return;
    }
    for (const std::string& name : *names) {
      if (!name.starts_with('.')) LookAt(folder + name);
    }
  }

  std::vector<std::string> TakeFound() { return std::move(found_); }

 private:
  void LookAt(const std::string& path) {
    const std::string whole = top_ + "/" + path;
    struct stat status;
    if (lstat(whole.c_str(), &status) != 0) return;
    if (S_ISDIR(status.st_mode)) {
      if (seen_.insert(InodeOf(status)).second) In(path + "/");
      return;
    }
    if (!IsNamedAsScore(path) || stat(whole.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return;
    const bool isDocument = strcasecmp(path.c_str() + path.rfind('.'), ".xml") == 0;
    if (isDocument && IsOtherDocument(whole)) return;
    if (seen_.insert(InodeOf(status)).second) found_.push_back(path);
  }

  const std::string& top_;
  std::set<Inode>& seen_;
  std::vector<std::string> found_;
};

}  // namespace

std::vector<std::string> ScoresBelow(const std::string& folder, std::set<Inode>& seen) {
  Walk walk(folder, seen);
  if (const auto inode = InodeOf(folder); inode && !seen.insert(*inode).second) return {};
  walk.In("");
  return walk.TakeFound();
}

}  // namespace brvhost
