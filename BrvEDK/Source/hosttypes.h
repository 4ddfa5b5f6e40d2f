// The integer classes and linkage of everything that crosses between host and extension.
#pragma once

#include <cstdint>

// Visible from outside the bundle. Everything that does not carry it stays inside.
#define BRV_EXPORT __attribute__((visibility("default")))

// The identifier of the host application's bundle, by which an extension finds it.
#define BREVIX_HOST_IDENTIFIER "com.brevixmusic.NotationEngine"

// A whole register travels for every integer, so 16-bit and 8-bit values are declared as int under the name of their
// class: the kit keeps the low bits and extends them before a call to the host, and extends the host's result likewise.
typedef int short16;   // the low 16 bits, sign-extended: -32768 to 32767
typedef int ushort16;  // the low 16 bits, zero-extended: 0 to 65535
typedef int flag8;     // the low 8 bits, zero-extended: 0 is no, all else yes
typedef int int32;     // all 32 bits as they are
typedef std::uint32_t uint32;

// What a host function returns when only the host knows what it is: all 64 bits, unchanged.
typedef std::intptr_t HostResult;

// The version of the host's interface that an extension was built for: the last argument of every host call.
typedef std::uint32_t BrvVersion;
inline constexpr BrvVersion kBrvVersion = 0x19500000;
