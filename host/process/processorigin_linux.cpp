#include "host/process/processorigin.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <fstream>
#include <sstream>
#include <utility>

namespace brvhost {
namespace {

std::string ContentOf(const std::string& path) {
  const std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();  // which takes a file that cannot be read for an empty one
  return std::move(content).str();
}

}  // namespace

// Copies of a machine may share the id that it was installed with, and differ in their names.
std::string MachineIdentity() {
  char name[256] = {};
  gethostname(name, sizeof(name) - 1);
  struct stat space = {};
  stat("/proc/self/ns/pid", &space);
  return ContentOf("/etc/machine-id") + name + '\n' + std::to_string(space.st_ino);
}

std::string BootIdentity() { return ContentOf("/proc/sys/kernel/random/boot_id"); }

std::optional<ProcessStatus> StatusOf(pid_t process) {
  constexpr int kFieldsBetween = 18;  // the state and the start
  const std::string line = ContentOf("/proc/" + std::to_string(process) + "/stat");
  const std::size_t nameEnd = line.rfind(')');  // the name may hold anything
  if (nameEnd == std::string::npos) return std::nullopt;
  std::istringstream fields(line.substr(nameEnd + 1));
  char state = 0;
  fields >> state;
  std::string passedOver;
  for (int i = 0; i < kFieldsBetween; ++i) fields >> passedOver;
  ProcessStatus status;
  if (!(fields >> status.start)) return std::nullopt;
  status.hasEnded = state == 'Z' || state == 'X';
  return status;
}

}  // namespace brvhost
