// Why something failed, for people.
#pragma once

#include <exception>

namespace brvhost {

// For all that lacks memory, whatever for.
inline constexpr const char* kNoMemory = "there is not enough memory";

// The message of an exception, or kNoMemory. It needs no memory itself, and lives as long as the exception.
const char* ReasonOf(const std::exception& error);

}  // namespace brvhost
