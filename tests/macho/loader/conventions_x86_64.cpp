#include "conventions.h"

namespace macho {

// Both systems follow the same document on this processor.
void* ForImage(const char*, void* function) { return function; }

}  // namespace macho
