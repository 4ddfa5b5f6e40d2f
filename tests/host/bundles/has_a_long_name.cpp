#include "extension.h"

int BrevixExtensionEnumerate_UTF16(void*, int index, MenuItemTexts* texts) {
  if (index != 0) return 0;
  FillTexts(*texts);
  constexpr int kLength = 61;
  for (int i = 0; i < kLength; ++i) texts->text1[i] = 'x';
  texts->text1[kLength] = 0;
  return 1;
}
