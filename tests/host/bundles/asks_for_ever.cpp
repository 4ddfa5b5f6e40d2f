#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  for (;;) BX_AlertMessage(nullptr, kAlertQuestion, 0, "Again?", kBrvVersion);
}
