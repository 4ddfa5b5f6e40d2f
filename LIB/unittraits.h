// What std::basic_string needs to know about UTF-16 units. The standard library has traits only for its own character
// types, and a unit is not one of them.
#pragma once

#include <cstddef>
#include <cstring>
#include <cwchar>
#include <ios>

#include "bxstring.h"

// Visible because a member of a visible class uses it.
struct BRV_EXPORT UnitTraits {
  typedef UniChar char_type;
  typedef int int_type;
  typedef std::streamoff off_type;
  typedef std::streampos pos_type;
  typedef std::mbstate_t state_type;

  static constexpr void assign(char_type& to, const char_type& unit) noexcept { to = unit; }
  static constexpr bool eq(char_type a, char_type b) noexcept { return a == b; }
  static constexpr bool lt(char_type a, char_type b) noexcept { return a < b; }

  static constexpr int compare(const char_type* a, const char_type* b, std::size_t count) {
    for (; count != 0; --count, ++a, ++b) {
      if (*a != *b) return *a < *b ? -1 : 1;
    }
    return 0;
  }
  static std::size_t length(const char_type* text) { return bx_strlen(text); }
  static constexpr const char_type* find(const char_type* text, std::size_t count, const char_type& unit) {
    for (; count != 0; --count, ++text) {
      if (*text == unit) return text;
    }
    return nullptr;
  }
  static char_type* move(char_type* to, const char_type* from, std::size_t count) {
    if (count != 0) std::memmove(to, from, count * sizeof(char_type));
    return to;
  }
  static char_type* copy(char_type* to, const char_type* from, std::size_t count) { return move(to, from, count); }
  static constexpr char_type* assign(char_type* to, std::size_t count, char_type unit) {
    for (std::size_t i = 0; i < count; ++i) to[i] = unit;
    return to;
  }

  static constexpr int_type eof() noexcept { return -1; }
  static constexpr int_type not_eof(int_type unit) noexcept { return unit == eof() ? 0 : unit; }
  static constexpr char_type to_char_type(int_type unit) noexcept { return static_cast<char_type>(unit); }
  static constexpr int_type to_int_type(char_type unit) noexcept { return unit; }
  static constexpr bool eq_int_type(int_type a, int_type b) noexcept { return a == b; }
};
