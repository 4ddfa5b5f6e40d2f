#include "steadyclock.h"

#include "hosttypes.h"

namespace {

constexpr std::int64_t kNanosecondsPerMs = 1'000'000;

std::int64_t now = 1000 * kNanosecondsPerMs;

}  // namespace

void LetTimePass(std::int64_t milliseconds) { now += milliseconds * kNanosecondsPerMs; }

// std::chrono::steady_clock::now, by the names that it has in the C++ libraries of Linux and macOS.
extern "C" {

BRV_EXPORT std::int64_t NowOnLinux() __asm__("_ZNSt6chrono3_V212steady_clock3nowEv");
BRV_EXPORT std::int64_t NowOnMacOS() __asm__("_ZNSt3__16chrono12steady_clock3nowEv");

std::int64_t NowOnLinux() { return now; }
std::int64_t NowOnMacOS() { return now; }

}  // extern "C"
