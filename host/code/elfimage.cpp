#include "host/code/elfimage.h"

#include <cstdint>

#include "host/code/codebytes.h"

namespace brvhost {
namespace {

using namespace std::string_view_literals;

// Where things are in a file of 64 or 32 bits, and how large numbers are that have as many.
struct Layout {
  unsigned word;
  unsigned sections, sectionSize, sectionCount;         // in the file's header
  unsigned contentAt, contentSize, link, sectionBytes;  // in the header of a section
  unsigned info, home, symbolBytes;                     // in a symbol
};
constexpr Layout kLayout64 = {8, 0x28, 0x3A, 0x3C, 0x18, 0x20, 0x28, 0x40, 4, 6, 24};
constexpr Layout kLayout32 = {4, 0x20, 0x2E, 0x30, 0x10, 0x14, 0x18, 0x28, 12, 14, 16};

const Layout& LayoutOf(const CodeBytes& file) { return file.Number(4, 1) == 2 ? kLayout64 : kLayout32; }

CodeBytes File(std::string_view bytes) {
  constexpr std::uint64_t kLowestFirst = 1;
  const bool lowestFirst = CodeBytes(bytes).Number(5, 1) == kLowestFirst;
  return CodeBytes(bytes, lowestFirst ? ByteOrder::kLowestFirst : ByteOrder::kHighestFirst);
}

// The headers of the sections.
class Sections {
 public:
  explicit Sections(const CodeBytes& file) : file_(file), layout_(LayoutOf(file)) {
    const std::uint64_t size = file.Number(layout_.sectionSize, 2);
    count_ = file.Number(layout_.sectionCount, 2);
    if (count_ != 0 && size != layout_.sectionBytes) throw CodeError("has headers of sections of an unknown size");
    headers_ = file.Number(layout_.sections, layout_.word);
    file.Part(headers_, count_ * size);
  }

  std::uint64_t Count() const { return count_; }
  std::uint32_t Type(std::uint64_t index) const { return file_.Word(At(index) + 4); }
  std::uint64_t Link(std::uint64_t index) const { return file_.Word(At(index) + layout_.link); }
  CodeBytes Content(std::uint64_t index) const {
    return file_.Part(file_.Number(At(index) + layout_.contentAt, layout_.word),
                      file_.Number(At(index) + layout_.contentSize, layout_.word));
  }

 private:
  std::uint64_t At(std::uint64_t index) const {
    if (index >= count_) throw CodeError("refers to a section that it does not have");
    return headers_ + index * layout_.sectionBytes;
  }

  const CodeBytes file_;
  const Layout& layout_;
  std::uint64_t count_ = 0;
  std::uint64_t headers_ = 0;
};

// Whether it is defined here, and others see it.
bool IsExported(const CodeBytes& symbol, const Layout& layout) {
  constexpr std::uint64_t kLocal = 0;
  constexpr std::uint64_t kDefault = 0;
  constexpr std::uint64_t kProtected = 3;
  const std::uint64_t visibility = symbol.Number(layout.info + 1, 1) & 3;
  return symbol.Number(layout.info, 1) >> 4 != kLocal && symbol.Number(layout.home, 2) != 0 &&
         (visibility == kDefault || visibility == kProtected);
}

void AddExports(const CodeBytes& symbols, const CodeBytes& names, const Layout& layout, CodeImage& image) {
  for (std::uint64_t at = 0; at < symbols.Size(); at += layout.symbolBytes) {
    const CodeBytes symbol = symbols.Part(at, layout.symbolBytes);
    if (IsExported(symbol, layout)) image.AddExport(names.Text(symbol.Word(0)));
  }
}

}  // namespace

bool IsElf(std::string_view bytes) {
  return bytes.starts_with(
      "\x7F"
      "ELF"sv);
}

CodeProcessor ProcessorOfElf(std::string_view bytes) {
  constexpr std::uint64_t kX64 = 62;
  constexpr std::uint64_t kArm64 = 183;
  const CodeBytes file = File(bytes);
  const std::uint64_t machine = file.Number(18, 2);
  const bool lowestFirst = file.Number(5, 1) == 1;
  if (!lowestFirst || (machine != kX64 && machine != kArm64)) return CodeProcessor::kOther;
  return machine == kArm64 ? CodeProcessor::kArm64 : CodeProcessor::kX64;
}

CodeImage ElfImage(std::string_view bytes) {
  constexpr std::uint32_t kDynamicSymbols = 11;
  CodeImage image(ProcessorOfElf(bytes));
  const CodeBytes file = File(bytes);
  const Sections sections(file);
  for (std::uint64_t i = 0; i < sections.Count(); ++i) {
    if (sections.Type(i) != kDynamicSymbols) continue;
    AddExports(sections.Content(i), sections.Content(sections.Link(i)), LayoutOf(file), image);
    return image;
  }
  throw CodeError("has no table of what it exports");
}

}  // namespace brvhost
