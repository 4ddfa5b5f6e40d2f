// A file that is read: opened first, and then read whole.
#pragma once

#include <cstdint>
#include <string>

#include "host/files/bytes.h"
#include "host/files/fileidentity.h"
#include "host/process/descriptor.h"

namespace brvhost {

class InputFile {
 public:
  // "-" is the standard input. Throws InputError with the system's reason, and for what has no content of its own: a
  // folder, a device, a terminal.
  explicit InputFile(const std::string& path);

  // As messages name it.
  const std::string& Path() const { return path_; }
  // As the file was when it was opened.
  const FileIdentity& Identity() const { return identity_; }
  // In bytes; 0 for a pipe, whose size nobody knows.
  std::uint64_t Size() const { return static_cast<std::uint64_t>(identity_.size); }

  // Everything from here to the end. Throws InputError with the system's reason, and when a pipe brings more than
  // `maxSize` bytes.
  Bytes Read(std::uint64_t maxSize) const;

 private:
  std::string path_;
  Descriptor file_;
  FileIdentity identity_;
  bool isPipe_ = false;
};

}  // namespace brvhost
