#include "host/batch/ending.h"

#include <fmt/format.h>
#include <sys/wait.h>

#include "host/process/child.h"

namespace brvhost {

std::string EndingOfExtension(int status, const std::string& where) {
  if (WIFSIGNALED(status)) return fmt::format("crashed{}: {}", where, EndingOf(status));
  // Outside of the extension a process ends by itself only when it can no longer report.
  if (where.empty()) return "closed the connection to brvhost";
  return fmt::format("ended the process{}, with {}", where, EndingOf(status));
}

}  // namespace brvhost
