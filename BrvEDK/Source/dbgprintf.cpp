#include <CoreFoundation/CoreFoundation.h>

#include <cstdarg>
#include <cstdio>

#include "brevixpdk.h"

void DbgPrintF(const char* format, ...) {
  static char text[4096];
  std::va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text, sizeof(text), format, arguments);
  va_end(arguments);
  const CFStringRef line = CFStringCreateWithFormat(kCFAllocatorDefault, nullptr, CFSTR("%s\n"), text);
  if (line == nullptr) return;
  CFShow(line);
  CFRelease(line);
}
