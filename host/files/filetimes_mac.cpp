#include "host/files/filetimes.h"

namespace brvhost {

const timespec& ModifiedAt(const struct stat& status) { return status.st_mtimespec; }

const timespec& ChangedAt(const struct stat& status) { return status.st_ctimespec; }

}  // namespace brvhost
