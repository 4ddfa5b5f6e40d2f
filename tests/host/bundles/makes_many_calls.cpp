#include <cstdint>

#include "extension.h"
#include "recordtag.h"

namespace {

constexpr std::uint32_t kMeasures = RecordTag("SOMS");

void ShowProgress() {
  void* const display = BX_StartMassEdit(nullptr, 2, kBrvVersion);
  BX_MassEditProgress(display, 0x10002, 0, 0, -1, kBrvVersion);
  BX_EndMassEdit(display, 0, kBrvVersion);
}

void ReadRecords() {
  EDataKey first{1, 0};
  std::int32_t size = 0;
  BX_LoadEData(kMeasures, &first, nullptr, &size, kBrvVersion);
  EDataKey none{0, 0};
  char data[4];
  BX_NextEData(kMeasures, &none, data, sizeof(data), kBrvVersion);
  BX_DeleteEData(1, &first, kBrvVersion);
}

}  // namespace

// Not a fault, but that it frees a frame twice: an extension whose calls have arguments of all kinds, and which asks
// for functions that brvhost does not have.
int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  UniChar name[] = {'G', 0xF6, 0x266D, 0};
  BX_StartBrevixEdit_UTF16(name, kBrvVersion);
  ShowProgress();
  EXTGF2005a* const frame = BX_LoadTGF(region->regionScope, 1, 1, 0, kLoadFlag, kBrvVersion);
  BX_FreeTGF(frame, kBrvVersion);
  BX_FreeTGF(frame, kBrvVersion);
  BX_FreeTGF(nullptr, kBrvVersion);
  ReadRecords();
  EREGION selected;
  BX_GetCurERegions(&selected, nullptr, nullptr, kBrvVersion);
  BX_CancelBrevixEdit(kBrvVersion);
  BX_IsCocoaBXDLG(nullptr, kBrvVersion);
  BX_ProcessMidiData(&selected, kBrvVersion);
  BX_IsCocoaBXDLG(nullptr, kBrvVersion);
  BX_AlertMessage(nullptr, kAlertMessage, 0, "two\nlines", kBrvVersion);
  return 0;
}
