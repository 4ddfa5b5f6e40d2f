// Makes the image in this casing run when the casing is loaded.
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "tests/macho/loader/fatfile.h"
#include "tests/macho/loader/machoload.h"
#include "tests/macho/loader/processor.h"

extern "C" {
extern const char machoFile[];
extern const char machoFileEnd[];
extern char machoMemory[];
}

namespace {

__attribute__((constructor)) void Load() {
  const std::string_view file(machoFile, static_cast<std::size_t>(machoFileEnd - machoFile));
  try {
    const std::string_view bytes = macho::ImageFor(macho::kOwnCpuType, file);
    macho::LoadMachO(macho::ReadMachO(bytes), bytes, machoMemory);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "The macOS image does not load: %s\n", error.what());
    std::abort();
  }
}

}  // namespace
