// Two connected sockets for two processes.
#pragma once

#include <fcntl.h>
#include <sys/socket.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "host/process/descriptor.h"

namespace brvhost {

// Programs that either process starts have no part in them. Throws std::system_error.
[[nodiscard]] inline std::pair<Descriptor, Descriptor> SocketPair() {
  int ends[2] = {-1, -1};
  if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0) {
    throw std::system_error(errno, std::generic_category(), "socketpair");
  }
  for (const int end : ends) fcntl(end, F_SETFD, FD_CLOEXEC);
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

}  // namespace brvhost
