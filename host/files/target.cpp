#include "host/files/target.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "host/files/filelock.h"
#include "host/files/outputerror.h"
#include "host/process/passingerror.h"

namespace brvhost {
namespace {

// The name of the file that symbolic links lead to, whether or not it exists yet.
std::string Resolved(const std::string& path) {
  constexpr int kMaxLinks = 40;  // the system's own limit
  std::filesystem::path file(path);
  std::error_code error;
  for (int i = 0; i < kMaxLinks && std::filesystem::is_symlink(file, error); ++i) {
    file = file.parent_path() / std::filesystem::read_symlink(file, error);
  }
  return file.string();
}

// Whether it is the folder that has no space, or cannot be written to, with whatever file.
bool IsOfFolder(int error) { return error == ENOSPC || error == EDQUOT || error == EROFS || error == ENOTDIR; }

// Open for reading, as closing a file that was open for writing tells those who watch it that it was written.
Descriptor OpenExisting(const std::string& path) {
  constexpr int kFlags = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
  Descriptor file(open(path.c_str(), O_RDONLY | kFlags));
  if (!file && errno == EACCES) file = Descriptor(open(path.c_str(), O_WRONLY | kFlags));
  return file;
}

}  // namespace

Target::Target(const std::string& name, const TargetAdvice& advice) : name_(name), path_(Resolved(name)) {
  if (stat(name_.c_str(), &status_) != 0) {
    if (errno == EACCES) FailInFolder();
    if (errno != ENOENT) Fail("write");
    return;
  }
  if (S_ISDIR(status_.st_mode)) throw OutputError(name_ + ": is a folder, not a file" + advice.forFolder);
  if (!S_ISREG(status_.st_mode)) throw OutputError(name_ + ": is not a regular file" + advice.forOther);
  if (access(path_.c_str(), W_OK) != 0) Fail("write");
  file_ = OpenExisting(path_);
  if (!file_) Fail("write");
  if (!TryToLock(file_.Get())) throw OutputError(name_ + ": another brvhost is working on it", true);
  if (fstat(file_.Get(), &status_) != 0) Fail("write");
}

std::string Target::Folder() const {
  const std::string folder = std::filesystem::path(path_).parent_path().string();
  return folder.empty() ? "." : folder;
}

void Target::ExpectSameAs(const FileIdentity& score) const {
  if (Seen() != score) FailChanged();
}

void Target::ExpectUnchanged() const {
  struct stat status;
  const bool exists = lstat(path_.c_str(), &status) == 0;
  if (!exists && errno != ENOENT) Fail("replace");
  if ((exists ? std::optional(IdentityOf(status)) : std::nullopt) != Seen()) FailChanged();
}

void Target::Fail(const char* step) const {
  const int error = errno;
  if (IsOfFolder(error)) FailInFolder();
  throw OutputError(name_ + ": cannot " + step + ": " + std::strerror(error), IsPassing(error));
}

void Target::FailInFolder() const {
  const int error = errno;
  throw OutputError(name_ + ": cannot write to the folder " + Folder() + ": " + std::strerror(error), IsPassing(error));
}

void Target::FailChanged() const { throw OutputError(name_ + ": was changed while brvhost worked on it", true); }

std::optional<FileIdentity> Target::Seen() const { return file_ ? std::optional(IdentityOf(status_)) : std::nullopt; }

}  // namespace brvhost
