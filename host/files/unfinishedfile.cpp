#include "host/files/unfinishedfile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#include "host/files/filelock.h"
#include "host/files/temporaryname.h"
#include "host/files/unnamedfile.h"

namespace brvhost {

UnfinishedFile::UnfinishedFile(const std::string& folder, mode_t mode)
    : folder_(folder), file_(OpenUnnamedFile(folder, mode)) {
  if (!file_) {
    std::string name = folder_ + "/" + TemporaryName();
    file_ = Descriptor(open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (file_) temporaryName_ = std::move(name);
  }
  // Nobody else has it yet; what cannot be locked is told apart by its name.
  if (file_) static_cast<void>(TryToLock(file_.Get()));
}

UnfinishedFile::~UnfinishedFile() {
  if (!temporaryName_.empty()) unlink(temporaryName_.c_str());
}

bool UnfinishedFile::TakeTemporaryName() {
  if (!temporaryName_.empty()) return true;
  std::string name = folder_ + "/" + TemporaryName();
  if (!NameFile(file_.Get(), name)) return false;
  temporaryName_ = std::move(name);  // without memory, for lack of which the file would stay
  return true;
}

bool UnfinishedFile::Replace(const std::string& path) {
  if (rename(temporaryName_.c_str(), path.c_str()) != 0) return false;
  temporaryName_.clear();
  return true;
}

bool UnfinishedFile::TakeFreeName(const std::string& path) {
  if (temporaryName_.empty()) return NameFile(file_.Get(), path);
  if (RenameToFreeName(temporaryName_, path)) {
    temporaryName_.clear();
    return true;
  }
  if (errno == EEXIST) return false;
  // The file system cannot rename so; a second name, or renaming as usual, is what is left.
  if (link(temporaryName_.c_str(), path.c_str()) == 0) return true;
  return errno != EEXIST && Replace(path);
}

}  // namespace brvhost
