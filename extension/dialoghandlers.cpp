#include "dialoghandlers.h"

#include "brevixpdk.h"

namespace {

constexpr int kInternalError = 48;

void CheckHostIsMachO() {
  if (BX_IsMachO(kBrvVersion) == 0) {
    BX_AlertMessage(nullptr, kInternalError, 0, "Should not get here!", kBrvVersion);
  }
}

}  // namespace

void* NewFF_DialogHandlerProc(void* proc) {
  CheckHostIsMachO();
  return proc;
}

void DisposeFF_DialogHandlerProc(void*) { CheckHostIsMachO(); }
