// What each fuzz target defines, under the names by which libFuzzer finds it.
#pragma once

#include <cstddef>
#include <cstdint>

// Checks the properties of the target for one input. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
