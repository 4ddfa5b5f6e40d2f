#include "host/files/bufferedwriter.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

namespace brvhost {
namespace {

constexpr std::size_t kBufferSize = 1 << 20;

}  // namespace

BufferedWriter::BufferedWriter(int descriptor) : descriptor_(descriptor) { buffer_.reserve(kBufferSize); }

bool BufferedWriter::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    if (buffer_.size() == kBufferSize && !Flush()) return false;
    const std::size_t count = std::min(bytes.size(), kBufferSize - buffer_.size());
    buffer_.insert(buffer_.end(), bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count));
    bytes.remove_prefix(count);
  }
  return true;
}

bool BufferedWriter::Flush() {
  std::size_t written = 0;
  while (written < buffer_.size()) {
    const ssize_t count = write(descriptor_, buffer_.data() + written, buffer_.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    written += static_cast<std::size_t>(count);
  }
#ifdef SYNC_FILE_RANGE_WRITE
  // The disk starts while the rest is made, which leaves less to wait for at the end.
  sync_file_range(descriptor_, 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
  buffer_.clear();
  return true;
}

}  // namespace brvhost
