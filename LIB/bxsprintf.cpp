#include <CoreFoundation/CoreFoundation.h>

#include <algorithm>
#include <cstdarg>
#include <cstddef>

#include "bxstring.h"
#include "singleunits.h"

namespace {

// Null when there is not enough memory.
CFStringRef Formatted(const UniChar* format, std::va_list arguments) {
  const CFStringRef formatString =
      CFStringCreateWithCharacters(kCFAllocatorDefault, format, static_cast<CFIndex>(bx_strlen(format)));
  if (formatString == nullptr) return nullptr;
  const CFStringRef result =
      CFStringCreateWithFormatAndArguments(kCFAllocatorDefault, nullptr, formatString, arguments);
  CFRelease(formatString);
  return result;
}

}  // namespace

int32 bx_sprintf(UniChar* dst, std::size_t dstSize, const UniChar* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const CFStringRef result = Formatted(format, arguments);
  va_end(arguments);
  if (result == nullptr) {
    StoreUnit(dst, 0);
    return 0;
  }

  // Compatibility: a dstSize of 0 wraps to the largest number, and the whole result is written. Extensions pass 0 for a
  // buffer that they know to be large enough.
  const std::size_t units = std::min(static_cast<std::size_t>(CFStringGetLength(result)), dstSize - 1);
  CFStringGetCharacters(result, CFRangeMake(0, static_cast<CFIndex>(units)), dst);
  StoreUnit(dst + units, 0);
  CFRelease(result);
  return static_cast<int32>(units);
}
