#include "extension.h"

int BrevixExtensionEnumerate_UTF16(void*, int index, MenuItemTexts* texts) {
  FillTexts(*texts);
  return index == 0;
}
