#include "host/files/inputfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstring>

#include "host/files/filekind.h"
#include "host/files/standardstreams.h"
#include "host/text/inputerror.h"

namespace brvhost {

namespace {

Descriptor Open(const std::string& path) {
  if (path == kStandardStream) return Descriptor(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0));
  return Descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
}

// What is wrong with a folder in the place of a score.
const char* WrongFolder(const std::string& path) {
  return KindOf(path) == FileKind::kBundle ? "is an extension, not a score"
                                           : "is a folder; --recursive takes the scores in it";
}

}  // namespace

InputFile::InputFile(const std::string& path) : path_(InputName(path)), file_(Open(path)) {
  struct stat status;
  if (!file_ || fstat(file_.Get(), &status) != 0) throw InputError(std::strerror(errno));
  if (S_ISDIR(status.st_mode)) throw InputError(WrongFolder(path));
  if (isatty(file_.Get()) != 0) throw InputError("is a terminal");
  if (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode)) throw InputError("is a device");
  identity_ = IdentityOf(status);
  isPipe_ = !S_ISREG(status.st_mode);
}

Bytes InputFile::Read(std::uint64_t maxSize) const {
  Bytes content(static_cast<std::size_t>(Size()) + 1);  // one more, to see the end
  std::size_t filled = 0;
  for (;;) {
    const ssize_t count = read(file_.Get(), content.Data() + filled, content.Size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw InputError(std::strerror(errno));
    filled += static_cast<std::size_t>(count);
    if (count == 0) break;
    if (isPipe_ && filled > maxSize) {
      throw InputError("is larger than " + std::to_string(maxSize) + " bytes; --max-size allows more");
    }
    if (filled == content.Size()) content.Grow(filled);
  }
  content.Truncate(filled);
  return content;
}

}  // namespace brvhost
