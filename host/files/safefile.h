// Writes a file so that at every moment its name leads to the old content or to all of the new.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/process/descriptor.h"

namespace brvhost {

// A new file beside its target, which takes the target's name when it is complete.
//
//   SafeFile file("score.musicxml");
//   file.Write(content);
//   file.Commit();
//
// A file that is not committed leaves nothing behind. All functions throw OutputError. Where the target is a symbolic
// link, the file that it leads to is replaced; a file that was there passes on its permissions and its owner, where
// that is allowed.
class SafeFile {
 public:
  explicit SafeFile(const std::string& target);
  ~SafeFile();
  SafeFile(const SafeFile&) = delete;
  SafeFile& operator=(const SafeFile&) = delete;

  void Write(std::string_view bytes);
  void Commit();

 private:
  void Flush();
  [[noreturn]] void Fail(const char* step) const;

  std::string target_;  // as the user named it
  std::string path_;    // where it is
  std::string unfinished_;
  Descriptor file_;
  std::vector<char> buffer_;
};

// Removes the file that is being written, if any. Safe to call from a signal handler; one thread writes at a time.
void RemoveUnfinishedFile();

}  // namespace brvhost
