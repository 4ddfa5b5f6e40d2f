// UTF-16 text in the tests: literals as units, and plain models of the functions over them.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>

#include "bxstring.h"

inline const UniChar* Units(const char16_t* text) { return reinterpret_cast<const UniChar*>(text); }

// The units before the first 0, at any address.
inline std::u16string TextAt(const UniChar* units) {
  std::u16string text;
  for (;; ++units) {
    char16_t unit;
    std::memcpy(&unit, units, sizeof(unit));
    if (unit == 0) return text;
    text.push_back(unit);
  }
}
