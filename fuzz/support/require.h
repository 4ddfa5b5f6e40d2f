// Ends the process where a property does not hold, so that the fuzzer keeps the input.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

inline void Require(bool holds, const std::string& property) {
  if (holds) return;
  std::fprintf(stderr, "This does not hold: %s\n", property.c_str());
  std::abort();
}
