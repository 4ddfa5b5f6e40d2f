#include "host/bundle/textsfile.h"

#include <CoreFoundation/CoreFoundation.h>
#include <brvplatform.h>

#include "host/text/utf8.h"

namespace brvhost {

std::optional<std::map<std::string, std::string>> TextsIn(const std::string& file) {
  using Texts = std::map<std::string, std::string>;
  Texts texts;
  const auto keep = [](void* context, CFStringRef key, CFStringRef text) {
    if (text != nullptr) static_cast<Texts*>(context)->emplace(Utf8FromString(key), Utf8FromString(text));
  };
  if (!BrvPlatformReadPropertyList(file.c_str(), keep, &texts)) return std::nullopt;
  return texts;
}

}  // namespace brvhost
