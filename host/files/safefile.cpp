#include "host/files/safefile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <utility>

#include "host/files/fileattributes.h"
#include "host/files/outputerror.h"
#include "host/process/descriptor.h"

namespace brvhost {
namespace {

// What replaces a file is nobody else's until it has that file's permissions.
constexpr mode_t kPrivate = 0600;
constexpr mode_t kUsual = 0666;

}  // namespace

SafeFile::SafeFile(const Target& target)
    : target_(target), file_(target.Folder(), target.Existing() != nullptr ? kPrivate : kUsual), writer_(file_.Get()) {
  if (!file_) target_.FailInFolder();
  if (target_.Existing() != nullptr) KeepAttributes();
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
  if (!writer_.Write(bytes)) target_.Fail("write");
}

std::vector<std::string> SafeFile::Commit() {
  if (!writer_.Flush()) target_.Fail("write");
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
    target_.FailInFolder();
  }
  if (!file_.TakeTemporaryName()) target_.FailInFolder();
  target_.ExpectUnchanged();
  if (!file_.Replace(target_.Path())) target_.FailInFolder();
}

}  // namespace brvhost
