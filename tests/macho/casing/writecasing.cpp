// Writes the assembler source of a casing: a Mach-O file inside a shared object of Linux.
//
//   writecasing IMAGE > casing.S
//
// The casing holds the file's bytes, memory to run them in, and each exported symbol at its place there, so that a
// program links against the image, opens it, asks dladdr about it and shares its variables as those of any library.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>

#include "tests/macho/loader/fatfile.h"
#include "tests/macho/loader/machofile.h"
#include "tests/macho/loader/machoformat.h"
#include "tests/macho/loader/processor.h"

namespace {

const macho::Section& SectionOf(const macho::MachOFile& file, std::uint64_t address) {
  for (const macho::Section& section : file.sections) {
    if (address >= section.address && address < section.address + section.size) return section;
  }
  throw std::runtime_error("an exported symbol outside of all sections");
}

// Mach-O files have no sizes of symbols: a symbol reaches to the next one, or to its section's end.
std::uint64_t SizeOf(const macho::MachOFile& file, std::uint64_t address) {
  const macho::Section& section = SectionOf(file, address);
  const auto next = std::upper_bound(file.symbols.begin(), file.symbols.end(), address);
  const std::uint64_t end = section.address + section.size;
  return (next == file.symbols.end() ? end : std::min(*next, end)) - address;
}

// A function of the casing may take the place of the exported one, and call it by its name after "image.".
void WriteSymbol(const macho::MachOFile& file, const macho::Export& symbol) {
  const std::string name = symbol.name.substr(1);
  const bool isCode = (SectionOf(file, symbol.address).flags & macho::S_ATTR_PURE_INSTRUCTIONS) != 0;
  std::cout << "    .weak " << name << "\n    .type " << name << (isCode ? ", @function\n" : ", @object\n")  //
            << "    .set " << name << ", machoMemory + " << symbol.address << "\n"                           //
            << "    .size " << name << ", " << SizeOf(file, symbol.address) << "\n"
            << "    .globl image." << name << "\n    .hidden image." << name << "\n"  //
            << "    .set image." << name << ", machoMemory + " << symbol.address << "\n";
}

void WriteCasing(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
  const macho::MachOFile file = macho::ReadMachO(macho::ImageFor(macho::kOwnCpuType, bytes));
  std::cout << "    .section .note.GNU-stack,\"\",@progbits\n"
            << "    .section .rodata\n"
            << "    .globl machoFile, machoFileEnd, machoMemory\n"
            << "    .hidden machoFile, machoFileEnd, machoMemory\n"
            << "machoFile:\n"
            << "    .incbin \"" << path << "\"\n"
            << "machoFileEnd:\n"
            << "    .section .bss.macho,\"aw\",@nobits\n"
            << "    .balign 16384\n"
            << "machoMemory:\n"
            << "    .skip " << file.Size() << "\n";
  for (const macho::Export& symbol : file.exports) WriteSymbol(file, symbol);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: writecasing IMAGE\n", stderr);
    return 2;
  }
  try {
    WriteCasing(argv[1]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "writecasing: %s: %s\n", argv[1], error.what());
    return 1;
  }
  return 0;
}
