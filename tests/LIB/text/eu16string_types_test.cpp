// The types that other extensions were compiled against: results, which are not in mangled names, and parameters. A
// unit is 16 bits wide and has no sign, and every other number has its width in its type.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>

#include "eu16string.h"

namespace {

static_assert(std::is_same_v<UniChar, std::uint16_t>);
static_assert(std::is_same_v<int32, std::int32_t>);

// Whether one of the overloads of AnsiCharAtIndex is a member of that very type: without one, this does not compile.
template <class Member>
consteval bool HasCharAtIndex() {
  [[maybe_unused]] const Member overload = &eu16string::AnsiCharAtIndex;
  return true;
}

TEST(Eu16StringTypes, OfConstantMembers) {
  static_assert(std::is_same_v<decltype(&eu16string::GetStdString), void (eu16string::*)(std::string&) const>);
  static_assert(std::is_same_v<decltype(&eu16string::AnsiPos), std::int32_t (eu16string::*)(const eu16string&) const>);
  static_assert(std::is_same_v<decltype(&eu16string::AnsiSubString),
                               eu16string (eu16string::*)(std::int32_t, std::int32_t) const>);
  static_assert(HasCharAtIndex<std::uint16_t (eu16string::*)(std::int32_t) const>());
}

TEST(Eu16StringTypes, OfMembersThatChangeTheText) {
  static_assert(
      std::is_same_v<decltype(&eu16string::AnsiDelete), eu16string& (eu16string::*)(std::uint32_t, std::int32_t)>);
  static_assert(std::is_same_v<decltype(&eu16string::AnsiSetLength), eu16string& (eu16string::*)(std::uint32_t)>);
  static_assert(HasCharAtIndex<std::uint16_t& (eu16string::*)(std::int32_t)>());
}

TEST(Eu16StringTypes, OfFreeFunctions) {
  static_assert(std::is_same_v<decltype(&StrToIntDef), std::int32_t (*)(eu16string, std::int32_t)>);
  static_assert(std::is_same_v<decltype(&IntToEu16Str), eu16string (*)(long)>);
}

// A text is made from any of four, without a cast; what is none of them leaves more than one to choose from.
TEST(Eu16StringTypes, OfConstructors) {
  static_assert(std::is_convertible_v<const char*, eu16string>);
  static_assert(std::is_convertible_v<const unsigned char*, eu16string>);
  static_assert(std::is_convertible_v<unsigned int, eu16string>);
  static_assert(std::is_convertible_v<char, eu16string>);
  static_assert(!std::is_constructible_v<eu16string, int>);
  static_assert(!std::is_constructible_v<eu16string, long>);
  static_assert(!std::is_constructible_v<eu16string, const signed char*>);
  static_assert(!std::is_constructible_v<eu16string, const UniChar*>);
  static_assert(!std::is_default_constructible_v<eu16string>);
}

TEST(Eu16StringTypes, OfCopiesAndMoves) {
  static_assert(std::is_copy_constructible_v<eu16string>);
  static_assert(std::is_nothrow_move_constructible_v<eu16string>);
  static_assert(std::is_same_v<decltype(std::declval<eu16string&>() = std::declval<const eu16string&>()), eu16string&>);
  static_assert(std::is_same_v<decltype(std::declval<eu16string&>() = std::declval<eu16string>()), eu16string&>);
  static_assert(std::is_nothrow_move_assignable_v<eu16string>);
  static_assert(std::has_virtual_destructor_v<eu16string>);
}

}  // namespace
