// Texts with tags of any kind, stripped, against the rule for texts of the standard library.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/support/input.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"
#include "textblocks.h"

namespace {

constexpr std::u16string_view kFlat = u"^flat()";

std::u16string AnyText(Input& input) {
  constexpr const char16_t* kPieces[] = {u"^",    u"(",        u")",  u"^flat()", u"^font(Times,0)",
                                         u"flat", u"^flat(1)", u"((", u"a"};
  std::u16string text;
  while (!input.IsAtEnd()) {
    const auto number = static_cast<std::size_t>(input.Byte());
    if (number < std::size(kPieces)) {
      text += kPieces[number];
    } else {
      text += number < 240 ? static_cast<char16_t>(number) : static_cast<char16_t>(input.Word() | 1);
    }
  }
  return text;
}

// Null for a text with a caret that opens no complete tag: the call does not return from that.
std::optional<std::u16string> Stripped(std::u16string text) {
  std::size_t caret = 0;
  while ((caret = text.find(u'^', caret)) != std::u16string::npos) {
    const bool isFlat = text.substr(caret, kFlat.size()) == kFlat;
    const std::size_t open = text.find(u'(', caret);
    const std::size_t close = open == std::u16string::npos ? open : text.find(u')', open);
    if (close == std::u16string::npos) return std::nullopt;
    text.replace(caret, close + 1 - caret, isFlat ? u"b" : u"");
    if (isFlat) ++caret;
  }
  return text;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  Input input(bytes, size);
  const std::u16string text = AnyText(input);
  const auto expected = Stripped(text);
  if (!expected) return 0;
  std::vector<UniChar> units(text.begin(), text.end());
  units.push_back(0);
  BXUtilStripTextTags(units.data());
  const auto end = std::ranges::find(units, UniChar{0});
  Require(std::equal(units.begin(), end, expected->begin(), expected->end()), "a text is stripped of its tags");
  return 0;
}
