#include "extension.h"

int BrevixExtensionEnumerate_UTF16(void*, int index, MenuItemTexts* texts) {
  if (index != 0) return 0;
  const std::uint32_t before = texts->reserved;
  FillTexts(*texts);
  texts->reserved = before;
  return 1;
}
