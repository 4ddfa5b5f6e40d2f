#include "host/check/streamcapture.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <system_error>

namespace brvhost {

StreamCapture::StreamCapture(int stream) : stream_(stream), before_(fcntl(stream, F_DUPFD_CLOEXEC, 0)) {
  int ends[2];
  if (pipe(ends) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
  from_ = Descriptor(ends[0]);
  const Descriptor to(ends[1]);
  // Neither whoever writes much nor whoever reads waits.
  for (const int end : ends) fcntl(end, F_SETFL, O_NONBLOCK);
  std::fflush(nullptr);
  if (!before_ || dup2(to.Get(), stream) < 0) throw std::system_error(errno, std::generic_category(), "dup");
}

StreamCapture::~StreamCapture() {
  std::fflush(nullptr);
  dup2(before_.Get(), stream_);
}

std::string StreamCapture::Take() const {
  std::fflush(nullptr);
  std::string text;
  char buffer[1024];
  for (ssize_t count; (count = read(from_.Get(), buffer, sizeof(buffer))) > 0;) {
    text.append(buffer, static_cast<std::size_t>(count));
  }
  return text;
}

}  // namespace brvhost
