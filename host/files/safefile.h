// Writes a file so that at every moment its name leads to the old content or to all of the new.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/files/bufferedwriter.h"
#include "host/files/target.h"
#include "host/files/unfinishedfile.h"

namespace brvhost {

// A new file beside its target, which takes the target's name when it is complete.
//
//   const Target target("score.musicxml");
//   SafeFile file(target);
//   file.Write(content);
//   const auto warnings = file.Commit();
//
// A file that is not committed leaves nothing behind, and no target is lost that somebody else made or changed
// meanwhile. All functions throw OutputError. A file that was there passes on its permissions, its owner where that is
// allowed, its extended attributes and its access control list.
class SafeFile {
 public:
  // The target outlives this object.
  explicit SafeFile(const Target& target);

  void Write(std::string_view bytes);
  // Returns what of the old file could not be kept, as sentences for people that begin with the target's name.
  [[nodiscard]] std::vector<std::string> Commit();

 private:
  void KeepAttributes();
  void Warn(const std::string& text);
  void TakeName();

  const Target& target_;
  UnfinishedFile file_;
  BufferedWriter writer_;
  std::vector<std::string> warnings_;
};

}  // namespace brvhost
