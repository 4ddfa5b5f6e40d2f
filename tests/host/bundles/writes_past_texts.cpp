#include "extension.h"

int BrevixExtensionEnumerate_UTF16(void*, int index, MenuItemTexts* texts) {
  if (index != 0) return 0;
  FillTexts(*texts);
  reinterpret_cast<unsigned char*>(texts)[sizeof *texts] = 0;
  return 1;
}
