#include "entrypoints.h"

#include "brevixpdk.h"
#include "integerclasses.h"
#include "legerlinescommand.h"
#include "portable.h"

namespace {

constexpr int kItems = 2;

// Kinds of alert, and the answer that means yes.
constexpr int kQuestion = 33;
constexpr int kMessage = 64;
constexpr int kYes = 1;

// String IDs: a table for each item, and one of messages.
constexpr int kItemTable = 0x4E20;
constexpr int kAskForWholeScore = 0x4E840001;
constexpr int kNothingChanged = 0x4E840002;  // plus the item's index

int Alert(void* parent, int kind, int stringID) {
  return BX_AlertMessage(parent, kind, stringID, nullptr, kBrvVersion);
}

}  // namespace

uint32 BrevixExtensionVersion() { return kBrvVersion; }

int BrevixExtensionInit(void*, std::uint32_t* word) {
  *word = 0;
  return 1;
}

int BrevixExtensionEnumerate_UTF16(void*, ushort16 itemIndex, MenuItemTexts* texts) {
  const int item = ZeroExtend16(itemIndex);
  if (item >= kItems) return 0;
  const int firstText = (kItemTable + item) << 16 | 1;
  PlugIn_GetStringResource(firstText, texts->text1, MenuItemTexts::kUnits);
  PlugIn_GetStringResource(firstText + 1, texts->text2, MenuItemTexts::kUnits);
  PlugIn_GetStringResource(firstText + 2, texts->text3, MenuItemTexts::kUnits);
  texts->reserved = 0;
  return 1;
}

int BrevixExtensionInvoke(void* context, ushort16 itemIndex, EREGION* region, EREGION* fallback) {
  const int item = ZeroExtend16(itemIndex);
  if (item >= kItems) return 0;
  if (region == nullptr) {
    if (Alert(context, kQuestion, kAskForWholeScore) != kYes) return 0;
    region = fallback;
  }
  if (const int changed = DoShowLegerLines(region, item)) return changed;
  Alert(context, kMessage, kNothingChanged + item);
  return 0;
}

void BrevixExtensionTerminate() {}

int BrevixExtensionGetMenuStatus() { return 1; }
