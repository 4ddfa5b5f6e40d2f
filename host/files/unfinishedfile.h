// A new file until it has its name.
#pragma once

#include <sys/types.h>

#include <string>

#include "host/process/descriptor.h"

namespace brvhost {

// It has no name while it is written, where the file system allows that, and a temporary one otherwise. One that gets
// no name of its own leaves nothing behind when it is destroyed; where the process is killed, RemoveAbandonedFiles
// finds what is left. It stays locked until it is destroyed.
class UnfinishedFile {
 public:
  // In the folder. Without a descriptor, and with errno, when it cannot be made.
  UnfinishedFile(const std::string& folder, mode_t mode);
  ~UnfinishedFile();
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  explicit operator bool() const { return static_cast<bool>(file_); }
  int Get() const { return file_.Get(); }

  // These return false, with errno.

  // Replace needs it, unless the file has one from the start.
  [[nodiscard]] bool TakeTemporaryName();
  // Takes the name of the file that is there.
  [[nodiscard]] bool Replace(const std::string& path);
  // Takes a name that is free: EEXIST when it is not.
  [[nodiscard]] bool TakeFreeName(const std::string& path);

 private:
  std::string folder_;
  std::string temporaryName_;  // with its folder; empty while it has none
  Descriptor file_;
};

}  // namespace brvhost
