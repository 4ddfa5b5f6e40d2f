// The contents of a Mach-O file: its segments, the places to rebase and to bind, the symbols that it exports.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace macho {

// Addresses are those that the file was linked for; an image that is mapped elsewhere adds its slide.
struct Segment {
  std::string name;
  std::uint64_t address, size;
  std::uint64_t fileOffset, fileSize;
  std::uint32_t protection;
};

struct Section {
  std::string segment, name;
  std::uint64_t address, size;
  std::uint32_t flags;
};

// A pointer that gets the address of another library's symbol, and an addend.
struct Bind {
  std::uint64_t address;
  std::string library;  // its install name
  std::string symbol;
  std::int64_t addend;
};

struct Export {
  std::string name;
  std::uint64_t address;
};

struct MachOFile {
  std::uint32_t cpuType, fileType, flags;
  std::uint32_t platform = 0;
  std::uint32_t minimumSystem = 0;  // 0x000B0000 is 11.0
  std::vector<Segment> segments;
  std::vector<Section> sections;
  std::vector<std::string> libraries;  // in the order in which binds number them, from 1
  std::vector<std::uint64_t> rebases;
  std::vector<Bind> binds;
  std::vector<Bind> lazyBinds;
  std::vector<Export> exports;
  std::vector<std::uint64_t> symbols;  // the addresses of all that has a name, sorted

  // From the lowest segment's start to the highest one's end, in whole pages.
  std::uint64_t Size() const;
};

// Reads the image for one processor, linked at address 0. Throws std::runtime_error if it is not one, or needs
// something that the loader does not support.
MachOFile ReadMachO(std::string_view bytes);

}  // namespace macho
