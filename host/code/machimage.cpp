#include "host/code/machimage.h"

#include <cstdint>
#include <string>

#include "host/code/chainedimports.h"
#include "host/code/codebytes.h"
#include "host/code/exporttrie.h"
#include "host/code/importcode.h"

namespace brvhost {
namespace {

constexpr std::uint32_t kMagic = 0xFEEDFACF;
constexpr std::uint32_t kMagicOf32Bits = 0xFEEDFACE;
constexpr std::uint64_t kHeader = 32;

// The kinds of commands that say what is in the file.
constexpr std::uint32_t kLibrary = 0xC;
constexpr std::uint32_t kWeakLibrary = 0x80000018;
constexpr std::uint32_t kReexportedLibrary = 0x8000001F;
constexpr std::uint32_t kLazyLibrary = 0x20;
constexpr std::uint32_t kUpwardLibrary = 0x80000023;
constexpr std::uint32_t kSearchFolder = 0x8000001C;
constexpr std::uint32_t kDynamicInfo = 0x22;
constexpr std::uint32_t kOnlyDynamicInfo = 0x80000022;
constexpr std::uint32_t kExportTrie = 0x80000033;
constexpr std::uint32_t kChainedImports = 0x80000034;

// What a command says where to find: a number for the place, and one for the size.
CodeBytes Referred(const CodeBytes& file, const CodeBytes& command, std::uint64_t at) {
  return file.Part(command.Word(at), command.Word(at + 4));
}

void AddDynamicInfo(const CodeBytes& file, const CodeBytes& command, CodeImage& image) {
  AddImportsOfCode(Referred(file, command, 16), ImportCode::kAtStart, image);
  AddImportsOfCode(Referred(file, command, 32), ImportCode::kWhenUsed, image);
  AddExportsOfTrie(Referred(file, command, 40), image);
}

void AddCommand(const CodeBytes& file, const CodeBytes& command, CodeImage& image) {
  const std::uint32_t kind = command.Word(0);
  switch (kind) {
    case kLibrary:
    case kWeakLibrary:
    case kReexportedLibrary:
    case kLazyLibrary:
    case kUpwardLibrary:
      return image.AddLibrary({std::string(command.Text(command.Word(8))), kind == kWeakLibrary});
    case kSearchFolder:
      return image.AddSearchFolder(command.Text(command.Word(8)));
    case kDynamicInfo:
    case kOnlyDynamicInfo:
      return AddDynamicInfo(file, command, image);
    case kExportTrie:
      return AddExportsOfTrie(Referred(file, command, 8), image);
    case kChainedImports:
      return AddChainedImports(Referred(file, command, 8), image);
    default:
      return;
  }
}

void ExpectLibraries(const CodeImage& image) {
  for (const CodeImport& entry : image.Imports()) {
    if (entry.from == CodeImport::kLibrary && entry.library >= image.Libraries().size()) {
      throw CodeError("imports from a library that it does not name");
    }
  }
}

}  // namespace

bool IsMach(std::string_view bytes) {
  if (bytes.size() < 4) return false;
  const std::uint32_t magic = CodeBytes(bytes).Word(0);
  return magic == kMagic || magic == kMagicOf32Bits;
}

CodeProcessor ProcessorOfMach(std::string_view bytes) {
  const CodeBytes file(bytes);
  return file.Word(0) == kMagic ? ProcessorOfMac(file.Word(4)) : CodeProcessor::kOther;
}

CodeImage MachImage(std::string_view bytes) {
  CodeImage image(ProcessorOfMach(bytes));
  const CodeBytes file(bytes);
  if (file.Word(0) != kMagic) throw CodeError("has no code for 64 bits");
  const std::uint32_t count = file.Word(16);
  std::uint64_t at = kHeader;
  for (std::uint32_t i = 0; i < count; ++i) {
    constexpr std::uint32_t kLeast = 8;
    const std::uint32_t size = file.Word(at + 4);
    if (size < kLeast) throw CodeError("has a load command without its size");
    AddCommand(file, file.Part(at, size), image);
    at += size;
  }
  ExpectLibraries(image);
  return image;
}

}  // namespace brvhost
