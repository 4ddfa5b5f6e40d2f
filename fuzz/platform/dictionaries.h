// Dictionaries of property lists, to compare them.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <map>
#include <optional>
#include <string>

#include "platform/source/cfstring.h"
#include "platform/source/propertylist.h"

namespace brvplatform {

// The texts by key; null for a value that is no text.
using Texts = std::map<std::u16string, std::optional<std::u16string>>;

inline Texts TextsOf(const Dictionary& dictionary) {
  Texts texts;
  for (const auto& [key, value] : dictionary) {
    texts[key] = IsString(value.Get()) ? std::optional(std::u16string(UnitsOf(static_cast<CFStringRef>(value.Get()))))
                                       : std::nullopt;
  }
  return texts;
}

inline std::optional<Texts> TextsIn(std::string_view bytes) {
  const auto dictionary = ParsePropertyList(bytes);
  return dictionary ? std::optional(TextsOf(*dictionary)) : std::nullopt;
}

}  // namespace brvplatform
