#include <cstdint>
#include <cstring>
#include <string>

#include "extension.h"
#include "recordtag.h"

namespace {

constexpr std::uint32_t kTag = RecordTag("TEST");
std::string report;

void Report(const char* what, int result, const char* content = "") {
  report += what + std::string(" ") + std::to_string(result) + " " + content + "\n";
}

void Create(int number, const char* content) {
  EDataKey key{static_cast<std::uint16_t>(number), 0};
  char text[8] = {};
  std::strcpy(text, content);
  Report("create", BX_CreateEData(kTag, &key, text, sizeof(text), kBrvVersion));
}

void Walk() {
  EDataKey key{0, 0};
  char text[8];
  while (BX_NextEData(kTag, &key, text, sizeof(text), kBrvVersion) != 0) Report("next", key.recordNumber, text);
  while (BX_PreviousEData(kTag, &key, text, sizeof(text), kBrvVersion) != 0) Report("previous", key.recordNumber, text);
}

void Preferences() {
  EDataKey key{2, 0};
  char slur[12] = "slur record";
  Report("save", BX_SaveEData(RecordTag("pfSl"), &key, slur, sizeof(slur), kBrvVersion));
  EDataKey legacy{kDocumentRecord, 1};
  char loaded[12] = {};
  std::int32_t size = sizeof(loaded);
  Report("legacy", BX_LoadEData(RecordTag("ot26"), &legacy, loaded, &size, kBrvVersion), loaded);
}

void Edit() {
  EDataKey key{9, 0};
  BX_StartBrevixEdit(nullptr, kBrvVersion);
  Create(9, "nine");
  BX_CancelBrevixEdit(kBrvVersion);
  Report("after cancel", BX_DeleteEData(kTag, &key, kBrvVersion));
}

}  // namespace

// Not a fault: an extension that keeps records, and reports what it finds.
int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  Create(7, "seven");
  Create(3, "three");
  Create(3, "again");
  Walk();
  Preferences();
  Edit();
  BX_AlertMessage(nullptr, kAlertMessage, 0, report.c_str(), kBrvVersion);
  return 0;
}
