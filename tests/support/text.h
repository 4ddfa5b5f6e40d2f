// UTF-16 text in tests.
#pragma once

#include <algorithm>
#include <string>

#include "hostrecords.h"

// The units up to the first 0.
inline std::u16string TextOf(const UniChar* units) {
  std::u16string text;
  for (; *units != 0; ++units) text.push_back(static_cast<char16_t>(*units));
  return text;
}
