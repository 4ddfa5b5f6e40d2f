#include "host/process/programpath.h"

#include <mach-o/dyld.h>

#include <climits>
#include <cstdint>
#include <cstdlib>

namespace brvhost {

std::string ProgramPath() {
  char path[PATH_MAX];
  char resolved[PATH_MAX];
  std::uint32_t size = sizeof(path);
  return _NSGetExecutablePath(path, &size) == 0 && realpath(path, resolved) != nullptr ? resolved : "";
}

}  // namespace brvhost
