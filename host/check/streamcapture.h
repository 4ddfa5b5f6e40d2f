// What this process writes to its standard output and standard error.
#pragma once

#include <string>

#include "host/process/descriptor.h"

namespace brvhost {

// A stream that leads into a pipe as long as this object lives.
class StreamCapture {
 public:
  // Of STDOUT_FILENO or STDERR_FILENO. Throws std::system_error.
  explicit StreamCapture(int stream);
  ~StreamCapture();
  StreamCapture(const StreamCapture&) = delete;
  StreamCapture& operator=(const StreamCapture&) = delete;

  // What has been written since the last call; of much, the first part.
  std::string Take() const;

 private:
  const int stream_;
  Descriptor before_;
  Descriptor from_;
};

}  // namespace brvhost
