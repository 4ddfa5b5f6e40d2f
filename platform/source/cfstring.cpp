#include "cfstring.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <utility>

#include "boundary.h"
#include "textencoding.h"

using namespace brvplatform;

namespace {

bool IsAscii(std::u16string_view text) {
  return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

// Before a number and after its sign, control characters and all kinds of spaces count as blank.
bool IsBlank(char16_t unit) {
  return unit <= u' ' || (unit >= 0x7F && unit <= 0xA0) || (unit >= 0x2000 && unit <= 0x200B) || unit == 0x3000;
}

std::size_t SkipBlanks(std::u16string_view text, std::size_t at) {
  while (at < text.size() && IsBlank(text[at])) ++at;
  return at;
}

}  // namespace

namespace brvplatform {

CFStringRef NewString(std::u16string units) { return RefOf(*new String(std::move(units))); }

std::u16string_view UnitsOf(CFStringRef string) { return static_cast<const String&>(ObjectOf(string)).Units(); }

bool IsString(CFTypeRef object) { return object != nullptr && CFGetTypeID(object) == kStringType; }

}  // namespace brvplatform

CFTypeID CFStringGetTypeID() { return kStringType; }

CFStringRef CFStringCreateWithCString(CFAllocatorRef, const char* text, CFStringEncoding encoding) {
  return OrNothing([&] {
    std::optional<std::u16string> units = Decode(text, encoding);
    return units ? NewString(std::move(*units)) : nullptr;
  });
}

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar* units, CFIndex count) {
  return OrNothing([&] { return NewString(std::u16string(units, units + count)); });
}

CFIndex CFStringGetLength(CFStringRef string) { return static_cast<CFIndex>(UnitsOf(string).size()); }

void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar* units) {
  std::copy_n(UnitsOf(string).begin() + range.location, range.length, units);
}

CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding encoding, UInt8 lossByte, Boolean,
                         UInt8* buffer, CFIndex bufferSize, CFIndex* usedSize) {
  if (usedSize != nullptr) *usedSize = 0;
  return OrNothing([&] {
    const std::u16string_view text =
        UnitsOf(string).substr(static_cast<std::size_t>(range.location), static_cast<std::size_t>(range.length));
    const std::size_t capacity = buffer == nullptr ? SIZE_MAX : static_cast<std::size_t>(bufferSize);
    const Encoded encoded = EncodeInto(text, encoding, lossByte, capacity);
    if (buffer != nullptr) std::copy(encoded.bytes.begin(), encoded.bytes.end(), buffer);
    if (usedSize != nullptr) *usedSize = static_cast<CFIndex>(encoded.bytes.size());
    return static_cast<CFIndex>(encoded.units);
  });
}

Boolean CFStringGetPascalString(CFStringRef string, StringPtr buffer, CFIndex bufferSize, CFStringEncoding encoding) {
  constexpr std::size_t kMaxPascalLength = 255;
  const std::u16string_view text = UnitsOf(string);
  if (bufferSize < 1 || text.size() > kMaxPascalLength) return false;
  const std::size_t capacity = std::min(static_cast<std::size_t>(bufferSize - 1), kMaxPascalLength);
  // The system copies a plain text whole or not at all, and converts any other as far as it goes.
  if (IsAscii(text) && text.size() > capacity) return false;
  return OrNothing([&] {
    const Encoded encoded = EncodeInto(text, encoding, 0, capacity);
    const bool whole = encoded.units == text.size();
    // A text that does not convert leaves its beginning in the buffer, but no length.
    std::copy(encoded.bytes.begin(), encoded.bytes.end(), buffer + 1);
    buffer[0] = whole ? static_cast<unsigned char>(encoded.bytes.size()) : 0;
    return whole;
  });
}

Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex bufferSize, CFStringEncoding encoding) {
  if (bufferSize < 1) return false;
  return OrNothing([&] {
    const std::u16string_view text = UnitsOf(string);
    const Encoded encoded = EncodeInto(text, encoding, 0, static_cast<std::size_t>(bufferSize - 1));
    if (encoded.units < text.size()) return false;
    buffer[encoded.bytes.copy(buffer, encoded.bytes.size())] = '\0';
    return true;
  });
}

CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding) {
  const CFIndex bytesPerUnit = MaximumBytesPerUnit(encoding);
  return length > INT64_MAX / bytesPerUnit ? -1 : length * bytesPerUnit;
}

SInt32 CFStringGetIntValue(CFStringRef string) {
  constexpr std::int64_t kPastEnd = std::int64_t{INT32_MAX} + 1;
  const std::u16string_view text = UnitsOf(string);
  std::size_t at = SkipBlanks(text, 0);
  const bool negative = at < text.size() && text[at] == u'-';
  if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) at = SkipBlanks(text, at + 1);
  std::int64_t value = 0;
  for (; at < text.size() && IsDigit(text[at]); ++at) value = std::min(value * 10 + (text[at] - u'0'), kPastEnd);
  return static_cast<SInt32>(negative ? -value : std::min(value, kPastEnd - 1));
}

CFComparisonResult CFStringCompare(CFStringRef a, CFStringRef b, CFStringCompareFlags) {
  const int order = UnitsOf(a).compare(UnitsOf(b));
  return order < 0 ? kCFCompareLessThan : order > 0 ? kCFCompareGreaterThan : kCFCompareEqualTo;
}

CFStringRef __CFStringMakeConstantString(const char* text) {
  return OrNothing([&]() -> CFStringRef {
    static std::map<std::string, String, std::less<>> constants;
    const auto known = constants.find(text);
    if (known != constants.end()) return RefOf(known->second);
    std::optional<std::u16string> units = Decode(text, kCFStringEncodingUTF8);
    return units ? RefOf(constants.try_emplace(text, std::move(*units)).first->second) : nullptr;
  });
}
