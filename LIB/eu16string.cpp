#include "eu16string.h"

#include <Carbon/Carbon.h>
#include <CoreFoundation/CoreFoundation.h>

#include <cstdio>
#include <memory>
#include <type_traits>
#include <vector>

namespace {

struct ReleaseString {
  void operator()(CFStringRef string) const { CFRelease(string); }
};
typedef std::unique_ptr<std::remove_pointer_t<CFStringRef>, ReleaseString> StringHolder;

template <class Units>
StringHolder StringOf(const Units& units) {
  return StringHolder(
      CFStringCreateWithCharacters(kCFAllocatorDefault, units.data(), static_cast<CFIndex>(units.size())));
}

// Appends the text of the bytes, up to its first 0 unit; nothing if they are not text in the encoding.
template <class Units>
void AppendConverted(Units& units, const char* text, CFStringEncoding encoding) {
  const StringHolder string(CFStringCreateWithCString(kCFAllocatorDefault, text, encoding));
  if (!string) return;
  const CFIndex length = CFStringGetLength(string.get());
  std::vector<UniChar> converted(static_cast<std::size_t>(length) + 1);
  CFStringGetCharacters(string.get(), CFRangeMake(0, length), converted.data());
  units.append(converted.data());
}

}  // namespace

eu16string::eu16string(const char* text) { AppendConverted(units_, text, GetApplicationTextEncoding()); }

eu16string::eu16string(const unsigned char* utf8Text) {
  AppendConverted(units_, reinterpret_cast<const char*>(utf8Text), kCFStringEncodingUTF8);
}

eu16string::eu16string(unsigned int codePoint) {
  if (codePoint >= 0x10000 && codePoint <= 0x10FFFF) {
    units_.push_back(static_cast<UniChar>(0xD800 + ((codePoint - 0x10000) >> 10)));
    units_.push_back(static_cast<UniChar>(0xDC00 | (codePoint & 0x3FF)));
    return;
  }
  // Compatibility: a value that is no code point is cut to 16 bits. Extensions pass single units of surrogate pairs,
  // and units with their sign. A text given as units ends at its first 0, and so does this one.
  const UniChar unit = static_cast<UniChar>(codePoint);
  if (unit != 0) units_.push_back(unit);
}

eu16string::eu16string(char character) {
  const char text[] = {character, 0};
  AppendConverted(units_, text, GetApplicationTextEncoding());
}

eu16string::eu16string(const eu16string&) = default;

eu16string::eu16string(eu16string&&) noexcept = default;

eu16string& eu16string::operator=(const eu16string&) = default;

eu16string& eu16string::operator=(eu16string&&) noexcept = default;

eu16string::~eu16string() = default;

void eu16string::GetStdString(std::string& text) const {
  text.clear();
  const StringHolder string = StringOf(units_);
  if (!string) return;
  const CFStringEncoding encoding = GetApplicationTextEncoding();
  const CFIndex length = CFStringGetLength(string.get());
  const CFIndex capacity = CFStringGetMaximumSizeForEncoding(length, encoding);
  std::vector<UInt8> bytes(static_cast<std::size_t>(capacity) + 1);
  CFIndex used = 0;
  CFStringGetBytes(string.get(), CFRangeMake(0, length), encoding, '?', false, bytes.data(), capacity + 1, &used);
  bytes[static_cast<std::size_t>(used < 0 || used > capacity ? capacity : used)] = 0;
  text = reinterpret_cast<const char*>(bytes.data());
}

int32 eu16string::AnsiPos(const eu16string& other) const {
  if (units_.empty()) return 0;
  const Units::size_type place = units_.find(other.units_);
  return place == Units::npos ? 0 : static_cast<int32>(place + 1);
}

eu16string& eu16string::AnsiDelete(std::uint32_t index, std::int32_t count) {
  if (index == 0 || count < 1 || index > units_.size()) return *this;
  units_.erase(index - 1, static_cast<Units::size_type>(count));
  return *this;
}

// Compatibility: a start below 1 is taken as 1, where AnsiDelete leaves the text alone. Extensions take the beginning
// of a text with a start of 0, and delete at 0 what they have not found.
eu16string eu16string::AnsiSubString(std::int32_t start, std::int32_t count) const {
  eu16string part(0u);
  const Units::size_type first = start < 1 ? 1 : static_cast<Units::size_type>(start);
  if (count < 1 || first > units_.size()) return part;
  part.units_ = units_.substr(first - 1, static_cast<Units::size_type>(count));
  return part;
}

eu16string& eu16string::AnsiSetLength(std::uint32_t length) {
  if (length < units_.size()) units_.erase(length);
  return *this;
}

UniChar eu16string::AnsiCharAtIndex(std::int32_t index) const {
  constexpr UniChar kSpace = 32;
  if (index < 1 || static_cast<Units::size_type>(index) > units_.size()) return kSpace;
  return units_[static_cast<Units::size_type>(index) - 1];
}

// Compatibility: outside of the text this is its first unit, also for writing. Extensions count on every index giving a
// unit of the text itself, and take the address of its units in this way.
UniChar& eu16string::AnsiCharAtIndex(std::int32_t index) {
  const bool inside = index >= 1 && static_cast<Units::size_type>(index) <= units_.size();
  return units_.data()[inside ? index - 1 : 0];
}

// Compatibility: the default is for an empty text alone; a text that is no number gives 0. Extensions read optional
// fields of dialogs with it, where only an empty field means the default.
int32 StrToIntDef(eu16string text, int32 defaultValue) {
  if (text.units_.empty()) return defaultValue;
  const StringHolder string = StringOf(text.units_);
  return string ? CFStringGetIntValue(string.get()) : defaultValue;
}

eu16string IntToEu16Str(long value) {
  char digits[32];
  std::snprintf(digits, sizeof(digits), "%ld", value);
  return eu16string(digits);
}
