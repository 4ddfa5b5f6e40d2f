#include "lookupsteps.h"

#include <CoreFoundation/CoreFoundation.h>
#include <dlfcn.h>

LookupSteps lookupSteps;

namespace {

// The platform's own function of that name and type.
template <class Function>
Function* Platforms(Function*, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text, CFStringEncoding encoding) {
  if (lookupSteps.makeName) lookupSteps.makeName(text);
  if (lookupSteps.namesCannotBeMade) return nullptr;
  return Platforms(&CFStringCreateWithCString, __func__)(allocator, text, encoding);
}

Boolean CFBundleIsExecutableLoaded(CFBundleRef bundle) {
  if (lookupSteps.askWhetherLoaded) lookupSteps.askWhetherLoaded();
  return Platforms(&CFBundleIsExecutableLoaded, __func__)(bundle);
}

void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef name) {
  if (lookupSteps.findFunction) {
    char text[64];
    CFStringGetCString(name, text, sizeof(text), kCFStringEncodingUTF8);
    lookupSteps.findFunction(text);
  }
  return Platforms(&CFBundleGetFunctionPointerForName, __func__)(bundle, name);
}
