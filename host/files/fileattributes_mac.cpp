#include "host/files/fileattributes.h"

#include <copyfile.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>

namespace brvhost {

void CopyExtendedAttributes(int from, int to) {
  if (fcopyfile(from, to, nullptr, COPYFILE_XATTR | COPYFILE_ACL) == 0) return;
  throw std::runtime_error(std::string("cannot keep its extended attributes and access control list: ") +
                           std::strerror(errno));
}

}  // namespace brvhost
