#include "entrypoints.h"

#include <string>

#include "brevixpdk.h"
#include "portable.h"
#include "report.h"

namespace {

// The extension has one menu item, with the texts 1 to 3 of table 20000.
constexpr int kItemTexts = 20000 << 16;
constexpr int kConfirmation = 20100 << 16 | 1;
constexpr int kAlertQuestion = 33;
constexpr int kAlertMessage = 64;

}  // namespace

uint32 BrevixExtensionVersion() { return kBrvVersion; }

int BrevixExtensionInit(void*, std::uint32_t* word) {
  *word = 0;
  return 1;
}

int BrevixExtensionEnumerate_UTF16(void*, ushort16 itemIndex, MenuItemTexts* texts) {
  if ((itemIndex & 0xFFFF) != 0) return 0;
  PlugIn_GetStringResource(kItemTexts + 1, texts->text1, MenuItemTexts::kUnits);
  PlugIn_GetStringResource(kItemTexts + 2, texts->text2, MenuItemTexts::kUnits);
  PlugIn_GetStringResource(kItemTexts + 3, texts->text3, MenuItemTexts::kUnits);
  texts->reserved = 0;
  return 1;
}

int BrevixExtensionInvoke(void* context, ushort16 itemIndex, EREGION* region, EREGION* fallback) {
  if ((itemIndex & 0xFFFF) != 0) return 0;
  if (region == nullptr) {
    if (BX_AlertMessage(context, kAlertQuestion, kConfirmation, nullptr, kBrvVersion) != 1) return 0;
    region = fallback;
  }
  const std::u16string text = ReportOn(*region);
  BX_AlertMessage_UTF16(context, kAlertMessage, 0, text.c_str(), kBrvVersion);
  return 0;  // nothing changed
}

void BrevixExtensionTerminate() {}

int BrevixExtensionGetMenuStatus() { return 1; }
