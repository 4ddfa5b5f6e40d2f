#include "host/process/memorylimit.h"

#include <fmt/format.h>
#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <utility>

#include "host/process/datasize.h"

namespace brvhost {
namespace {

constexpr std::uint64_t kKilobyte = 1 << 10;
constexpr std::uint64_t kMegabyte = 1 << 20;
constexpr std::uint64_t kGigabyte = 1 << 30;

// A score in memory takes a few times the size of its file; a compressed one takes more, but few of these are large.
constexpr std::uint64_t kTimesInputSize = 16;

std::uint64_t PhysicalMemory() {
  return static_cast<std::uint64_t>(sysconf(_SC_PHYS_PAGES)) * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

std::uint64_t StackSize() {
  pthread_attr_t attributes;
  std::size_t size = 0;
  pthread_attr_init(&attributes);
  pthread_attr_getstacksize(&attributes, &size);
  pthread_attr_destroy(&attributes);
  return size;
}

std::string SizeText(std::uint64_t bytes) {
  for (const auto& [unit, name] :
       {std::pair(kGigabyte, "GB"), std::pair(kMegabyte, "MB"), std::pair(kKilobyte, "KB")}) {
    if (bytes % unit == 0) return fmt::format("{} {}", bytes / unit, name);
  }
  return fmt::format("{} bytes", bytes);
}

rlimit LimitOf(int resource) {
  rlimit limit = {RLIM_INFINITY, RLIM_INFINITY};
  getrlimit(resource, &limit);
  return limit;
}

}  // namespace

std::uint64_t DefaultMemory(std::uint64_t inputSize) {
  const std::uint64_t wanted = std::max(kGigabyte, kTimesInputSize * inputSize);
  return std::min(wanted + kMegabyte - 1, PhysicalMemory()) / kMegabyte * kMegabyte;
}

MemoryLimit::MemoryLimit(std::uint64_t allowance, int threads)
    : before_(LimitOf(RLIMIT_DATA)), error_("there is not enough memory for this score", true) {
  const std::uint64_t limit = DataSize() + allowance + static_cast<std::uint64_t>(threads) * StackSize();
  // Where somebody else set a lower limit, that one holds.
  if (limit > before_.rlim_cur || limit > LimitOf(RLIMIT_AS).rlim_cur) return;
  const rlimit lower = {limit, before_.rlim_max};
  if (setrlimit(RLIMIT_DATA, &lower) != 0) return;
  error_ = MemoryError(fmt::format("needs more than {} of memory; --max-memory allows more", SizeText(allowance)));
}

MemoryLimit::~MemoryLimit() { setrlimit(RLIMIT_DATA, &before_); }

}  // namespace brvhost
