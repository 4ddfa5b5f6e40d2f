#include <cstdio>
#include <cstring>
#include <string>

#include "extension.h"

namespace {

constexpr std::uint32_t kTag = 0x54455354;  // "TEST"
std::string told;

void Tell(const char* what, int answer, const char* content = "") {
  told += what + std::string(" ") + std::to_string(answer) + " " + content + "\n";
}

void Create(int number, const char* content) {
  EDataKey key{static_cast<std::uint16_t>(number), 0};
  char text[8] = {};
  std::strcpy(text, content);
  Tell("create", BX_CreateEData(kTag, &key, text, sizeof(text), kBrvVersion));
}

void Walk() {
  EDataKey key{0, 0};
  char text[8];
  while (BX_NextEData(kTag, &key, text, sizeof(text), kBrvVersion) != 0) Tell("next", key.recordNumber, text);
  while (BX_PreviousEData(kTag, &key, text, sizeof(text), kBrvVersion) != 0) Tell("previous", key.recordNumber, text);
}

void Preferences() {
  EDataKey key{2, 0};
  char slur[12] = "slur record";
  Tell("save", BX_SaveEData(0x7066536C, &key, slur, sizeof(slur), kBrvVersion));  // "pfSl"
  EDataKey legacy{kDocumentRecord, 1};
  char loaded[12] = {};
  std::int32_t size = sizeof(loaded);
  Tell("legacy", BX_LoadEData(0x6F743236, &legacy, loaded, &size, kBrvVersion), loaded);  // "ot26"
}

void Edit() {
  EDataKey key{9, 0};
  BX_StartBrevixEdit(nullptr, kBrvVersion);
  Create(9, "nine");
  BX_CancelBrevixEdit(kBrvVersion);
  Tell("after cancel", BX_DeleteEData(kTag, &key, kBrvVersion));
}

}  // namespace

// Not a fault: an extension that keeps records, and tells what it finds.
int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  Create(7, "seven");
  Create(3, "three");
  Create(3, "again");
  Walk();
  Preferences();
  Edit();
  BX_AlertMessage(nullptr, kAlertMessage, 0, told.c_str(), kBrvVersion);
  return 0;
}
