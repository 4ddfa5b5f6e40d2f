#include "host/text/printable.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace brvhost {
namespace {

bool IsPlain(std::string_view text) {
  return std::ranges::all_of(text, [](unsigned char byte) { return byte >= 0x20 && byte < 0x7F; });
}

// Of the format characters those count that turn the direction of the text around them.
bool IsObeyed(UChar32 character) {
  const auto category = u_charType(character);
  return category == U_CONTROL_CHAR || category == U_LINE_SEPARATOR || category == U_PARAGRAPH_SEPARATOR ||
         (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
}

}  // namespace

std::string Printable(std::string_view text) {
  if (IsPlain(text)) return std::string(text);
  const auto units = icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<int32_t>(text.size())));
  icu::UnicodeString shown;
  for (int32_t i = 0; i < units.length(); i = units.moveIndex32(i, 1)) {
    const UChar32 character = units.char32At(i);
    shown.append(IsObeyed(character) ? UChar32{' '} : character);
  }
  std::string bytes;
  shown.toUTF8String(bytes);
  return bytes;
}

std::string Excerpt(std::string_view text) {
  constexpr std::size_t kMaxCharacters = 60;
  constexpr std::size_t kMaxBytes = 4 * kMaxCharacters;
  const auto isFirst = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; };
  std::string shown = Printable(text.substr(0, kMaxBytes + 1));
  std::size_t end = 0;
  for (std::size_t characters = 0; end < shown.size(); ++end) {
    if (isFirst(shown[end]) && characters++ == kMaxCharacters) break;
  }
  if (end == shown.size() && text.size() <= kMaxBytes) return shown;
  shown.resize(end);
  return shown + "...";
}

}  // namespace brvhost
