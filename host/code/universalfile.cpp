#include "host/code/universalfile.h"

#include "host/code/codebytes.h"

namespace brvhost {
namespace {

constexpr std::uint32_t kMagic = 0xCAFEBABE;
constexpr std::uint32_t kMagicOf64Bits = 0xCAFEBABF;  // of the places of the parts
constexpr std::uint64_t kHeader = 8;

}  // namespace

bool IsUniversal(std::string_view bytes) {
  if (bytes.size() < kHeader) return false;
  const std::uint32_t magic = CodeBytes(bytes, ByteOrder::kHighestFirst).Word(0);
  return magic == kMagic || magic == kMagicOf64Bits;
}

std::vector<UniversalPart> PartsOf(std::string_view bytes) {
  constexpr std::uint32_t kMost = 16;
  const CodeBytes file(bytes, ByteOrder::kHighestFirst);
  const bool isLarge = file.Word(0) == kMagicOf64Bits;
  const unsigned place = isLarge ? 8 : 4;
  const std::uint64_t entry = isLarge ? 32 : 20;
  const std::uint32_t count = file.Word(4);
  if (count > kMost) throw CodeError("lists more than 16 processors");
  std::vector<UniversalPart> parts;
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint64_t at = kHeader + i * entry;
    parts.push_back({ProcessorOfMac(file.Word(at)), file.Number(at + 8, place), file.Number(at + 8 + place, place)});
  }
  return parts;
}

}  // namespace brvhost
