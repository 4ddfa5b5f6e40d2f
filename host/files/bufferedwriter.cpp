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
    if (buffer_.size() == kBufferSize) {
      if (!Flush()) return false;
      StartWriting();
    }
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
  buffer_.clear();
  return true;
}

void BufferedWriter::StartWriting() const {
#ifdef SYNC_FILE_RANGE_WRITE
  sync_file_range(descriptor_, 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
}

}  // namespace brvhost
