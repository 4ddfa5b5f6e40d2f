// A host that records: every host function, each of which passes its arguments to the listener.
#include <array>
#include <type_traits>

#include "hostcallmacros.h"
#include "hostfunction.h"
#include "recordinghostinterface.h"

namespace {

HostListener listener = nullptr;
void* listenerContext = nullptr;

// The register that an argument came in, 32 or 64 bits of it.
template <class T>
std::uint64_t RegisterOf(T value) {
  if constexpr (std::is_pointer_v<T>) {
    return reinterpret_cast<std::uint64_t>(value);
  } else {
    return static_cast<std::uint32_t>(value);
  }
}

template <class Result, class... Arguments>
Result Record(const char* name, Arguments... arguments) {
  const std::array<std::uint64_t, sizeof...(Arguments)> registers = {RegisterOf(arguments)...};
  const std::uint64_t result =
      listener == nullptr ? 0 : listener(listenerContext, name, registers.data(), registers.size());
  return ResultOf<Result>(static_cast<long>(result));
}

}  // namespace

extern "C" BRV_EXPORT void RecordingHostListen(HostListener newListener, void* context) {
  listener = newListener;
  listenerContext = context;
}

#define HOST_CALL(name, defaultResult, ...)                                                   \
  HostReturn<decltype(name)> name(BRV_PARAMETERS(name, __VA_ARGS__ __VA_OPT__(, ) version)) { \
    return Record<HostReturn<decltype(name)>>(#name, __VA_ARGS__ __VA_OPT__(, ) version);     \
  }
#define HOST_CALL_AFTER(work, ...) HOST_CALL(__VA_ARGS__)
#define HOST_CALL_IF(condition, otherwise, ...) HOST_CALL(__VA_ARGS__)
#define HOST_CALL_OF_ITS_OWN(name, ...) HOST_CALL(name, 0, __VA_ARGS__)

#include "hostcalltable.inc"
