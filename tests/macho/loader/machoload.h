// Makes a Mach-O image run in this process.
#pragma once

#include "machofile.h"

namespace macho {

// Puts the image into `memory`, which has Size() writable bytes from the start of a page on and stays for the life of
// the process: copies the segments, adjusts the pointers into the image, binds its imports (the lazy ones too), gives
// each segment its protection, and runs the initialisers. Throws std::runtime_error when an import is nowhere to be
// found.
//
// `bytes` is the file that `file` was read from. Exceptions do not pass through frames of the image: this process's
// unwinder does not know them.
void LoadMachO(const MachOFile& file, std::string_view bytes, char* memory);

}  // namespace macho
