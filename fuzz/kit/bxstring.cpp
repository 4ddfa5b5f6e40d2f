// The bx_ functions against their contracts, unit by unit: at any address, before a page that cannot be read, and
// copying within one buffer.
#include "bxstring.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/support/guardedmemory.h"
#include "fuzz/support/input.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kMemory = std::size_t{1} << 15;

// Units to the end of the memory, less that many bytes.
struct Place {
  std::size_t units;
  std::size_t gap;
};

class Memory {
 public:
  UniChar* At(Place place) const {
    return reinterpret_cast<UniChar*>(memory_.End() - place.gap - place.units * sizeof(UniChar));
  }
  // The text with its final 0, which is the last unit before the gap.
  UniChar* Put(const std::u16string& text, std::size_t gap) const {
    UniChar* const units = At({text.size() + 1, gap});
    std::memcpy(units, text.c_str(), (text.size() + 1) * sizeof(UniChar));
    return units;
  }
  // Fills all of it with one byte.
  void Fill(int byte) const { std::memset(memory_.Begin(), byte, kMemory); }
  Bytes Content() const { return {memory_.Begin(), memory_.End()}; }
  // Where units lie in the content.
  std::size_t OffsetOf(const UniChar* units) const {
    return static_cast<std::size_t>(reinterpret_cast<const std::uint8_t*>(units) - memory_.Begin());
  }

 private:
  GuardedMemory memory_{kMemory};
};

struct Memories {
  Memory source;
  Memory other;
  Memory target;
};

// Few different units, so that texts are often alike; long ones repeat a piece.
std::u16string AnyText(Input& input) {
  const std::size_t length = input.Byte();
  const bool isRepeated = input.Flag();
  std::u16string piece;
  for (const char byte : input.Text(isRepeated ? length % 8 : length)) {
    const auto value = static_cast<unsigned char>(byte);
    piece += static_cast<char16_t>((value & 0xC0) == 0xC0 ? 0xFF00 | value : 1 + value % 4);
  }
  if (!isRepeated || piece.empty()) return piece;
  std::u16string text;
  for (int i = 0; i < 16 && text.size() < 2000; ++i) text += piece;
  const std::size_t repeats = input.Byte();
  for (std::size_t i = 0; i < repeats; ++i) text += piece;
  return text + static_cast<char16_t>(1 + input.Below(4));
}

// Some bytes before the page that cannot be read: often none, sometimes an odd number, rarely across a page.
std::size_t AnyGap(Input& input) {
  const int gap = input.Byte();
  return static_cast<std::size_t>(gap < 200 ? gap % 40 : 4096 - 2 * (gap - 200));
}

int Sign(int number) { return (number > 0) - (number < 0); }

// What a place in a text is, as its index, or npos.
std::size_t IndexOf(const UniChar* place, const UniChar* text) {
  return place == nullptr ? std::u16string::npos : static_cast<std::size_t>(place - text);
}

void CheckSearches(Input& input, const Memories& memories) {
  const std::u16string text = AnyText(input);
  const std::u16string needle = AnyText(input);
  const auto unit = static_cast<char16_t>(input.Flag() ? input.Word() : 1 + input.Below(4));
  const UniChar* const placed = memories.source.Put(text, AnyGap(input));
  const UniChar* const placedNeedle = memories.other.Put(needle, AnyGap(input));
  Require(bx_strlen(placed) == text.size(), "bx_strlen counts the units before the end");
  Require(IndexOf(bx_strchr(placed, unit), placed) == (unit == 0 ? text.size() : text.find(unit)),
          "bx_strchr finds the first of a unit");
  Require(bx_strchr(placed, static_cast<ushort16>(unit | 0x70000)) == bx_strchr(placed, unit),
          "bx_strchr takes the low 16 bits");
  Require(IndexOf(bx_strstr(placed, placedNeedle), placed) == text.find(needle), "bx_strstr finds the first place");
  if (needle.size() < 2) return;
  const std::u16string part = text.substr(std::min<std::size_t>(input.Byte(), text.size()), needle.size());
  const UniChar* const placedPart = memories.other.Put(part, AnyGap(input));
  Require(IndexOf(bx_strstr(placed, placedPart), placed) == text.find(part), "bx_strstr finds a part of the text");
}

void CheckComparisons(Input& input, const Memories& memories) {
  const std::u16string a = AnyText(input);
  std::u16string b = AnyText(input);
  if (input.Flag()) b = a + b;
  if (input.Flag() && !b.empty()) b[input.Word() % b.size()] = static_cast<char16_t>(input.Word() | 1);
  const std::size_t limit = input.Flag() ? input.Byte() : input.Word();
  const UniChar* const placedA = memories.source.Put(a, AnyGap(input));
  const UniChar* const placedB = memories.other.Put(b, AnyGap(input));
  Require(bx_strcmp(placedA, placedB) == Sign(a.compare(b)), "bx_strcmp compares units as unsigned numbers");
  Require(bx_strncmp(placedA, placedB, limit) == Sign(a.substr(0, limit).compare(b.substr(0, limit))),
          "bx_strncmp compares the first units");
  Require(bx_strncmp(placedA, placedB, SIZE_MAX) == Sign(a.compare(b)), "bx_strncmp takes any limit");
}

// The content with these units at a place.
Bytes With(Bytes content, std::size_t offset, std::u16string_view units) {
  std::memcpy(content.data() + offset, units.data(), units.size() * sizeof(char16_t));
  return content;
}

void CheckCopies(Input& input, const Memories& memories) {
  const std::u16string text = AnyText(input);
  const UniChar* const placed = memories.source.Put(text, AnyGap(input));
  const std::u16string_view whole(text.c_str(), text.size() + 1);
  memories.target.Fill(0x5A);
  UniChar* const exact = memories.target.At({whole.size(), AnyGap(input)});
  Bytes expected = With(memories.target.Content(), memories.target.OffsetOf(exact), whole);
  if (input.Flag()) {
    bx_strcpy(exact, placed);
  } else {
    bx_strcpy(exact, input.Byte(), placed);
  }
  Require(memories.target.Content() == expected, "bx_strcpy writes the text and nothing else");

  const std::size_t count = input.Flag() ? input.Byte() : input.Word() % 4000;
  std::u16string cut = text.substr(0, count);
  cut.resize(count);
  memories.target.Fill(0x5A);
  UniChar* const counted = memories.target.At({count, AnyGap(input)});
  expected = With(memories.target.Content(), memories.target.OffsetOf(counted), cut);
  bx_strncpy(counted, placed, count);
  Require(memories.target.Content() == expected, "bx_strncpy writes exactly as many units as it is told");
}

void CheckAppends(Input& input, const Memories& memories) {
  const std::u16string first = AnyText(input);
  const std::u16string second = AnyText(input);
  const std::u16string both = first + second;
  memories.target.Fill(0x5A);
  UniChar* const place = memories.target.At({both.size() + 1, AnyGap(input)});
  const std::size_t offset = memories.target.OffsetOf(place);
  const Bytes expected = With(memories.target.Content(), offset, {both.c_str(), both.size() + 1});
  std::memcpy(place, first.c_str(), (first.size() + 1) * sizeof(char16_t));
  bx_strcat(place, input.Byte(), memories.source.Put(second, AnyGap(input)));
  Require(memories.target.Content() == expected, "bx_strcat appends the text and writes nothing else");
}

// Within one buffer, to a lower address, by any number of bytes.
void CheckOverlaps(Input& input, const Memories& memories) {
  const std::u16string text = AnyText(input);
  memories.target.Fill(0x5A);
  UniChar* const source = memories.target.Put(text, AnyGap(input));
  const Bytes before = memories.target.Content();
  const std::size_t distance = input.Byte();
  const std::size_t offset = memories.target.OffsetOf(source) - distance;
  auto* const target = reinterpret_cast<UniChar*>(reinterpret_cast<std::uint8_t*>(source) - distance);
  if (input.Flag()) {
    bx_strcpy(target, source);
    Require(memories.target.Content() == With(before, offset, {text.c_str(), text.size() + 1}),
            "a text may be copied to a lower address that it reaches");
    return;
  }
  const std::size_t count = input.Word() % (text.size() + 2);
  bx_strncpy(target, source, count);
  Require(memories.target.Content() == With(before, offset, {text.c_str(), count}),
          "units may be copied to a lower address that they reach");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const Memories memories;
  static constexpr void (*kChecks[])(Input&, const Memories&) = {CheckSearches, CheckComparisons, CheckCopies,
                                                                 CheckAppends, CheckOverlaps};
  Input input(bytes, size);
  while (!input.IsAtEnd()) kChecks[input.Below(std::size(kChecks))](input, memories);
  return 0;
}
