#include "extension.h"

int BrevixExtensionEnumerate_UTF16(void*, int index, MenuItemTexts* texts) {
  if (index != 0) return 0;
  FillTexts(*texts);
  for (UniChar& unit : texts->text2) unit = 'x';
  return 1;
}
