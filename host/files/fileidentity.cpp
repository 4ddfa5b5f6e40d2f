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

}  // namespace brvhost
