#include "host/files/unnamedfile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace brvhost {
namespace {

// The path by which the system finds an open file.
std::string PathOf(int file) { return "/proc/self/fd/" + std::to_string(file); }

}  // namespace

Descriptor OpenUnnamedFile(const std::string& folder, mode_t mode) {
  Descriptor file(open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode));
  // Without /proc it would never get a name.
  if (file && access(PathOf(file.Get()).c_str(), F_OK) != 0) return Descriptor();
  return file;
}

bool NameFile(int file, const std::string& path) {
  return linkat(AT_FDCWD, PathOf(file).c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

bool RenameToFreeName(const std::string& from, const std::string& to) {
  return renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0;
}

}  // namespace brvhost
