// The low bits of an integer argument, extended by its class, whatever the caller left above them.
#pragma once

#include <cstdint>

constexpr int SignExtend16(int value) { return static_cast<std::int16_t>(value); }
constexpr int ZeroExtend16(int value) { return static_cast<std::uint16_t>(value); }
constexpr int ZeroExtend8(int value) { return static_cast<std::uint8_t>(value); }
