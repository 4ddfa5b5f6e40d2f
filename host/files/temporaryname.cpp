#include "host/files/temporaryname.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string_view>

#include "host/files/filelock.h"
#include "host/files/foldernames.h"
#include "host/process/descriptor.h"
#include "host/process/processorigin.h"

namespace brvhost {
namespace {

struct Owner {
  std::string machine;
  std::string boot;
  pid_t process = 0;
  std::uint64_t start = 0;
};

// By FNV-1a, which gives the same everywhere.
std::string Digest(std::string_view text) {
  std::uint64_t digest = 0xcbf29ce484222325;
  for (const unsigned char byte : text) digest = (digest ^ byte) * 0x100000001b3;
  return fmt::format("{:016x}", digest);
}

Owner ThisProcess() {
  // They stay the same, and a run may write thousands of files.
  static const std::string machine = Digest(MachineIdentity());
  static const std::string boot = Digest(BootIdentity());
  const pid_t process = getpid();
  const auto status = StatusOf(process);
  return {machine, boot, process, status ? status->start : 0};
}

std::optional<Owner> OwnerOf(const std::string& name) {
  char machine[17];
  char boot[17];
  Owner owner;
  unsigned long long start = 0;
  if (std::sscanf(name.c_str(), ".brvhost-%16[0-9a-f]-%16[0-9a-f]-%d-%llu-", machine, boot, &owner.process, &start) !=
      4) {
    return std::nullopt;
  }
  owner.machine = machine;
  owner.boot = boot;
  owner.start = start;
  return owner;
}

// A process of another user may be hidden: then its id is there and its start is not known.
bool IsGone(pid_t process, std::uint64_t start) {
  if (process <= 0) return false;
  if (kill(process, 0) != 0 && errno == ESRCH) return true;
  const auto status = StatusOf(process);
  return status && (status->hasEnded || (start != 0 && status->start != start));
}

bool IsDead(const Owner& owner, const Owner& self) {
  if (owner.machine != self.machine) return false;
  return owner.boot != self.boot || IsGone(owner.process, owner.start);
}

// Machines may take each other for the same, but an owner that lives has its file locked.
void RemoveUnlessLocked(const std::string& path) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
  if (file && TryToLock(file.Get())) unlink(path.c_str());
}

}  // namespace

std::string TemporaryName() {
  static std::atomic<unsigned> count = 0;
  const Owner self = ThisProcess();
  return fmt::format(".brvhost-{}-{}-{}-{}-{}", self.machine, self.boot, self.process, self.start, ++count);
}

void RemoveAbandonedFiles(const std::string& folder) {
  const Owner self = ThisProcess();
  const auto names = NamesIn(folder);
  if (!names) return;
  for (const std::string& name : *names) {
    const auto owner = OwnerOf(name);
    if (owner && IsDead(*owner, self)) RemoveUnlessLocked(fmt::format("{}/{}", folder, name));
  }
}

}  // namespace brvhost
