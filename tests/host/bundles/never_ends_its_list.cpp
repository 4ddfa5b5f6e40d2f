#include "extension.h"

int BrevixExtensionEnumerate_UTF16(void*, int, MenuItemTexts* texts) {
  FillTexts(*texts);
  return 1;
}
