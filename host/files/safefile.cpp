#include "host/files/safefile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "host/files/fileattributes.h"
#include "host/files/outputerror.h"
#include "host/process/descriptor.h"

namespace brvhost {
namespace {

constexpr std::size_t kBufferSize = 1 << 20;

// What replaces a file is nobody else's until it has that file's permissions.
constexpr mode_t kPrivate = 0600;
constexpr mode_t kUsual = 0666;

}  // namespace

SafeFile::SafeFile(const Target& target)
    : target_(target), file_(target.Folder(), target.Existing() != nullptr ? kPrivate : kUsual) {
  if (!file_) target_.Fail("write");
  if (target_.Existing() != nullptr) KeepAttributes();
  buffer_.reserve(kBufferSize);
}

void SafeFile::KeepAttributes() {
  try {
    const struct stat& status = *target_.Existing();
    for (const std::string& text : CopyAttributes(target_.ExistingFile(), status, file_.Get())) Warn(text);
    if (status.st_nlink > 1) {
      Warn("has " + std::to_string(status.st_nlink) + " names; the others keep the old content");
    }
  } catch (const std::runtime_error& error) {
    throw OutputError(target_.Name() + ": " + error.what());
  }
}

void SafeFile::Warn(const std::string& text) { warnings_.push_back(target_.Name() + ": warning: " + text); }

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
    if (count < 0) target_.Fail("write");
    written += static_cast<std::size_t>(count);
  }
#ifdef SYNC_FILE_RANGE_WRITE
  // The disk starts while the rest is made, which leaves less to wait for at the end.
  sync_file_range(file_.Get(), 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
  buffer_.clear();
}

std::vector<std::string> SafeFile::Commit() {
  Flush();
  if (fsync(file_.Get()) != 0) target_.Fail("write");
  // Opened before the name is taken, after which nothing should fail any more.
  const Descriptor folder(open(target_.Folder().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  TakeName();
  if (folder) fsync(folder.Get());  // the new name is on the disk when its folder is
  return std::move(warnings_);
}

// Whoever changes the target from here on comes too late to be noticed, which is why nothing else is done in between.
void SafeFile::TakeName() {
  if (target_.Existing() == nullptr) {
    target_.ExpectUnchanged();
    if (file_.TakeFreeName(target_.Path())) return;
    if (errno == EEXIST) target_.FailChanged();
    target_.Fail("write");
  }
  if (!file_.TakeTemporaryName()) target_.Fail("write");
  target_.ExpectUnchanged();
  if (!file_.Replace(target_.Path())) target_.Fail("replace");
}

}  // namespace brvhost
