// The one mechanism behind every call to the host: lookup by name, once, and the widening of arguments and result.
#pragma once

#include <tuple>
#include <type_traits>

#include "integerclasses.h"
#include "integerclasstypes.h"

// The address of a host function, or null if the host is not bound or has no such function.
void* FindHostFunction(const char* name);

// Extends a value as its class says. The classes are ints, so nothing is taken for granted of their upper bits.
inline short16 Widen(short16 value) {
  return static_cast<short16>(SignExtend16(value));
}
inline ushort16 Widen(ushort16 value) {
  return static_cast<ushort16>(ZeroExtend16(value));
}
inline flag8 Widen(flag8 value) {
  return static_cast<flag8>(ZeroExtend8(value));
}
template <class T>
T Widen(T value) {
  return value;
}

// A number as a result of any type: the default of a function that the host lacks.
template <class Result>
Result ResultOf(long value) {
  if constexpr (std::is_pointer_v<Result>) {
    return reinterpret_cast<Result>(value);
  } else if constexpr (!std::is_void_v<Result>) {
    return static_cast<Result>(value);
  }
}

template <class Signature>
class HostFunction;

template <class Result, class... Arguments>
class HostFunction<Result(Arguments...)> {
 public:
  template <int index>
  using Argument = std::tuple_element_t<index, std::tuple<Arguments...>>;
  using ResultType = Result;

  // Looks the function up. The answer holds for the life of the process, that of a missing function included.
  explicit HostFunction(const char* name) : function_(reinterpret_cast<Function>(FindHostFunction(name))) {}

  // Calls the host; without the function calls nothing and returns the default.
  Result Call(long defaultResult, Arguments... arguments) const {
    if (function_ == nullptr) return ResultOf<Result>(defaultResult);
    if constexpr (std::is_void_v<Result>) {
      function_(Widen(arguments)...);
    } else {
      return Widen(function_(Widen(arguments)...));
    }
  }

 private:
  using Function = Result (*)(Arguments...);

  Function function_;
};

template <class Signature, int index>
using HostArgument = typename HostFunction<Signature>::template Argument<index>;

template <class Signature>
using HostReturn = typename HostFunction<Signature>::ResultType;
