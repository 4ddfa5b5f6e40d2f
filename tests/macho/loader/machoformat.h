// The records and numbers of a Mach-O file that the loader reads, under the names that the format's documentation gives
// them. 64-bit, little-endian; but for the header of a universal file, which is big-endian.
#pragma once

#include <cstdint>

namespace macho {

struct fat_header {
  std::uint32_t magic, nfat_arch;
};
struct fat_arch {
  std::uint32_t cputype, cpusubtype, offset, size, align;
};
inline constexpr std::uint32_t FAT_MAGIC = 0xCAFEBABE;
inline constexpr std::uint32_t MAX_FAT_ALIGN = 15;  // two to this power

struct mach_header_64 {
  std::uint32_t magic, cputype, cpusubtype, filetype, ncmds, sizeofcmds, flags, reserved;
};
inline constexpr std::uint32_t MH_MAGIC_64 = 0xFEEDFACF;
inline constexpr std::uint32_t CPU_TYPE_X86_64 = 0x01000007;
inline constexpr std::uint32_t CPU_TYPE_ARM64 = 0x0100000C;
inline constexpr std::uint32_t MH_BUNDLE = 8;
inline constexpr std::uint32_t MH_TWOLEVEL = 0x80;

struct load_command {
  std::uint32_t cmd, cmdsize;
};
inline constexpr std::uint32_t LC_REQ_DYLD = 0x80000000;
inline constexpr std::uint32_t LC_SYMTAB = 0x2;
inline constexpr std::uint32_t LC_DYSYMTAB = 0xB;
inline constexpr std::uint32_t LC_LOAD_DYLIB = 0xC;
inline constexpr std::uint32_t LC_SEGMENT_64 = 0x19;
inline constexpr std::uint32_t LC_UUID = 0x1B;
inline constexpr std::uint32_t LC_CODE_SIGNATURE = 0x1D;
inline constexpr std::uint32_t LC_DYLD_INFO_ONLY = 0x22 | LC_REQ_DYLD;
inline constexpr std::uint32_t LC_FUNCTION_STARTS = 0x26;
inline constexpr std::uint32_t LC_DATA_IN_CODE = 0x29;
inline constexpr std::uint32_t LC_SOURCE_VERSION = 0x2A;
inline constexpr std::uint32_t LC_BUILD_VERSION = 0x32;

struct segment_command_64 {
  std::uint32_t cmd, cmdsize;
  char segname[16];
  std::uint64_t vmaddr, vmsize, fileoff, filesize;
  std::uint32_t maxprot, initprot, nsects, flags;
};
inline constexpr std::uint32_t VM_PROT_READ = 1;
inline constexpr std::uint32_t VM_PROT_WRITE = 2;
inline constexpr std::uint32_t VM_PROT_EXECUTE = 4;

struct section_64 {
  char sectname[16], segname[16];
  std::uint64_t addr, size;
  std::uint32_t offset, align, reloff, nreloc, flags, reserved1, reserved2, reserved3;
};
inline constexpr std::uint32_t SECTION_TYPE = 0xFF;
inline constexpr std::uint32_t S_MOD_INIT_FUNC_POINTERS = 0x9;
inline constexpr std::uint32_t S_FIRST_THREAD_LOCAL = 0x11;
inline constexpr std::uint32_t S_INIT_FUNC_OFFSETS = 0x16;
inline constexpr std::uint32_t S_ATTR_PURE_INSTRUCTIONS = 0x80000000;

struct dylib_command {
  std::uint32_t cmd, cmdsize, name, timestamp, current_version, compatibility_version;
};

struct symtab_command {
  std::uint32_t cmd, cmdsize, symoff, nsyms, stroff, strsize;
};
struct nlist_64 {
  std::uint32_t n_strx;
  std::uint8_t n_type, n_sect;
  std::uint16_t n_desc;
  std::uint64_t n_value;
};
inline constexpr std::uint8_t N_STAB = 0xE0;
inline constexpr std::uint8_t N_TYPE = 0x0E;
inline constexpr std::uint8_t N_SECT = 0x0E;

struct build_version_command {
  std::uint32_t cmd, cmdsize, platform, minos, sdk, ntools;
};
inline constexpr std::uint32_t PLATFORM_MACOS = 1;

struct dyld_info_command {
  std::uint32_t cmd, cmdsize, rebase_off, rebase_size, bind_off, bind_size, weak_bind_off, weak_bind_size,
      lazy_bind_off, lazy_bind_size, export_off, export_size;
};

// An opcode is the high four bits of a byte, its immediate value the low four.
inline constexpr std::uint8_t OPCODE_MASK = 0xF0;
inline constexpr std::uint8_t IMMEDIATE_MASK = 0x0F;

inline constexpr std::uint8_t REBASE_OPCODE_DONE = 0x00;
inline constexpr std::uint8_t REBASE_OPCODE_SET_TYPE_IMM = 0x10;
inline constexpr std::uint8_t REBASE_OPCODE_SET_SEGMENT_AND_OFFSET_ULEB = 0x20;
inline constexpr std::uint8_t REBASE_OPCODE_ADD_ADDR_ULEB = 0x30;
inline constexpr std::uint8_t REBASE_OPCODE_ADD_ADDR_IMM_SCALED = 0x40;
inline constexpr std::uint8_t REBASE_OPCODE_DO_REBASE_IMM_TIMES = 0x50;
inline constexpr std::uint8_t REBASE_OPCODE_DO_REBASE_ULEB_TIMES = 0x60;
inline constexpr std::uint8_t REBASE_OPCODE_DO_REBASE_ADD_ADDR_ULEB = 0x70;
inline constexpr std::uint8_t REBASE_OPCODE_DO_REBASE_ULEB_TIMES_SKIPPING_ULEB = 0x80;
inline constexpr std::uint8_t REBASE_TYPE_POINTER = 1;

inline constexpr std::uint8_t BIND_OPCODE_DONE = 0x00;
inline constexpr std::uint8_t BIND_OPCODE_SET_DYLIB_ORDINAL_IMM = 0x10;
inline constexpr std::uint8_t BIND_OPCODE_SET_DYLIB_ORDINAL_ULEB = 0x20;
inline constexpr std::uint8_t BIND_OPCODE_SET_SYMBOL_TRAILING_FLAGS_IMM = 0x40;
inline constexpr std::uint8_t BIND_OPCODE_SET_TYPE_IMM = 0x50;
inline constexpr std::uint8_t BIND_OPCODE_SET_ADDEND_SLEB = 0x60;
inline constexpr std::uint8_t BIND_OPCODE_SET_SEGMENT_AND_OFFSET_ULEB = 0x70;
inline constexpr std::uint8_t BIND_OPCODE_ADD_ADDR_ULEB = 0x80;
inline constexpr std::uint8_t BIND_OPCODE_DO_BIND = 0x90;
inline constexpr std::uint8_t BIND_OPCODE_DO_BIND_ADD_ADDR_ULEB = 0xA0;
inline constexpr std::uint8_t BIND_OPCODE_DO_BIND_ADD_ADDR_IMM_SCALED = 0xB0;
inline constexpr std::uint8_t BIND_OPCODE_DO_BIND_ULEB_TIMES_SKIPPING_ULEB = 0xC0;
inline constexpr std::uint8_t BIND_TYPE_POINTER = 1;

inline constexpr std::uint64_t EXPORT_SYMBOL_FLAGS_KIND_MASK = 0x03;
inline constexpr std::uint64_t EXPORT_SYMBOL_FLAGS_REEXPORT = 0x08;
inline constexpr std::uint64_t EXPORT_SYMBOL_FLAGS_STUB_AND_RESOLVER = 0x10;

}  // namespace macho
