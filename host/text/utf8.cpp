#include "host/text/utf8.h"

#include <Carbon/Carbon.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <vector>

#include "host/text/cfowner.h"

namespace brvhost {

std::string Utf8FromUnits(const UniChar* units, std::size_t limit) {
  const auto length = static_cast<int32_t>(std::find(units, units + limit, 0) - units);
  std::string text;
  icu::UnicodeString(reinterpret_cast<const char16_t*>(units), length).toUTF8String(text);
  return text;
}

std::string Utf8FromUnits(const UniChar* zeroTerminated) {
  std::size_t length = 0;
  while (zeroTerminated[length] != 0) ++length;
  return Utf8FromUnits(zeroTerminated, length);
}

std::string Utf8FromString(CFStringRef string) {
  std::vector<UniChar> units(static_cast<std::size_t>(CFStringGetLength(string)));
  CFStringGetCharacters(string, CFRangeMake(0, static_cast<CFIndex>(units.size())), units.data());
  return Utf8FromUnits(units.data(), units.size());
}

std::string Utf8FromApplicationText(const char* text) {
  const Owned<CFStringRef> string(CFStringCreateWithCString(nullptr, text, GetApplicationTextEncoding()));
  return string ? Utf8FromString(string.Get()) : text;
}

}  // namespace brvhost
