// The integer classes and the linkage of everything that passes between host and extension.
#pragma once

#include <cstdint>

// Visible from outside the bundle. Everything without it stays inside.
#define BRV_EXPORT __attribute__((visibility("default")))

// The identifier of the host application's bundle, by which an extension finds it.
#define BREVIX_HOST_IDENTIFIER "com.brevixmusic.NotationEngine"

// Every integer is passed in a whole register, so 16-bit and 8-bit values are declared as int under the name of their
// class. The kit keeps the low bits of an argument and extends them before it calls the host, and does the same to
// a 16-bit result of the host.
typedef int short16;   // the low 16 bits, sign-extended: -32768 to 32767
typedef int ushort16;  // the low 16 bits, zero-extended: 0 to 65535
typedef int flag8;     // the low 8 bits, zero-extended: 0 is no, all else yes
typedef int int32;     // all 32 bits as they are
typedef std::uint32_t uint32;

// The result of a host function whose meaning only the host knows: all 64 bits, unchanged.
typedef std::intptr_t HostResult;

// The version of the host's interface that an extension was built for: the last argument of every host call.
typedef std::uint32_t BrvVersion;
inline constexpr BrvVersion kBrvVersion = 0x19500000;
