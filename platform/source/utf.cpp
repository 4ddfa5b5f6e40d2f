#include "utf.h"

#include <algorithm>
#include <cstddef>

namespace brvplatform {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

// A sequence, as known from its first byte.
struct Sequence {
  int length = 0;  // 0: not a first byte
  char32_t bits = 0;
  char32_t least = 0;  // smaller code points have shorter sequences
};

Sequence SequenceOf(unsigned char first) {
  if (first < 0x80) return {1, first, 0};
  if (first >= 0xC0 && first < 0xE0) return {2, first & 0x1Fu, 0x80};
  if (first >= 0xE0 && first < 0xF0) return {3, first & 0x0Fu, 0x800};
  if (first >= 0xF0 && first < 0xF8) return {4, first & 0x07u, 0x10000};
  return {};
}

std::optional<char32_t> CodePointOf(std::string_view bytes, const Sequence& sequence) {
  if (sequence.length == 0 || bytes.size() < static_cast<std::size_t>(sequence.length)) return std::nullopt;
  char32_t codePoint = sequence.bits;
  for (int i = 1; i < sequence.length; ++i) {
    const auto byte = static_cast<unsigned char>(bytes[static_cast<std::size_t>(i)]);
    if ((byte & 0xC0) != 0x80) return std::nullopt;
    codePoint = codePoint << 6 | (byte & 0x3Fu);
  }
  if (codePoint < sequence.least || codePoint > 0x10FFFF || IsSurrogate(codePoint)) return std::nullopt;
  return codePoint;
}

void AppendUtf8(char32_t codePoint, std::string& bytes) {
  const auto push = [&bytes](char32_t byte) { bytes.push_back(static_cast<char>(byte)); };
  if (codePoint < 0x80) return push(codePoint);
  if (codePoint < 0x800) {
    push(0xC0 | codePoint >> 6);
  } else if (codePoint < 0x10000) {
    push(0xE0 | codePoint >> 12);
    push(0x80 | (codePoint >> 6 & 0x3F));
  } else {
    push(0xF0 | codePoint >> 18);
    push(0x80 | (codePoint >> 12 & 0x3F));
    push(0x80 | (codePoint >> 6 & 0x3F));
  }
  push(0x80 | (codePoint & 0x3F));
}

struct TextPoint {
  char32_t codePoint;
  std::size_t units;
};

std::optional<TextPoint> PointAt(std::u16string_view text, std::size_t at) {
  const char16_t unit = text[at];
  if (!IsSurrogate(unit)) return TextPoint{unit, 1};
  if (!IsHighSurrogate(unit) || at + 1 == text.size() || !IsLowSurrogate(text[at + 1])) return std::nullopt;
  return TextPoint{0x10000u + ((unit - 0xD800u) << 10) + (text[at + 1] - 0xDC00u), 2};
}

}  // namespace

void AppendCodePoint(char32_t codePoint, std::u16string& units) {
  if (codePoint < 0x10000) {
    units.push_back(static_cast<char16_t>(codePoint));
    return;
  }
  units.push_back(static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10)));
  units.push_back(static_cast<char16_t>(0xDC00 | (codePoint & 0x3FF)));
}

std::optional<std::u16string> DecodeUtf8(std::string_view bytes) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  std::u16string units;
  units.reserve(bytes.size());
  while (!bytes.empty()) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    // Old copyright lines have the sign as one byte; the system replaces it by a mark.
    if (first == 0xA9) {
      units.push_back(kReplacement);
      bytes.remove_prefix(1);
      continue;
    }
    const Sequence sequence = SequenceOf(first);
    const std::optional<char32_t> codePoint = CodePointOf(bytes, sequence);
    if (!codePoint) return std::nullopt;
    AppendCodePoint(*codePoint, units);
    bytes.remove_prefix(static_cast<std::size_t>(sequence.length));
  }
  return units;
}

std::optional<std::u16string> DecodeUtf16(std::string_view bytes) {
  if (bytes.starts_with("\xFE\xFF")) return DecodeUtf16Units(bytes.substr(2), true);
  if (bytes.starts_with("\xFF\xFE")) return DecodeUtf16Units(bytes.substr(2), false);
  return DecodeUtf16Units(bytes, false);
}

std::optional<std::u16string> DecodeUtf16Units(std::string_view bytes, bool bigEndian) {
  std::u16string units;
  units.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    units.push_back(static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first));
  }
  return units;
}

std::optional<std::u16string> DecodeUtf32(std::string_view bytes, bool bigEndian) {
  if (bytes.size() % 4 != 0) return std::nullopt;
  std::u16string units;
  for (; !bytes.empty(); bytes.remove_prefix(4)) {
    char32_t codePoint = 0;
    for (std::size_t i = 0; i < 4; ++i) {
      codePoint = codePoint << 8 | static_cast<unsigned char>(bytes[bigEndian ? i : 3 - i]);
    }
    if (codePoint > 0x10FFFF || IsSurrogate(codePoint)) return std::nullopt;
    AppendCodePoint(codePoint, units);
  }
  return units;
}

Encoded EncodeUtf8(std::u16string_view text, std::size_t capacity) {
  Encoded result;
  while (result.units < text.size()) {
    const std::optional<TextPoint> point = PointAt(text, result.units);
    if (!point) break;
    const std::size_t before = result.bytes.size();
    AppendUtf8(point->codePoint, result.bytes);
    if (result.bytes.size() > capacity) {
      result.bytes.resize(before);
      break;
    }
    result.units += point->units;
  }
  return result;
}

Encoded EncodeUtf16(std::u16string_view text, bool bigEndian, std::size_t capacity) {
  Encoded result;
  result.units = std::min(text.size(), capacity / 2);
  for (const char16_t unit : text.substr(0, result.units)) {
    const char high = static_cast<char>(unit >> 8);
    const char low = static_cast<char>(unit & 0xFF);
    result.bytes.push_back(bigEndian ? high : low);
    result.bytes.push_back(bigEndian ? low : high);
  }
  return result;
}

}  // namespace brvplatform
