#include <cctype>
#include <charconv>
#include <cstddef>
#include <cstdint>

#include "portable.h"

namespace {

// Compatibility: bytes are signed, so that those from 0x80 up come before all others. Lists in documents are sorted in
// that order.
int UpperCase(char byte) { return static_cast<signed char>(std::toupper(static_cast<unsigned char>(byte))); }

}  // namespace

int stricmp(const char* a, const char* b) { return strnicmp(a, b, SIZE_MAX); }

int strnicmp(const char* a, const char* b, std::size_t count) {
  for (; count > 0; ++a, ++b, --count) {
    const int difference = UpperCase(*a) - UpperCase(*b);
    if (difference != 0) return difference < 0 ? -1 : 1;
    if (*a == '\0') return 0;
  }
  return 0;
}

int num2str(int value, char* buffer) {
  constexpr int kMaxCharacters = 11;
  char* const end = std::to_chars(buffer, buffer + kMaxCharacters, value).ptr;
  *end = '\0';
  return static_cast<int>(end - buffer);
}
