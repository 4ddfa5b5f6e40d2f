#include "machoload.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

#include "imports.h"
#include "machoformat.h"

namespace macho {
namespace {

template <class T>
T Read(const char* place) {
  T value;
  std::memcpy(&value, place, sizeof(value));
  return value;
}

void Write(char* place, std::uint64_t value) { std::memcpy(place, &value, sizeof(value)); }

// The place of a pointer, which must lie inside the image.
char* PointerAt(const MachOFile& file, char* memory, std::uint64_t address) {
  if (address > file.Size() - sizeof(void*)) throw std::runtime_error("a fix-up outside of the image");
  return memory + address;
}

void CopySegments(const MachOFile& file, std::string_view bytes, char* memory) {
  for (const Segment& segment : file.segments) {
    std::memcpy(memory + segment.address, bytes.data() + segment.fileOffset, segment.fileSize);
  }
  // The processor may know other instructions of that memory.
  __builtin___clear_cache(memory, memory + file.Size());
}

void Rebase(const MachOFile& file, char* memory) {
  for (const std::uint64_t address : file.rebases) {
    char* const place = PointerAt(file, memory, address);
    Write(place, Read<std::uint64_t>(place) + reinterpret_cast<std::uint64_t>(memory));
  }
}

void BindAll(const MachOFile& file, const std::vector<Bind>& binds, char* memory) {
  for (const Bind& bind : binds) {
    const auto target = reinterpret_cast<std::uint64_t>(FindImport(bind.library, bind.symbol));
    Write(PointerAt(file, memory, bind.address), target + static_cast<std::uint64_t>(bind.addend));
  }
}

void Protect(const MachOFile& file, char* memory) {
  for (const Segment& segment : file.segments) {
    int protection = PROT_NONE;
    if ((segment.protection & VM_PROT_READ) != 0) protection |= PROT_READ;
    if ((segment.protection & VM_PROT_WRITE) != 0) protection |= PROT_WRITE;
    if ((segment.protection & VM_PROT_EXECUTE) != 0) protection |= PROT_EXEC;
    if (mprotect(memory + segment.address, segment.size, protection) != 0) {
      throw std::system_error(errno, std::generic_category(), "the segment " + segment.name);
    }
  }
}

void RunInitialisers(const MachOFile& file, const char* memory) {
  using Initialiser = void (*)(int argc, char** argv, char** environment, char** apple);
  const auto run = [](std::uint64_t address) {
    char* none[] = {nullptr};
    reinterpret_cast<Initialiser>(address)(0, none, environ, none);
  };
  for (const Section& section : file.sections) {
    const char* const start = memory + section.address;
    const char* const end = start + section.size;
    if ((section.flags & SECTION_TYPE) == S_MOD_INIT_FUNC_POINTERS) {
      for (const char* at = start; at < end; at += sizeof(void*)) run(Read<std::uint64_t>(at));
    } else if ((section.flags & SECTION_TYPE) == S_INIT_FUNC_OFFSETS) {
      const auto base = reinterpret_cast<std::uint64_t>(memory);
      for (const char* at = start; at < end; at += sizeof(std::uint32_t)) run(base + Read<std::uint32_t>(at));
    }
  }
}

}  // namespace

void LoadMachO(const MachOFile& file, std::string_view bytes, char* memory) {
  CopySegments(file, bytes, memory);
  Rebase(file, memory);
  BindAll(file, file.binds, memory);
  BindAll(file, file.lazyBinds, memory);
  Protect(file, memory);
  RunInitialisers(file, memory);
}

}  // namespace macho
