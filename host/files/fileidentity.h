// Which file it is, and with which content.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

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

// A file or a folder, by the numbers of its device and of itself.
using Inode = std::pair<std::uint64_t, std::uint64_t>;

Inode InodeOf(const struct stat& status);
// Null where nothing has that name.
std::optional<Inode> InodeOf(const std::string& path);
// Null for what is no regular file.
std::optional<Inode> InodeOfFile(int descriptor);

}  // namespace brvhost
