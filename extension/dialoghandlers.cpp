#include "dialoghandlers.h"

#include "brevixpdk.h"
#include "convention.h"

namespace {

void CheckHostIsMachO() {
  if (BX_IsMachO(kBrvVersion) == 0) {
    BX_AlertMessage(nullptr, kAlertError, 0, "Should not get here!", kBrvVersion);
  }
}

}  // namespace

void* NewFF_DialogHandlerProc(void* proc) {
  CheckHostIsMachO();
  return proc;
}

void DisposeFF_DialogHandlerProc(void*) { CheckHostIsMachO(); }
