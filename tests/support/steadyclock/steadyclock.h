// A steady clock that stands still until a test lets time pass. A program that links SteadyClock has it in the place of
// the C++ library's, and so has the image that it drives.
#pragma once

#include <cstdint>

void LetTimePass(std::int64_t milliseconds);
