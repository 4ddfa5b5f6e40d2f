#include "host/process/processorigin.h"

#include <sys/sysctl.h>
#include <sys/time.h>
#include <unistd.h>

#include <cstddef>

namespace brvhost {
namespace {

std::uint64_t Microseconds(const timeval& time) {
  return static_cast<std::uint64_t>(time.tv_sec) * 1'000'000 + static_cast<std::uint64_t>(time.tv_usec);
}

}  // namespace

std::string MachineIdentity() {
  uuid_t id = {};
  const timespec wait = {};
  gethostuuid(id, &wait);
  return std::string(reinterpret_cast<const char*>(id), sizeof(id));
}

std::string BootIdentity() {
  char id[64] = {};
  std::size_t size = sizeof(id) - 1;
  sysctlbyname("kern.bootsessionuuid", id, &size, nullptr, 0);
  return id;
}

std::optional<ProcessStatus> StatusOf(pid_t process) {
  int name[] = {CTL_KERN, KERN_PROC, KERN_PROC_PID, process};
  kinfo_proc found = {};
  std::size_t size = sizeof(found);
  if (sysctl(name, 4, &found, &size, nullptr, 0) != 0 || size == 0) return std::nullopt;
  return ProcessStatus{Microseconds(found.kp_proc.p_starttime), found.kp_proc.p_stat == SZOMB};
}

}  // namespace brvhost
