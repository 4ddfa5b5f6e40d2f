#include "host/files/safefile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "host/files/outputerror.h"

namespace brvhost {
namespace {

constexpr std::size_t kBufferSize = 1 << 20;

// The name of the unfinished file, for signal handlers; empty when there is none.
char unfinishedFile[4096];

mode_t CreationMask() {
  const mode_t mask = umask(0);
  umask(mask);
  return mask;
}

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

std::string FolderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

}  // namespace

SafeFile::SafeFile(const std::string& target) : target_(target), path_(Resolved(target)) {
  struct stat status;
  const bool replaces = stat(path_.c_str(), &status) == 0;
  if (!replaces && errno != ENOENT) Fail("write");
  if (replaces && !S_ISREG(status.st_mode)) throw OutputError(target_ + ": is not a regular file");
  if (replaces && access(path_.c_str(), W_OK) != 0) Fail("write");
  std::string pattern = FolderOf(path_) + "/.brvhost-XXXXXX";
  file_ = Descriptor(mkostemp(pattern.data(), O_CLOEXEC));
  if (!file_) Fail("write");
  unfinished_ = pattern;
  std::strncpy(unfinishedFile, pattern.c_str(), sizeof(unfinishedFile) - 1);
  fchmod(file_.Get(), replaces ? status.st_mode & 07777 : 0666 & ~CreationMask());
  if (replaces && fchown(file_.Get(), status.st_uid, status.st_gid) != 0) errno = 0;  // only root may give files away
  buffer_.reserve(kBufferSize);
}

SafeFile::~SafeFile() {
  if (!unfinished_.empty()) RemoveUnfinishedFile();
}

void SafeFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    if (buffer_.size() == kBufferSize) Flush();
    const std::size_t count = std::min(bytes.size(), kBufferSize - buffer_.size());
    buffer_.insert(buffer_.end(), bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count));
    bytes.remove_prefix(count);
  }
}

void SafeFile::Flush() {
  std::size_t written = 0;
  while (written < buffer_.size()) {
    const ssize_t count = write(file_.Get(), buffer_.data() + written, buffer_.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) Fail("write");
    written += static_cast<std::size_t>(count);
  }
#ifdef SYNC_FILE_RANGE_WRITE
  // The disk starts while the rest is made, which leaves less to wait for at the end.
  sync_file_range(file_.Get(), 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
  buffer_.clear();
}

void SafeFile::Commit() {
  Flush();
  if (fsync(file_.Get()) != 0 || file_.Close() != 0) Fail("write");
  if (rename(unfinished_.c_str(), path_.c_str()) != 0) Fail("replace");
  unfinished_.clear();
  unfinishedFile[0] = '\0';
  // The new name is on the disk when its folder is.
  const Descriptor folder(open(FolderOf(path_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder) fsync(folder.Get());
}

void SafeFile::Fail(const char* step) const {
  throw OutputError(target_ + ": cannot " + step + ": " + std::strerror(errno));
}

void RemoveUnfinishedFile() {
  if (unfinishedFile[0] == '\0') return;
  unlink(unfinishedFile);
  unfinishedFile[0] = '\0';
}

}  // namespace brvhost
