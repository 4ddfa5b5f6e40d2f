#include "fuzz/host/markup.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace brvhost {
namespace {

// No document here is longer.
constexpr std::size_t kMaxTag = 1 << 16;

std::size_t WidthOf(CodeUnits units) { return units == CodeUnits::kBytes ? 1 : 2; }

// One character for each code unit: what is not ASCII becomes "?".
std::string AsciiOf(std::string_view bytes, CodeUnits units) {
  std::string ascii;
  for (std::size_t i = 0; i + WidthOf(units) <= bytes.size(); i += WidthOf(units)) {
    const char low = units == CodeUnits::kUtf16BigEndian ? bytes[i + 1] : bytes[i];
    const char high = units == CodeUnits::kUtf16BigEndian      ? bytes[i]
                      : units == CodeUnits::kUtf16LittleEndian ? bytes[i + 1]
                                                               : '\0';
    ascii += high == 0 && static_cast<unsigned char>(low) < 0x80 ? low : '?';
  }
  return ascii;
}

// Where the attribute of a tag stands, with the blanks before it, and 0 and 0 where it has none.
struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
};

bool IsBlank(char character) { return std::string_view(" \t\r\n").find(character) != std::string_view::npos; }

// Goes from value to value of the start tag that the text begins with: before each quote are "=" and a name.
Span LedgerAttributeOf(std::string_view text) {
  constexpr std::string_view kName = "print-leger";
  for (std::size_t open = text.find_first_of("\"'>"); open < text.size() && text[open] != '>';) {
    const std::size_t close = std::min(text.find(text[open], open + 1), text.size());
    std::size_t end = text.rfind('=', open);
    while (IsBlank(text[end - 1])) --end;
    std::size_t begin = end - std::min(end, kName.size());
    if (text.substr(begin, end - begin) == kName && IsBlank(text[begin - 1])) {
      while (IsBlank(text[begin - 1])) --begin;
      return {begin, close + 1};
    }
    open = text.find_first_of("\"'>", close + 1);
  }
  return {};
}

}  // namespace

bool HasTag(std::string_view document, CodeUnits units, const ScoreNote& note) {
  return AsciiOf(document.substr(note.offset, WidthOf(units)), units) == "<";
}

std::string WithoutLedgerAttributes(std::string_view document, const Score& score) {
  std::vector<std::size_t> offsets;
  for (const ScoreNote& note : score.notes) {
    if (HasTag(document, score.units, note)) offsets.push_back(note.offset);
  }
  std::ranges::sort(offsets);
  const std::size_t width = WidthOf(score.units);
  std::string rest;
  std::size_t copied = 0;
  for (const std::size_t offset : offsets) {
    const Span attribute = LedgerAttributeOf(AsciiOf(document.substr(offset, kMaxTag), score.units));
    rest.append(document.substr(copied, offset + attribute.begin * width - copied));
    copied = offset + attribute.end * width;
  }
  return rest.append(document.substr(copied));
}

}  // namespace brvhost
