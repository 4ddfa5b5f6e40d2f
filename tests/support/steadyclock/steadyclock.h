// A steady clock that does not move until a test lets time pass. A program that links SteadyClock has it instead of the
// C++ library's, and so has the image that it drives.
#pragma once

#include <cstdint>

void LetTimePass(std::int64_t milliseconds);
