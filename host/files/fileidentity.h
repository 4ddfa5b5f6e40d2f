// Which file it is, and with which content.
#pragma once

#include <sys/stat.h>

#include <cstdint>

namespace brvhost {

// Two that are equal are of one file that nobody has written to, renamed or linked in between.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::int64_t size = 0;
  std::int64_t modified = 0;  // nanoseconds, as is `changed`
  std::int64_t changed = 0;

  bool operator==(const FileIdentity&) const = default;
};

FileIdentity IdentityOf(const struct stat& status);

}  // namespace brvhost
