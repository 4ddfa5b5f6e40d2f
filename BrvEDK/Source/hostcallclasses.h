// How each argument and result of a host function is widened: as its prototype says.
#pragma once

#include <type_traits>

#include "hostrecords.h"
#include "hosttypes.h"
#include "integerclasses.h"

// The prototypes in types that tell the integer classes apart, which are all int to everybody else. They declare
// functions of this namespace, which do not exist: only their types are looked at.
namespace classes {

enum short16 : int {};
enum ushort16 : int {};
enum flag8 : int {};
enum int32 : int {};

#include "hostprototypes.inc"

}  // namespace classes

// Extends a value as its class says. Nothing is taken for granted of an int's upper bits.
template <class Class, class Value>
Value Widen(Value value) {
  if constexpr (std::is_same_v<Class, classes::short16>) {
    return SignExtend16(value);
  } else if constexpr (std::is_same_v<Class, classes::ushort16>) {
    return ZeroExtend16(value);
  } else if constexpr (std::is_same_v<Class, classes::flag8>) {
    return ZeroExtend8(value);
  } else {
    return value;
  }
}
