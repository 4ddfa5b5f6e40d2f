// Between the recording host and the program that tests with it.
#pragma once

#include <cstddef>
#include <cstdint>

// Hears of a call and gives its result. Arguments are registers: 32 bits of an integer, 64 of a pointer.
using HostListener = std::uint64_t (*)(void* context, const char* name, const std::uint64_t* arguments,
                                       std::size_t count);

// Exported by the host's shared object under the name RecordingHostListen.
using RecordingHostListenFunction = void (*)(HostListener listener, void* context);
