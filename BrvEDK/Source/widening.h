// How each argument and result of a host function is widened, as read from its prototype.
#pragma once

#include <type_traits>

#include "hostrecords.h"
#include "hosttypes.h"
#include "integerclasses.h"

// The prototypes a second time, with the integer classes as distinct types; everywhere else they are all int. They
// declare functions of this namespace that are defined nowhere: only their types are used.
namespace classes {

enum short16 : int {};
enum ushort16 : int {};
enum flag8 : int {};
enum int32 : int {};

#include "hostprototypes.inc"

}  // namespace classes

// Extends a value by its class, whatever is in its upper bits.
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
