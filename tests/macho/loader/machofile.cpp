#include "machofile.h"

#include <algorithm>

#include "bytereader.h"
#include "fixups.h"
#include "machoformat.h"

namespace macho {
namespace {

constexpr std::uint64_t kPageSize = 4096;

// A name in a field of 16 bytes, which it may fill.
std::string FixedName(const char (&field)[16]) { return std::string(field, strnlen(field, sizeof(field))); }

std::string_view Part(std::string_view bytes, std::uint64_t offset, std::uint64_t size) {
  if (offset > bytes.size() || size > bytes.size() - offset) throw std::runtime_error("the file is cut off");
  return bytes.substr(offset, size);
}

void ReadSegment(std::string_view command, MachOFile& file) {
  ByteReader reader(command);
  const auto segment = reader.Record<segment_command_64>();
  file.segments.push_back({FixedName(segment.segname), segment.vmaddr, segment.vmsize, segment.fileoff,
                           segment.filesize, segment.initprot});
  for (std::uint32_t i = 0; i < segment.nsects; ++i) {
    const auto section = reader.Record<section_64>();
    const std::uint32_t type = section.flags & SECTION_TYPE;
    if (type >= S_FIRST_THREAD_LOCAL && type < S_INIT_FUNC_OFFSETS) throw std::runtime_error("thread-local variables");
    file.sections.push_back(
        {FixedName(section.segname), FixedName(section.sectname), section.addr, section.size, section.flags});
  }
}

void ReadLibrary(std::string_view command, MachOFile& file) {
  const auto library = ByteReader(command).Record<dylib_command>();
  file.libraries.push_back(ByteReader(command, library.name).Text());
}

void ReadSymbols(std::string_view command, std::string_view bytes, MachOFile& file) {
  const auto table = ByteReader(command).Record<symtab_command>();
  ByteReader reader(bytes, table.symoff);
  for (std::uint32_t i = 0; i < table.nsyms; ++i) {
    const auto symbol = reader.Record<nlist_64>();
    if ((symbol.n_type & N_STAB) == 0 && (symbol.n_type & N_TYPE) == N_SECT) file.symbols.push_back(symbol.n_value);
  }
  std::sort(file.symbols.begin(), file.symbols.end());
}

void ReadBuildVersion(std::string_view command, MachOFile& file) {
  const auto version = ByteReader(command).Record<build_version_command>();
  file.platform = version.platform;
  file.minimumSystem = version.minos;
}

// The load commands, but for the compressed lists, which need to know all segments and libraries.
void ReadCommand(std::uint32_t kind, std::string_view command, std::string_view bytes, MachOFile& file) {
  switch (kind) {
    case LC_SEGMENT_64:
      return ReadSegment(command, file);
    case LC_LOAD_DYLIB:
      return ReadLibrary(command, file);
    case LC_SYMTAB:
      return ReadSymbols(command, bytes, file);
    case LC_BUILD_VERSION:
      return ReadBuildVersion(command, file);
    case LC_DYLD_INFO_ONLY:
    case LC_DYSYMTAB:
    case LC_UUID:
    case LC_CODE_SIGNATURE:
    case LC_FUNCTION_STARTS:
    case LC_DATA_IN_CODE:
    case LC_SOURCE_VERSION:
      return;
    default:
      throw std::runtime_error("the unknown load command " + std::to_string(kind));
  }
}

void ReadLists(const dyld_info_command& info, std::string_view bytes, MachOFile& file) {
  file.rebases = ReadRebases(Part(bytes, info.rebase_off, info.rebase_size), file);
  file.binds = ReadBinds(Part(bytes, info.bind_off, info.bind_size), file, false);
  file.lazyBinds = ReadBinds(Part(bytes, info.lazy_bind_off, info.lazy_bind_size), file, true);
  if (info.weak_bind_size != 0) throw std::runtime_error("weak binds");
  file.exports = ReadExports(Part(bytes, info.export_off, info.export_size));
}

void CheckSegments(std::string_view bytes, const MachOFile& file) {
  if (file.segments.empty() || file.segments.front().address != 0) throw std::runtime_error("not linked at address 0");
  for (const Segment& segment : file.segments) {
    Part(bytes, segment.fileOffset, segment.fileSize);
    if (segment.fileSize > segment.size) throw std::runtime_error("a segment with more bytes than room");
  }
}

}  // namespace

std::uint64_t MachOFile::Size() const {
  std::uint64_t end = 0;
  for (const Segment& segment : segments) end = std::max(end, segment.address + segment.size);
  return (end + kPageSize - 1) / kPageSize * kPageSize;
}

MachOFile ReadMachO(std::string_view bytes) {
  ByteReader reader(bytes);
  const auto header = reader.Record<mach_header_64>();
  if (header.magic != MH_MAGIC_64) throw std::runtime_error("not a 64-bit Mach-O file");
  MachOFile file = {};
  file.cpuType = header.cputype;
  file.fileType = header.filetype;
  file.flags = header.flags;
  dyld_info_command info = {};
  std::size_t position = sizeof(header);
  for (std::uint32_t i = 0; i < header.ncmds; ++i) {
    reader.MoveTo(position);
    const auto start = reader.Record<load_command>();
    const std::string_view command = Part(bytes, position, start.cmdsize);
    ReadCommand(start.cmd, command, bytes, file);
    if (start.cmd == LC_DYLD_INFO_ONLY) info = ByteReader(command).Record<dyld_info_command>();
    position += start.cmdsize;
  }
  CheckSegments(bytes, file);
  ReadLists(info, bytes, file);
  return file;
}

}  // namespace macho
