#include "extension.h"

#include <initializer_list>

#define WEAK __attribute__((weak))

WEAK uint32 BrevixExtensionVersion() { return kBrvVersion; }

WEAK int BrevixExtensionInit(void*, std::uint32_t* word) {
  *word = 0;
  return 1;
}

WEAK int BrevixExtensionEnumerate_UTF16(void*, int index, MenuItemTexts* texts) {
  if (index != 0) return 0;
  FillTexts(*texts);
  return 1;
}

WEAK int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION* fallback) {
  if (index != 0) return 0;
  if (region == nullptr && BX_AlertMessage(nullptr, kAlertQuestion, 0, "All of it?", kBrvVersion) != kAlertYes)
    return 0;
  return HideFirstFrame(region != nullptr ? *region : *fallback);
}

WEAK void BrevixExtensionTerminate() {}

WEAK int BrevixExtensionGetMenuStatus() { return 1; }

bool IsWithin(const EREGION& region, const EXENTRY& entry) {
  if (entry.position < region.startPosition) return false;
  return region.startMeasure != region.endMeasure || entry.position <= region.endPosition;
}

int HideFirstFrame(const EREGION& region) {
  EXTGF2005a* const frame =
      BX_LoadTGF(region.regionScope, region.startStaff, region.startMeasure, 0, kLoadFlag, kBrvVersion);
  if (frame == nullptr) return 0;
  int changed = 0;
  for (int i = 0; i < frame->entryCount; ++i) {
    if ((frame->entries[i].flags & kNoLegerLines) != 0 || !IsWithin(region, frame->entries[i])) continue;
    frame->entries[i].flags |= kNoLegerLines;
    changed = 1;
  }
  if (changed != 0) BX_SaveTGF(frame, kBrvVersion);
  BX_FreeTGF(frame, kBrvVersion);
  return changed;
}

void FillTexts(MenuItemTexts& texts) {
  constexpr UniChar kItem[] = {'i', 't', 'e', 'm', 0};
  for (UniChar* const text : {texts.text1, texts.text2, texts.text3}) {
    for (int i = 0; i < 5; ++i) text[i] = kItem[i];
  }
  texts.reserved = 0;
}
