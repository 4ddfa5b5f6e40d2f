#include "host/files/archivereason.h"

#include <zip.h>

namespace brvhost {

std::string ArchiveReason(int code) {
  switch (code) {
    case ZIP_ER_MULTIDISK:
      return "it is one of several parts of an archive";
    case ZIP_ER_CRC:
      return "its checksum does not match";
    case ZIP_ER_ZLIB:
    case ZIP_ER_COMPRESSED_DATA:
      return "its compressed data is damaged";
    case ZIP_ER_COMPNOTSUPP:
      return "it is compressed by a method that is not known";
    case ZIP_ER_EOF:
      return "it ends too early";
    case ZIP_ER_NOZIP:
#ifdef ZIP_ER_TRUNCATED_ZIP  // a case of the former until libzip 1.11
    case ZIP_ER_TRUNCATED_ZIP:
#endif
      return "it has no directory at its end; the file may be cut off";
    case ZIP_ER_INCONS:
      return "its directory and its members contradict each other";
    case ZIP_ER_ENCRNOTSUPP:
    case ZIP_ER_NOPASSWD:
    case ZIP_ER_WRONGPASSWD:
      return "it is encrypted";
#ifdef ZIP_ER_DATA_LENGTH  // since libzip 1.9
    case ZIP_ER_DATA_LENGTH:
      return "it has another length than the archive states";
#endif
    default:
      return "error " + std::to_string(code) + " of the library for archives";
  }
}

}  // namespace brvhost
