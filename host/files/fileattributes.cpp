#include "host/files/fileattributes.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace brvhost {
namespace {

constexpr gid_t kSameGroup = static_cast<gid_t>(-1);
constexpr uid_t kSameOwner = static_cast<uid_t>(-1);

struct stat StatusOf(int file) {
  struct stat status = {};
  fstat(file, &status);
  return status;
}

// The group first, which a new owner's file would not take.
std::vector<std::string> CopyOwner(const struct stat& status, int to) {
  std::vector<std::string> warnings;
  const struct stat made = StatusOf(to);
  if (made.st_gid != status.st_gid && fchown(to, kSameOwner, status.st_gid) != 0) {
    warnings.emplace_back("its group could not be kept: only root may give it to one that you do not belong to");
  }
  if (made.st_uid != status.st_uid && fchown(to, status.st_uid, kSameGroup) != 0) {
    warnings.emplace_back("its owner could not be kept: only root may give files away");
  }
  return warnings;
}

}  // namespace

std::vector<std::string> CopyAttributes(int from, const struct stat& status, int to) {
  CopyExtendedAttributes(from, to);
  auto warnings = CopyOwner(status, to);  // before the mode, of which it clears a part
  const mode_t mode = status.st_mode & 07777;
  if ((StatusOf(to).st_mode & 07777) != mode && fchmod(to, mode) != 0) {
    throw std::runtime_error(std::string("cannot keep its permissions: ") + std::strerror(errno));
  }
  return warnings;
}

}  // namespace brvhost
