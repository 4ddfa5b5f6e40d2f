// Where the libraries of a Mac are on Linux.
#pragma once

#include <string>

namespace macho {

// The address of a symbol of the library with that install name: CoreFoundation and Carbon are platform/, libc++ is the
// system's own, libSystem the C library of the process, and what differs is a shim. Throws std::runtime_error, with
// library and symbol in its text, when it is not there.
void* FindImport(const std::string& library, const std::string& symbol);

}  // namespace macho
