#include "host/files/filetimes.h"

namespace brvhost {

const timespec& ModifiedAt(const struct stat& status) { return status.st_mtim; }

const timespec& ChangedAt(const struct stat& status) { return status.st_ctim; }

}  // namespace brvhost
