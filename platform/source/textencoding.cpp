#include "textencoding.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstddef>

#include "codepages.h"
#include "utf.h"

namespace brvplatform {
namespace {

constexpr UpperHalf MakeLatin1() {
  UpperHalf half{};
  for (std::size_t i = 0; i < half.size(); ++i) half[i] = static_cast<char16_t>(0x80 + i);
  return half;
}

constexpr UpperHalf kLatin1 = MakeLatin1();

// The upper half that bytes are read with. ASCII reads as Latin 1, though it writes only its own 128 characters.
const UpperHalf* ReadingHalf(CFStringEncoding encoding) {
  switch (encoding) {
    case kCFStringEncodingMacRoman:
      return &kMacRoman;
    case kCFStringEncodingWindowsLatin1:
      return &kWindowsLatin1;
    case kCFStringEncodingISOLatin1:
    case kCFStringEncodingASCII:
      return &kLatin1;
    default:
      return nullptr;
  }
}

std::optional<std::u16string> DecodeBytes(std::string_view bytes, const UpperHalf& upper) {
  std::u16string units;
  units.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const char16_t unit = byte < 0x80 ? byte : upper[byte - 0x80];
    if (unit == 0 && byte != 0) return std::nullopt;
    units.push_back(unit);
  }
  return units;
}

bool IsCombining(char16_t unit) {
  constexpr char16_t kFirstVariationSelector = 0xFE00;
  constexpr char16_t kLastVariationSelector = 0xFE0F;
  if (unit >= kFirstVariationSelector && unit <= kLastVariationSelector) return false;
  return u_charType(unit) == U_NON_SPACING_MARK || u_charType(unit) == U_ENCLOSING_MARK;
}

// The number of units from `at` on that are encoded together: a character and the marks that combine with it.
std::size_t ClusterLength(std::u16string_view text, std::size_t at) {
  std::size_t end = at + 1;
  if (IsCombining(text[at])) return 1;
  while (end < text.size() && IsCombining(text[end])) ++end;
  return end - at;
}

// The single unit of a character and its mark, if there is one.
std::optional<char16_t> Composed(std::u16string_view cluster) {
  constexpr char16_t kOhm = 0x2126;
  constexpr char16_t kOmega = 0x03A9;
  if (cluster.size() == 1) return cluster[0] == kOhm ? kOmega : cluster[0];
  UErrorCode error = U_ZERO_ERROR;
  const icu::Normalizer2* nfc = icu::Normalizer2::getNFCInstance(error);
  if (U_FAILURE(error)) return std::nullopt;
  const icu::UnicodeString composed =
      nfc->normalize(icu::UnicodeString(cluster.data(), static_cast<int32_t>(cluster.size())), error);
  if (U_FAILURE(error) || composed.length() != 1) return std::nullopt;
  return composed[0];
}

std::optional<char> ByteOf(char16_t unit, const UpperHalf& upper) {
  const auto found = std::find(upper.begin(), upper.end(), unit);
  if (found == upper.end()) return std::nullopt;
  return static_cast<char>(0x80 + (found - upper.begin()));
}

std::optional<char> ByteOfCluster(std::u16string_view cluster, const UpperHalf& upper) {
  if (cluster.size() == 1 && cluster[0] < 0x80) return static_cast<char>(cluster[0]);
  const std::optional<char16_t> unit = Composed(cluster);
  return unit ? ByteOf(*unit, upper) : std::nullopt;
}

Encoded EncodeAscii(std::u16string_view text, unsigned char lossByte, std::size_t capacity) {
  Encoded result;
  for (; result.units < text.size() && result.units < capacity; ++result.units) {
    const char16_t unit = text[result.units];
    if (unit >= 0x80 && lossByte == 0) break;
    result.bytes.push_back(static_cast<char>(unit < 0x80 ? unit : lossByte));
  }
  return result;
}

Encoded EncodeBytes(std::u16string_view text, const UpperHalf& upper, unsigned char lossByte, std::size_t capacity) {
  Encoded result;
  while (result.units < text.size() && result.bytes.size() < capacity) {
    const std::size_t length = ClusterLength(text, result.units);
    const std::optional<char> byte = ByteOfCluster(text.substr(result.units, std::min<std::size_t>(length, 2)), upper);
    if (!byte && lossByte == 0) break;
    result.bytes.push_back(byte.value_or(static_cast<char>(lossByte)));
    if (byte && length > 2) {
      // The system's conversion ends at a second mark on a character that it could encode with the first.
      result.units += 2;
      break;
    }
    result.units += length;
  }
  return result;
}

}  // namespace

std::optional<std::u16string> Decode(std::string_view bytes, CFStringEncoding encoding) {
  switch (encoding) {
    case kCFStringEncodingUTF8:
      return DecodeUtf8(bytes);
    case kCFStringEncodingUTF16:
      return DecodeUtf16(bytes);
    case kCFStringEncodingUTF16BE:
      return DecodeUtf16Units(bytes, true);
    case kCFStringEncodingUTF16LE:
      return DecodeUtf16Units(bytes, false);
    default:
      break;
  }
  const UpperHalf* upper = ReadingHalf(encoding);
  return upper == nullptr ? std::nullopt : DecodeBytes(bytes, *upper);
}

Encoded EncodeInto(std::u16string_view text, CFStringEncoding encoding, unsigned char lossByte, std::size_t capacity) {
  switch (encoding) {
    case kCFStringEncodingUTF8:
      return EncodeUtf8(text, capacity);
    case kCFStringEncodingUTF16:
    case kCFStringEncodingUTF16LE:
      return EncodeUtf16(text, false, capacity);
    case kCFStringEncodingUTF16BE:
      return EncodeUtf16(text, true, capacity);
    case kCFStringEncodingASCII:
      return EncodeAscii(text, lossByte, capacity);
    default:
      break;
  }
  const UpperHalf* upper = ReadingHalf(encoding);
  return upper == nullptr ? Encoded{} : EncodeBytes(text, *upper, lossByte, capacity);
}

std::string Encode(std::u16string_view text, CFStringEncoding encoding) {
  constexpr unsigned char kLossByte = '?';
  std::string bytes;
  while (!text.empty()) {
    const Encoded part = EncodeInto(text, encoding, kLossByte, SIZE_MAX);
    bytes += part.bytes;
    text.remove_prefix(part.units);
    if (text.empty()) break;
    bytes.push_back(static_cast<char>(kLossByte));  // a lone surrogate
    text.remove_prefix(1);
  }
  return bytes;
}

CFIndex MaximumBytesPerUnit(CFStringEncoding encoding) {
  switch (encoding) {
    case kCFStringEncodingUTF8:
      return 3;
    case kCFStringEncodingUTF16:
    case kCFStringEncodingUTF16BE:
    case kCFStringEncodingUTF16LE:
      return 2;
    default:
      return 1;
  }
}

}  // namespace brvplatform
