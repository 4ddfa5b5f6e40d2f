#include "host/bundle/textsfile.h"

#include <CoreFoundation/CoreFoundation.h>

#include <fstream>
#include <iterator>

#include "host/text/cfowner.h"
#include "host/text/utf8.h"

namespace brvhost {

std::optional<std::map<std::string, std::string>> TextsIn(const std::string& file) {
  using Texts = std::map<std::string, std::string>;
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::nullopt;
  const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
  const Owned<CFDataRef> data(
      CFDataCreate(nullptr, reinterpret_cast<const UInt8*>(bytes.data()), static_cast<CFIndex>(bytes.size())));
  const Owned<CFPropertyListRef> list(
      data ? CFPropertyListCreateWithData(nullptr, data.Get(), kCFPropertyListImmutable, nullptr, nullptr) : nullptr);
  if (!list || CFGetTypeID(list.Get()) != CFDictionaryGetTypeID()) return std::nullopt;
  Texts texts;
  const auto keep = [](const void* key, const void* text, void* context) {
    if (CFGetTypeID(text) != CFStringGetTypeID()) return;
    static_cast<Texts*>(context)->emplace(Utf8FromString(static_cast<CFStringRef>(key)),
                                          Utf8FromString(static_cast<CFStringRef>(text)));
  };
  CFDictionaryApplyFunction(static_cast<CFDictionaryRef>(list.Get()), keep, &texts);
  return texts;
}

}  // namespace brvhost
