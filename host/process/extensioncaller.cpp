#include "host/process/extensioncaller.h"

#include <dlfcn.h>
#include <execinfo.h>

#include <array>
#include <cstddef>
#include <cstring>

namespace brvhost {
namespace {

constexpr int kDepth = 32;

// Of the image that an address is in, and of the exported function there, if it is in one. An address on the stack is
// that after the call, which may be the next function's first.
Dl_info ImageOf(void* returnAddress) {
  Dl_info info{};
  if (dladdr(static_cast<char*>(returnAddress) - 1, &info) == 0) return {};
  return info;
}

bool IsNamed(const Dl_info& info, const char* name) {
  return info.dli_sname != nullptr && std::strcmp(info.dli_sname, name) == 0;
}

}  // namespace

const char* CallerInExtension(const char* bridge) {
  std::array<void*, kDepth> addresses{};
  const auto count = static_cast<std::size_t>(backtrace(addresses.data(), kDepth));
  static const char here = 0;
  const void* const own = ImageOf(const_cast<char*>(&here) + 1).dli_fbase;
  bool isInside = false;  // before, there may be what stands in for backtrace
  for (std::size_t i = 0; i < count; ++i) {
    const Dl_info info = ImageOf(addresses[i]);
    if (info.dli_fbase == own) isInside = true;
    if (isInside && info.dli_fbase != own && !IsNamed(info, bridge)) return info.dli_sname;
  }
  return nullptr;
}

}  // namespace brvhost
