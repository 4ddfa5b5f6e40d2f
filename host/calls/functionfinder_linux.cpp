#include "host/calls/functionfinder.h"

#include <brvplatform.h>

namespace brvhost {
namespace {

FunctionFinder ownFinder = nullptr;

// Minds the functions of this program alone: the entry points of extensions are found by the same call.
void* Find(void*, CFBundleRef bundle, const char* name, void* address) {
  return bundle == CFBundleGetMainBundle() ? ownFinder(name, address) : address;
}

}  // namespace

const bool kFunctionsCanBeChosen = true;

void SetFunctionFinder(FunctionFinder finder) {
  ownFinder = finder;
  BrvPlatformSetFunctionFinder(Find, nullptr);
}

}  // namespace brvhost
