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
  // The types that std::char_traits has to have.
  typedef UniChar char_type;
  typedef int int_type;
  typedef std::streamoff off_type;
  typedef std::streampos pos_type;
  typedef std::mbstate_t state_type;

  // The functions that std::char_traits has to have, with its meanings. Units are compared as unsigned numbers.
  static constexpr void assign(char_type& to, const char_type& unit) noexcept { to = unit; }
  static constexpr bool eq(char_type a, char_type b) noexcept { return a == b; }
  static constexpr bool lt(char_type a, char_type b) noexcept { return a < b; }

  // Compares the first count units: below 0, 0 or above 0.
  static constexpr int compare(const char_type* a, const char_type* b, std::size_t count) {
    for (; count != 0; --count, ++a, ++b) {
      if (*a != *b) return *a < *b ? -1 : 1;
    }
    return 0;
  }
  // Returns the number of units before the 0 unit.
  static std::size_t length(const char_type* text) { return bx_strlen(text); }
  // Returns the first of count units that equals a unit, or null.
  static constexpr const char_type* find(const char_type* text, std::size_t count, const char_type& unit) {
    for (; count != 0; --count, ++text) {
      if (*text == unit) return text;
    }
    return nullptr;
  }
  // Copy count units, which may overlap, and return where they went.
  static char_type* move(char_type* to, const char_type* from, std::size_t count) {
    if (count != 0) std::memmove(to, from, count * sizeof(char_type));
    return to;
  }
  static char_type* copy(char_type* to, const char_type* from, std::size_t count) { return move(to, from, count); }
  // Sets count units to one value, and returns the first.
  static constexpr char_type* assign(char_type* to, std::size_t count, char_type unit) {
    for (std::size_t i = 0; i < count; ++i) to[i] = unit;
    return to;
  }

  // The value that is no unit, and conversions between units and the type that has room for it.
  static constexpr int_type eof() noexcept { return -1; }
  static constexpr int_type not_eof(int_type unit) noexcept { return unit == eof() ? 0 : unit; }
  static constexpr char_type to_char_type(int_type unit) noexcept { return static_cast<char_type>(unit); }
  static constexpr int_type to_int_type(char_type unit) noexcept { return unit; }
  static constexpr bool eq_int_type(int_type a, int_type b) noexcept { return a == b; }
};
