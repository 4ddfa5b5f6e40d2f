#include "hostbundle.h"

CFBundleRef gBrevixBundle = nullptr;

short16 InitializeGlobals() {
  if (gBrevixBundle != nullptr) return 0;
  gBrevixBundle = CFBundleGetBundleWithIdentifier(CFSTR(BREVIX_HOST_IDENTIFIER));
  if (gBrevixBundle == nullptr) gBrevixBundle = CFBundleGetMainBundle();
  return gBrevixBundle != nullptr ? 0 : -1;
}

CFBundleRef GetBrevixBundleRef() {
  if (gBrevixBundle != nullptr) CFBundleIsExecutableLoaded(gBrevixBundle);
  return gBrevixBundle;
}
