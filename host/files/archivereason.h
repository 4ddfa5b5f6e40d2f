// What is wrong with an archive, by the error code of the library that reads it.
#pragma once

#include <string>

namespace brvhost {

// A clause about the archive or its member, the same with every release of the library, whose own texts differ.
std::string ArchiveReason(int code);

}  // namespace brvhost
