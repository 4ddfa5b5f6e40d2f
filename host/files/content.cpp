#include "host/files/content.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstring>

#include "host/process/descriptor.h"
#include "host/text/inputerror.h"

namespace brvhost {

Bytes ReadFile(const std::string& path) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat status;
  if (!file || fstat(file.Get(), &status) != 0) throw InputError(std::strerror(errno));
  if (S_ISDIR(status.st_mode)) throw InputError("is a folder");
  Bytes content(static_cast<std::size_t>(status.st_size) + 1);  // one more, to see the end; a pipe has a size of 0
  std::size_t filled = 0;
  for (;;) {
    const ssize_t count = read(file.Get(), content.Data() + filled, content.Size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw InputError(std::strerror(errno));
    filled += static_cast<std::size_t>(count);
    if (count == 0) break;
    if (filled == content.Size()) content.Grow(filled);
  }
  content.Truncate(filled);
  return content;
}

}  // namespace brvhost
