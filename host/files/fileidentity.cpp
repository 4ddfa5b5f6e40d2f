#include "host/files/fileidentity.h"

#include "host/files/filetimes.h"

namespace brvhost {
namespace {

std::int64_t Nanoseconds(const timespec& time) { return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec; }

}  // namespace

FileIdentity IdentityOf(const struct stat& status) {
  return {static_cast<std::uint64_t>(status.st_dev), status.st_ino, status.st_size, Nanoseconds(ModifiedAt(status)),
          Nanoseconds(ChangedAt(status))};
}

Inode InodeOf(const struct stat& status) { return {static_cast<std::uint64_t>(status.st_dev), status.st_ino}; }

std::optional<Inode> InodeOf(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 ? std::optional(InodeOf(status)) : std::nullopt;
}

std::optional<Inode> InodeOfFile(int descriptor) {
  struct stat status;
  const bool isFile = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
  return isFile ? std::optional(InodeOf(status)) : std::nullopt;
}

}  // namespace brvhost
