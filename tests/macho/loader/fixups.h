// The compressed lists of a Mach-O file: places to rebase and to bind, and the trie of exported symbols.
#pragma once

#include "machofile.h"

namespace macho {

// Each reads the bytes of one list into the addresses of the file, whose segments and libraries are known by then.
std::vector<std::uint64_t> ReadRebases(std::string_view bytes, const MachOFile& file);
// In the list of lazy binds "done" ends one of them; in the other it ends the list.
std::vector<Bind> ReadBinds(std::string_view bytes, const MachOFile& file, bool lazy);
std::vector<Export> ReadExports(std::string_view bytes);

}  // namespace macho
