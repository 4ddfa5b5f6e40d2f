// The units of an eu16string, and texts made of units, made by the class's own operations.
#pragma once

#include <string>

#include "eu16string.h"

inline eu16string FromUtf8(const char* text) { return eu16string(reinterpret_cast<const unsigned char*>(text)); }

inline bool IsEmpty(const eu16string& text) { return text.AnsiPos(eu16string(0u)) == 0; }

// All units up to the last one inside: every index after it gives the first unit.
inline std::u16string UnitsOf(eu16string text) {
  std::u16string units;
  if (IsEmpty(text)) return units;
  const UniChar* first = &text.AnsiCharAtIndex(1);
  units.push_back(*first);
  for (int index = 2; &text.AnsiCharAtIndex(index) != first; ++index) units.push_back(text.AnsiCharAtIndex(index));
  return units;
}
