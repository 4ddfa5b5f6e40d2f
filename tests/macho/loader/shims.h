// What an image for macOS imports and Linux has under another name, or not at all.
#pragma once

namespace macho {

// By the symbol's name without its first underscore; null for what has no shim.
void* SystemShim(const char* name);
void* CxxShim(const char* name);
void* ObjectiveCShim(const char* name);

}  // namespace macho
