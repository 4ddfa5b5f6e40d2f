#include "imports.h"

#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <map>
#include <stdexcept>

#include "conventions.h"
#include "shims.h"

namespace macho {
namespace {

bool IsFunctionOfTheProgram(const void* address) {
  Dl_info info;
  void* symbol = nullptr;
  void* image = nullptr;
  if (dladdr1(address, &info, &symbol, RTLD_DL_SYMENT) == 0 || symbol == nullptr) return false;
  if (dladdr1(address, &info, &image, RTLD_DL_LINKMAP) == 0) return false;
  // The program is the one image without a name. Data of the C++ library's may have been copied into it.
  return ELF64_ST_TYPE(static_cast<const Elf64_Sym*>(symbol)->st_info) == STT_FUNC &&
         *static_cast<const link_map*>(image)->l_name == '\0';
}

// A program may put a function of its own before a library's.
void* ProgramFunction(const char* name) {
  void* const found = dlsym(RTLD_DEFAULT, name);
  return found != nullptr && IsFunctionOfTheProgram(found) ? found : nullptr;
}

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

#if defined(__x86_64__)
void* CxxSymbol(const char* name) {
  static void* const handle = Open("libc++.so.1", RTLD_DEEPBIND);
  return dlsym(handle, name);
}
#else
// Debian has libc++ for one architecture at a time. The C++ library of the process has the same functions under the
// same names; what it has inline is a shim.
void* CxxSymbol(const char* name) {
  if (void* const shim = CxxShim(name)) return shim;
  return dlsym(RTLD_DEFAULT, name);
}
#endif

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
  void* address = ProgramFunction(name);
  if (address == nullptr && found != libraries.end()) address = found->second(name);
  if (address == nullptr) throw std::runtime_error("no " + symbol + " for an import from " + library);
  return ForImage(name, address);
}

}  // namespace macho
