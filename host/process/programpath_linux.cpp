#include "host/process/programpath.h"

#include <unistd.h>

#include <climits>
#include <cstddef>

namespace brvhost {

std::string ProgramPath() {
  char path[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof(path));
  return length > 0 ? std::string(path, static_cast<std::size_t>(length)) : "";
}

}  // namespace brvhost
