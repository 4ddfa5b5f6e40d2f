#include "files.h"

#include <dirent.h>
#include <limits.h>
#include <stdlib.h>
#include <sys/auxv.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <memory>

namespace brvplatform {
namespace {

// The kind of file at the end of the path, 0 if there is none.
mode_t KindOf(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 ? status.st_mode & S_IFMT : 0;
}

}  // namespace

bool Exists(const std::string& path) { return KindOf(path) != 0; }

bool IsFile(const std::string& path) { return KindOf(path) == S_IFREG; }

bool IsFolder(const std::string& path) { return KindOf(path) == S_IFDIR; }

std::string Inside(const std::string& folder, std::string_view name) {
  std::string path = folder;
  if (!name.empty()) path.append("/").append(name);
  return path;
}

std::string_view LastName(std::string_view path) { return path.substr(path.rfind('/') + 1); }

std::string_view FolderOf(std::string_view path) { return path.substr(0, path.rfind('/')); }

std::optional<std::string> RealPath(const std::string& path) {
  char real[PATH_MAX];
  return realpath(path.c_str(), real) == nullptr ? std::nullopt : std::optional<std::string>(real);
}

std::optional<std::string> AbsolutePath(const std::string& path) {
  char current[PATH_MAX];
  if (path.starts_with('/')) return path;
  return getcwd(current, sizeof(current)) == nullptr ? std::nullopt : std::optional(Inside(current, path));
}

// From /proc; without that, the path by which the program was started.
std::optional<std::string> ProgramPath() {
  char path[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof(path));
  if (length > 0) return std::string(path, static_cast<std::size_t>(length));
  return RealPath(reinterpret_cast<const char*>(getauxval(AT_EXECFN)));
}

std::vector<std::string> NamesIn(const std::string& folder) {
  const std::unique_ptr<DIR, decltype([](DIR* open) { closedir(open); })> open(opendir(folder.c_str()));
  std::vector<std::string> names;
  if (!open) return names;
  while (const dirent* const entry = readdir(open.get())) names.emplace_back(entry->d_name);
  return names;
}

}  // namespace brvplatform
