#include "hostbundle.h"

void* FindHostFunction(const char* name) {
  const CFStringRef hostName = CFStringCreateWithCString(kCFAllocatorDefault, name, kCFStringEncodingMacRoman);
  if (hostName == nullptr) return nullptr;
  void* function = nullptr;
  if (gBrevixBundle != nullptr) {
    CFBundleIsExecutableLoaded(gBrevixBundle);
    // Read again: asking the host's bundle may run code of the host, which can unbind it.
    if (gBrevixBundle != nullptr) function = CFBundleGetFunctionPointerForName(gBrevixBundle, hostName);
  }
  CFRelease(hostName);
  return function;
}
