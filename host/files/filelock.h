// A lock on an open file that keeps other runs off. The system releases it with the last descriptor, however the
// process ends.
#pragma once

namespace brvhost {

// False when another run has the file locked. A file system without locks keeps nobody off.
[[nodiscard]] bool TryToLock(int file);

}  // namespace brvhost
