// The entry points of LegerLines. Item 0 hides the ledger lines of a region, item 1 shows them.
#include <cstdint>

#include "brevixpdk.h"
#include "convention.h"
#include "integerclasses.h"
#include "legerlinescommand.h"
#include "portable.h"
#include "stringids.h"

namespace {

constexpr int kItems = 2;

// Tables of texts: one for each item, and one of messages.
constexpr int kFirstItemTable = 20000;
constexpr int kMessageTable = 20100;
constexpr int32 kAskForWholeScore = StringID(kMessageTable, 1);
constexpr int32 kNothingChanged = StringID(kMessageTable, 2);  // plus the item's index

short16 Alert(void* parent, ushort16 kind, int32 stringID) {
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
  const int32 firstText = StringID(kFirstItemTable + item, 1);
  PlugIn_GetStringResource(firstText, texts->text1, MenuItemTexts::kUnits);
  PlugIn_GetStringResource(firstText + 1, texts->text2, MenuItemTexts::kUnits);
  PlugIn_GetStringResource(firstText + 2, texts->text3, MenuItemTexts::kUnits);
  texts->reserved = 0;
  return 1;
}

// Returns non-zero if a frame was changed. If not, the user gets a message, unless the question was declined or there
// is no such item.
int BrevixExtensionInvoke(void* context, ushort16 itemIndex, EREGION* region, EREGION* fallback) {
  const int item = ZeroExtend16(itemIndex);
  if (item >= kItems) return 0;
  if (region == nullptr) {
    if (Alert(context, kAlertQuestion, kAskForWholeScore) != kAlertYes) return 0;
    region = fallback;
  }
  if (const int changed = DoShowLegerLines(region, item)) return changed;
  Alert(context, kAlertMessage, kNothingChanged + item);
  return 0;
}

void BrevixExtensionTerminate() {}

int BrevixExtensionGetMenuStatus() { return 1; }
