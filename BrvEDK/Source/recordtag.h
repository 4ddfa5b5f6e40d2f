// Tags of document records: four characters, the first in the most significant byte.
#pragma once

#include <cstdint>

// Returns the tag of four characters: RecordTag("pfDP") is 0x70664450.
constexpr std::uint32_t RecordTag(const char (&text)[5]) {
  std::uint32_t tag = 0;
  for (int i = 0; i < 4; ++i) tag = tag << 8 | static_cast<unsigned char>(text[i]);
  return tag;
}
