#include "fixups.h"

#include "bytereader.h"
#include "machoformat.h"

namespace macho {
namespace {

constexpr std::uint64_t kPointerSize = 8;

std::uint64_t SegmentAddress(const MachOFile& file, std::size_t index) { return file.segments.at(index).address; }

[[noreturn]] void Unknown(const char* list, unsigned opcode) {
  throw std::runtime_error(std::string(list) + " has the unknown opcode " + std::to_string(opcode));
}

// Library ordinals from 1 up name the libraries; the rest are the process or the program, and are not two-level.
const std::string& LibraryOf(const MachOFile& file, std::uint64_t ordinal) {
  if (ordinal == 0 || ordinal > file.libraries.size()) throw std::runtime_error("a bind to no library of the list");
  return file.libraries[ordinal - 1];
}

void ReadExportNode(std::string_view bytes, std::size_t offset, const std::string& name, std::vector<Export>& exports) {
  if (exports.size() > bytes.size() || name.size() > bytes.size()) throw std::runtime_error("a trie without an end");
  ByteReader reader(bytes, offset);
  const std::uint64_t terminalSize = reader.Uleb();
  if (terminalSize != 0) {
    const std::uint64_t flags = reader.Uleb();
    constexpr std::uint64_t kUnknown =
        EXPORT_SYMBOL_FLAGS_KIND_MASK | EXPORT_SYMBOL_FLAGS_REEXPORT | EXPORT_SYMBOL_FLAGS_STUB_AND_RESOLVER;
    if ((flags & kUnknown) != 0) throw std::runtime_error("an export of an unknown kind: " + name);
    exports.push_back({name, reader.Uleb()});
  }
  const int children = reader.Byte();
  for (int i = 0; i < children; ++i) {
    const std::string edge = reader.Text();
    ReadExportNode(bytes, reader.Uleb(), name + edge, exports);
  }
}

}  // namespace

std::vector<std::uint64_t> ReadRebases(std::string_view bytes, const MachOFile& file) {
  std::vector<std::uint64_t> rebases;
  std::uint64_t address = 0;
  const auto rebase = [&](std::uint64_t times, std::uint64_t skip) {
    for (; times != 0; --times) {
      rebases.push_back(address);
      address += kPointerSize + skip;
    }
  };
  for (ByteReader reader(bytes); !reader.AtEnd();) {
    const std::uint8_t byte = reader.Byte();
    const std::uint8_t immediate = byte & IMMEDIATE_MASK;
    switch (byte & OPCODE_MASK) {
      case REBASE_OPCODE_DONE:
        return rebases;
      case REBASE_OPCODE_SET_TYPE_IMM:
        if (immediate != REBASE_TYPE_POINTER) throw std::runtime_error("a rebase of something else than a pointer");
        break;
      case REBASE_OPCODE_SET_SEGMENT_AND_OFFSET_ULEB:
        address = SegmentAddress(file, immediate) + reader.Uleb();
        break;
      case REBASE_OPCODE_ADD_ADDR_ULEB:
        address += reader.Uleb();
        break;
      case REBASE_OPCODE_ADD_ADDR_IMM_SCALED:
        address += immediate * kPointerSize;
        break;
      case REBASE_OPCODE_DO_REBASE_IMM_TIMES:
        rebase(immediate, 0);
        break;
      case REBASE_OPCODE_DO_REBASE_ULEB_TIMES:
        rebase(reader.Uleb(), 0);
        break;
      case REBASE_OPCODE_DO_REBASE_ADD_ADDR_ULEB:
        rebase(1, reader.Uleb());
        break;
      case REBASE_OPCODE_DO_REBASE_ULEB_TIMES_SKIPPING_ULEB: {
        const std::uint64_t times = reader.Uleb();
        rebase(times, reader.Uleb());
        break;
      }
      default:
        Unknown("the list of rebases", byte);
    }
  }
  return rebases;
}

std::vector<Bind> ReadBinds(std::string_view bytes, const MachOFile& file, bool lazy) {
  std::vector<Bind> binds;
  Bind next = {};
  const auto bind = [&](std::uint64_t times, std::uint64_t skip) {
    for (; times != 0; --times) {
      binds.push_back(next);
      next.address += kPointerSize + skip;
    }
  };
  for (ByteReader reader(bytes); !reader.AtEnd();) {
    const std::uint8_t byte = reader.Byte();
    const std::uint8_t immediate = byte & IMMEDIATE_MASK;
    switch (byte & OPCODE_MASK) {
      case BIND_OPCODE_DONE:
        if (!lazy) return binds;
        break;
      case BIND_OPCODE_SET_DYLIB_ORDINAL_IMM:
        next.library = LibraryOf(file, immediate);
        break;
      case BIND_OPCODE_SET_DYLIB_ORDINAL_ULEB:
        next.library = LibraryOf(file, reader.Uleb());
        break;
      case BIND_OPCODE_SET_SYMBOL_TRAILING_FLAGS_IMM:
        if (immediate != 0) throw std::runtime_error("a weak import");
        next.symbol = reader.Text();
        break;
      case BIND_OPCODE_SET_TYPE_IMM:
        if (immediate != BIND_TYPE_POINTER) throw std::runtime_error("a bind of something else than a pointer");
        break;
      case BIND_OPCODE_SET_ADDEND_SLEB:
        next.addend = reader.Sleb();
        break;
      case BIND_OPCODE_SET_SEGMENT_AND_OFFSET_ULEB:
        next.address = SegmentAddress(file, immediate) + reader.Uleb();
        break;
      case BIND_OPCODE_ADD_ADDR_ULEB:
        next.address += reader.Uleb();
        break;
      case BIND_OPCODE_DO_BIND:
        bind(1, 0);
        break;
      case BIND_OPCODE_DO_BIND_ADD_ADDR_ULEB:
        bind(1, reader.Uleb());
        break;
      case BIND_OPCODE_DO_BIND_ADD_ADDR_IMM_SCALED:
        bind(1, immediate * kPointerSize);
        break;
      case BIND_OPCODE_DO_BIND_ULEB_TIMES_SKIPPING_ULEB: {
        const std::uint64_t times = reader.Uleb();
        bind(times, reader.Uleb());
        break;
      }
      default:
        Unknown("a list of binds", byte);
    }
  }
  return binds;
}

std::vector<Export> ReadExports(std::string_view bytes) {
  std::vector<Export> exports;
  if (!bytes.empty()) ReadExportNode(bytes, 0, "", exports);
  return exports;
}

}  // namespace macho
