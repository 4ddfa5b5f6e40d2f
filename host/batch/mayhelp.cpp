#include "host/batch/mayhelp.h"

#include <sys/wait.h>

#include <csignal>
#include <new>
#include <system_error>

#include "host/files/outputerror.h"
#include "host/process/memorylimit.h"
#include "host/process/passingerror.h"

namespace brvhost {

bool MayPass(const std::exception& error) {
  if (const auto* const output = dynamic_cast<const OutputError*>(&error)) return output->mayPass;
  if (const auto* const memory = dynamic_cast<const MemoryError*>(&error)) return memory->mayPass;
  if (const auto* const system = dynamic_cast<const std::system_error*>(&error))
    return IsPassing(system->code().value());
  return dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
}

bool MayPass(int status) { return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL; }

}  // namespace brvhost
