#include "image.h"

#include <dlfcn.h>
#include <link.h>

namespace brvplatform {
namespace {

// Whether the address is in the image of that handle.
bool Owns(void* handle, void* address) {
  link_map* map = nullptr;
  Dl_info info;
  void* owner = nullptr;
  if (dlinfo(handle, RTLD_DI_LINKMAP, &map) != 0) return false;
  return dladdr1(address, &info, &owner, RTLD_DL_LINKMAP) != 0 && owner == map;
}

}  // namespace

Image Image::MainProgram() { return Image(dlopen(nullptr, RTLD_NOW)); }

// For dlopen, a null path is the main program.
Image Image::Load(const std::string& path) {
  return path.empty() ? Image() : Image(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL));
}

void* Image::Function(const char* name) const {
  void* function = dlsym(handle_, name);
  return function != nullptr && Owns(handle_, function) ? function : nullptr;
}

}  // namespace brvplatform
