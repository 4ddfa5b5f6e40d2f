// What an assertion that fails prints.
#pragma once

#include <errno.h>

#include <string>

// The whole of it, as the C library's assert words it in this program; its process prints nothing else.
inline std::string AssertionMessage(const std::string& function, const std::string& fileAndLine,
                                    const std::string& expression) {
  return std::string(program_invocation_short_name) + ": " + fileAndLine + ": " + function + ": Assertion `" +
         expression + "' failed.\n";
}
