#include "host/files/unnamedfile.h"

#include <cerrno>
#include <cstdio>

namespace brvhost {

// The system has none.
Descriptor OpenUnnamedFile(const std::string&, mode_t) { return Descriptor(); }

bool NameFile(int, const std::string&) {
  errno = ENOTSUP;
  return false;
}

bool RenameToFreeName(const std::string& from, const std::string& to) {
  return renamex_np(from.c_str(), to.c_str(), RENAME_EXCL) == 0;
}

}  // namespace brvhost
