// The places of the host functions in the kit's call table.
#pragma once

#include <cstddef>

namespace brvhost {

enum class HostFunctionIndex : std::size_t {
#define HOST_CALL(name, ...) name,
#define HOST_CALL_AFTER(work, name, ...) name,
#define HOST_CALL_IF(condition, otherwise, name, ...) name,
#define HOST_CALL_OF_ITS_OWN(name, ...) name,
#include "BrvEDK/Source/hostcalltable.inc"
#undef HOST_GROUP
#undef HOST_CALL
#undef HOST_CALL_AFTER
#undef HOST_CALL_IF
#undef HOST_CALL_OF_ITS_OWN
  kCount,
};

inline constexpr std::size_t kHostFunctions = static_cast<std::size_t>(HostFunctionIndex::kCount);

}  // namespace brvhost
