#include "host/code/chainedimports.h"

#include <cstdint>

#include "host/code/macimport.h"

namespace brvhost {
namespace {

// The sizes, in bits, of the parts of an entry: the origin, and what is before the name's place.
struct Format {
  std::uint64_t entry;  // in bytes
  unsigned number;      // in bytes, with all these parts
  unsigned origin;
  unsigned beforeName;
};

Format FormatOf(std::uint32_t number) {
  switch (number) {
    case 1:
      return {4, 4, 8, 9};
    case 2:
      return {8, 4, 8, 9};
    case 3:
      return {16, 8, 16, 32};
    default:
      throw CodeError("has imports in a form that is not known");
  }
}

// The highest sixteen are below 0.
std::int64_t OriginOf(std::uint64_t number, unsigned bits) {
  const auto end = std::int64_t{1} << bits;
  const auto origin = static_cast<std::int64_t>(number) & (end - 1);
  return origin >= end - 16 ? origin - end : origin;
}

}  // namespace

void AddChainedImports(const CodeBytes& table, CodeImage& image) {
  if (table.Size() == 0) return;
  constexpr std::uint32_t kPlain = 0;
  const std::uint32_t entries = table.Word(8);
  const std::uint32_t names = table.Word(12);
  const std::uint32_t count = table.Word(16);
  const Format format = FormatOf(table.Word(20));
  if (table.Word(24) != kPlain) throw CodeError("has names in a form that is not known");
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint64_t entry = table.Number(entries + i * format.entry, format.number);
    AddImportOfMac(table.Text(names + (entry >> format.beforeName)), OriginOf(entry, format.origin),
                   (entry >> format.origin & 1) != 0, image);
  }
}

}  // namespace brvhost
