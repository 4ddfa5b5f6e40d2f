#include "host/batch/foreignoutput.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <initializer_list>
#include <system_error>

namespace brvhost {

std::pair<ForeignOutput, Descriptor> ForeignOutput::Pipe() {
  int ends[2];
  if (pipe(ends) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
  for (const int end : ends) fcntl(end, F_SETFD, FD_CLOEXEC);
  fcntl(ends[0], F_SETFL, O_NONBLOCK);
  return {ForeignOutput(Descriptor(ends[0])), Descriptor(ends[1])};
}

bool ForeignOutput::Fill() {
  char buffer[kMaxLine];
  const ssize_t count = read(pipe_.Get(), buffer, sizeof(buffer));
  if (count > 0) rest_.append(buffer, static_cast<std::size_t>(count));
  if (count == 0) pipe_ = {};
  return count > 0;
}

}  // namespace brvhost
