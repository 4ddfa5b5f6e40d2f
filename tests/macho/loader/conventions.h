// Where the two systems call functions in different ways.
#pragma once

namespace macho {

// The address at which the image calls a function of Linux that it knows by that name: the function itself, or an
// adapter that takes the arguments as they are passed on macOS.
void* ForImage(const char* name, void* function);

}  // namespace macho
