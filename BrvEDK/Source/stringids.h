// String IDs, which identify an extension's localized texts: the number of a table in the high half, an index in the
// low half. Both are signed 16-bit numbers.
#pragma once

#include <cstdio>

#include "hosttypes.h"
#include "integerclasses.h"

// Returns the ID of a text: StringID(20000, 1) is 0x4E200001. Of both numbers the low 16 bits count.
constexpr int32 StringID(int table, int index) {
  return static_cast<int32>(static_cast<uint32>(table) << 16 | static_cast<std::uint16_t>(index));
}

// Returns the number of the table, -32768 to 32767.
constexpr int StringTable(int32 id) { return SignExtend16(id >> 16); }

// Returns the index in the table, -32768 to 32767.
constexpr int StringIndex(int32 id) { return SignExtend16(id); }

// The key of a text in Localizable.strings: "20000,1", or only the index for table 0.
//
// Example: StringKey(0x4E200001).text is "20000,1".
struct StringKey {
  // The key of the text with this ID.
  explicit StringKey(int32 id) {
    if (StringTable(id) == 0) {
      std::snprintf(text, sizeof(text), "%d", StringIndex(id));
    } else {
      std::snprintf(text, sizeof(text), "%d,%d", StringTable(id), StringIndex(id));
    }
  }

  char text[sizeof("-32768,-32768")];  // the key, ended by a zero
};
