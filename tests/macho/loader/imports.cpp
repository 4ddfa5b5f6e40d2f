#include "imports.h"

#include <dlfcn.h>

#include <map>
#include <stdexcept>

#include "shims.h"

namespace macho {
namespace {

// DEEPBIND: the C++ library of the image and that of the process have functions of the same names.
void* Open(const char* library, int flags) {
  void* const handle = dlopen(library, RTLD_NOW | RTLD_LOCAL | flags);
  if (handle == nullptr) throw std::runtime_error(std::string("cannot load ") + library + ": " + dlerror());
  return handle;
}

void* PlatformSymbol(const char* name) {
  static void* const handle = Open("libbrvplatform.so.1", 0);
  return dlsym(handle, name);
}

void* CxxSymbol(const char* name) {
  static void* const handle = Open("libc++.so.1", RTLD_DEEPBIND);
  return dlsym(handle, name);
}

// A program may put a function of its own before the C library's.
void* SystemSymbol(const char* name) {
  if (void* const shim = SystemShim(name)) return shim;
  return dlsym(RTLD_DEFAULT, name);
}

void* ObjectiveCSymbol(const char* name) { return ObjectiveCShim(name); }

}  // namespace

void* FindImport(const std::string& library, const std::string& symbol) {
  static const std::map<std::string, void* (*)(const char*)> libraries = {
      {"/System/Library/Frameworks/CoreFoundation.framework/Versions/A/CoreFoundation", PlatformSymbol},
      {"/System/Library/Frameworks/Carbon.framework/Versions/A/Carbon", PlatformSymbol},
      {"/usr/lib/libc++.1.dylib", CxxSymbol},
      {"/usr/lib/libSystem.B.dylib", SystemSymbol},
      {"/usr/lib/libobjc.A.dylib", ObjectiveCSymbol},
  };
  const auto found = libraries.find(library);
  // On a Mac a C symbol has an underscore more than on Linux. The binder of lazy symbols has none on either.
  const char* const name = symbol.c_str() + (symbol.starts_with('_') ? 1 : 0);
  void* const address = found == libraries.end() ? nullptr : found->second(name);
  if (address == nullptr) throw std::runtime_error("no " + symbol + " for an import from " + library);
  return address;
}

}  // namespace macho
