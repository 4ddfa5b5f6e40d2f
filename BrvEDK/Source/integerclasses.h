// The low bits of an integer argument, extended by its class, whatever the caller left above them.
#pragma once

#include <cstdint>

// Returns the number that the low 16 bits are if they have a sign: -32768 to 32767.
constexpr int SignExtend16(int value) { return static_cast<std::int16_t>(value); }

// Returns the low 16 bits without a sign: 0 to 65535.
constexpr int ZeroExtend16(int value) { return static_cast<std::uint16_t>(value); }

// Returns the low 8 bits without a sign: 0 to 255.
constexpr int ZeroExtend8(int value) { return static_cast<std::uint8_t>(value); }
