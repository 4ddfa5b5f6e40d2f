// What tells a process from every other, for whoever finds what it left: its machine, that machine's start, its own
// start.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>

namespace brvhost {

// The same for all processes that see each other by their ids, and for no others: containers are machines of their own.
std::string MachineIdentity();

// Another after each start of the machine.
std::string BootIdentity();

struct ProcessStatus {
  std::uint64_t start = 0;  // when it started, in the system's units
  bool hasEnded = false;    // and its parent has not waited for it yet
};

// Null when there is no such process, or it is not to be seen.
std::optional<ProcessStatus> StatusOf(pid_t process);

}  // namespace brvhost
