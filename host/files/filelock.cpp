#include "host/files/filelock.h"

#include <sys/file.h>

#include <cerrno>

namespace brvhost {

bool TryToLock(int file) { return flock(file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK; }

}  // namespace brvhost
