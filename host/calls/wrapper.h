// The wrapper of a host function: a function of the same type that tells the interceptors of each call.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "BrvEDK/Source/brevixpdk.h"
#include "host/calls/hostfunctionindex.h"
#include "host/calls/interception.h"

namespace brvhost {

template <class T>
Register RegisterOf(T value) {
  if constexpr (std::is_pointer_v<T>) {
    return reinterpret_cast<std::uintptr_t>(value);
  } else if constexpr (sizeof(T) == sizeof(Register)) {
    return static_cast<Register>(value);
  } else {
    return static_cast<std::uint32_t>(value);
  }
}

template <class T>
T ValueOf(Register value) {
  if constexpr (std::is_pointer_v<T>) {
    return reinterpret_cast<T>(static_cast<std::uintptr_t>(value));
  } else if constexpr (!std::is_void_v<T>) {
    return static_cast<T>(value);
  }
}

template <HostFunctionIndex index, class Signature>
struct Wrapper;

template <HostFunctionIndex index, class Result, class... Arguments>
struct Wrapper<index, Result(Arguments...)> {
  static Result Call(Arguments... arguments) noexcept {
    const std::array<Register, sizeof...(Arguments)> registers = {RegisterOf(arguments)...};
    return ValueOf<Result>(CallIntercepted(static_cast<std::size_t>(index), registers, CallOwn));
  }

 private:
  static Register CallOwn(void* own, const Register* registers) {
    return CallOwnWith(reinterpret_cast<Result (*)(Arguments...)>(own), registers,
                       std::make_index_sequence<sizeof...(Arguments)>());
  }

  template <std::size_t... number>
  static Register CallOwnWith(Result (*own)(Arguments...), const Register* registers, std::index_sequence<number...>) {
    if constexpr (std::is_void_v<Result>) {
      own(ValueOf<Arguments>(registers[number])...);
      return 0;
    } else {
      return RegisterOf(own(ValueOf<Arguments>(registers[number])...));
    }
  }
};

template <HostFunctionIndex index, class Signature>
void* WrapperOf() {
  return reinterpret_cast<void*>(&Wrapper<index, Signature>::Call);
}

}  // namespace brvhost
