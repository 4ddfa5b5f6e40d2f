// The definitions of the host calls, from the call table.
#include "cleantgf.h"
#include "hostcallmacros.h"
#include "hostfunction.h"

std::int32_t LoadedTGFCounter = 0;
std::int32_t MassEditDepth = 0;
std::int32_t BrevixEditDepth = 0;

namespace {

// Leaves the innermost edit, if one is open.
//
// Compatibility: only the end and the cancel of an edit check its depth; starts and mass edits just count. An end too
// many must not reach the host, where it would close an edit that the host opened itself.
bool LeaveEdit() {
  if (BrevixEditDepth <= 0) return false;
  --BrevixEditDepth;
  return true;
}

}  // namespace

#define HOST_CALL(name, defaultResult, ...) HOST_CALL_AFTER(static_cast<void>(0), name, defaultResult, __VA_ARGS__)

#define HOST_CALL_AFTER(work, name, defaultResult, ...)                                       \
  HostReturn<decltype(name)> name(BRV_PARAMETERS(name, __VA_ARGS__ __VA_OPT__(, ) version)) { \
    work;                                                                                     \
    FORWARD_TO_HOST(name, defaultResult, __VA_ARGS__ __VA_OPT__(, ) version);                 \
  }

#define HOST_CALL_IF(condition, otherwise, name, defaultResult)               \
  HostReturn<decltype(name)> name(BrvVersion version) {                       \
    if (!(condition)) return ResultOf<HostReturn<decltype(name)>>(otherwise); \
    FORWARD_TO_HOST(name, defaultResult, version);                            \
  }

#define HOST_CALL_OF_ITS_OWN(...)

#include "hostcalltable.inc"
