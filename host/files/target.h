// Where a result goes.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

#include "host/files/fileidentity.h"
#include "host/process/descriptor.h"

namespace brvhost {

// What the messages about a target that is no file add: how to write there all the same.
struct TargetAdvice {
  const char* forFolder = "";
  const char* forOther = "";
};

// The place of a result, as it was before the work on it began: a file that is there, locked against other runs for as
// long as this object lives, or a free name. Where the name is a symbolic link, it is the place that it leads to.
class Target {
 public:
  // Throws OutputError: for what is not a regular file or cannot be written, and when another run has it locked.
  explicit Target(const std::string& name, const TargetAdvice& advice = {});

  // As the user named it.
  const std::string& Name() const { return name_; }
  const std::string& Path() const { return path_; }
  std::string Folder() const;

  // The file that is there, or null.
  const struct stat* Existing() const { return file_ ? &status_ : nullptr; }
  int ExistingFile() const { return file_.Get(); }

  // These throw OutputError.

  // For the result of a score that is written in its own place: nobody changed the score after it was opened.
  void ExpectSameAs(const FileIdentity& score) const;
  // Nobody has changed the place since.
  void ExpectUnchanged() const;

  // "name: cannot step: the system's reason", from errno; with the folder where that is the reason.
  [[noreturn]] void Fail(const char* step) const;
  // The same of the folder, which does not take the file.
  [[noreturn]] void FailInFolder() const;
  [[noreturn]] void FailChanged() const;

 private:
  std::optional<FileIdentity> Seen() const;

  std::string name_;
  std::string path_;
  Descriptor file_;
  struct stat status_ = {};
};

}  // namespace brvhost
