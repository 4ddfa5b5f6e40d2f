// What every call to the host does: it looks up the function by name, once, and widens arguments and result.
#pragma once

#include <atomic>
#include <type_traits>

#include "brevixpdk.h"
#include "widening.h"

// Returns the address of a host function, or null if the host is not bound or has no such function.
void* FindHostFunction(const char* name);

// Converts a number to any result type: the default of a function that the host lacks.
template <class Result>
Result ResultOf(long value) {
  if constexpr (std::is_pointer_v<Result>) {
    return reinterpret_cast<Result>(value);
  } else if constexpr (!std::is_void_v<Result>) {
    return static_cast<Result>(value);
  }
}

template <class Signature, class Classes>
class HostFunction;

// One host function, as a static of the kit's function of the same name. Signature is its type, Classes its prototype
// in integer classes. Once it is found, a call costs a load, a test and an indirect call; the rest is in CallFirst, out
// of the way.
template <class Result, class... Arguments, class ResultClass, class... ArgumentClasses>
class HostFunction<Result(Arguments...), ResultClass(ArgumentClasses...)> {
 public:
  // Calls the host, or returns the default if the host lacks the function. Lookup::Address finds the function.
  template <class Lookup>
  Result Call(long defaultResult, Arguments... arguments) {
    const Function function = function_.load(std::memory_order_acquire);
    if (function == nullptr) [[unlikely]]
      return CallFirst<Lookup>(defaultResult, arguments...);
    return Forward(function, arguments...);
  }

 private:
  using Function = Result (*)(Arguments...);

  // The first call, and each call to a function that the host lacks; Lookup remembers that it is missing.
  template <class Lookup>
  [[gnu::noinline, gnu::cold]] Result CallFirst(long defaultResult, Arguments... arguments) {
    const auto function = reinterpret_cast<Function>(Lookup::Address());
    if (function == nullptr) return ResultOf<Result>(defaultResult);
    function_.store(function, std::memory_order_release);
    return Forward(function, arguments...);
  }

  static Result Forward(Function function, Arguments... arguments) {
    if constexpr (std::is_void_v<Result>) {
      function(Widen<ArgumentClasses>(arguments)...);
    } else {
      return Widen<ResultClass>(function(Widen<ArgumentClasses>(arguments)...));
    }
  }

  std::atomic<Function> function_{nullptr};
};

// Declares the lookup of a host function: done once in the life of the process, under the guard of a static's
// initialisation.
//
// Compatibility: the answer is kept for good, also that the function is missing or the host not bound yet. Hosts export
// the same functions for as long as they run, and extensions test for a function by calling it once.
#define HOST_LOOKUP(lookup, name)                           \
  struct lookup {                                           \
    static void* Address() {                                \
      static void* const address = FindHostFunction(#name); \
      return address;                                       \
    }                                                       \
  }

// Passes a call on to the host function of this name, which the lookup finds.
#define FORWARD_WITH_LOOKUP(lookup, name, defaultResult, ...)                  \
  static constinit HostFunction<decltype(name), decltype(classes::name)> host; \
  return host.Call<lookup>(defaultResult, __VA_ARGS__)

#define FORWARD_TO_HOST(name, defaultResult, ...) \
  HOST_LOOKUP(Lookup, name);                      \
  FORWARD_WITH_LOOKUP(Lookup, name, defaultResult, __VA_ARGS__)
