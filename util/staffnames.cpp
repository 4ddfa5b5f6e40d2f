#include <cstddef>
#include <cstring>

#include "bxstring.h"
#include "documentspecs.h"
#include "textblocks.h"

namespace {

// The raw text of a text block, or null. The caller frees it.
UniChar* LoadTextOfBlock(short16 block) {
  EDTTextBlock25_4 textBlock;
  if (BXUtilGetTextBlock(block, &textBlock) == 0) return nullptr;
  return BXUtilLoadRawTextUTF16(textBlock.rawText);
}

UniChar* LoadNameOfStaff(const EDTStaffSpec2014& spec) {
  UniChar* name = spec.nameTextBlock == 0 ? nullptr : LoadTextOfBlock(spec.nameTextBlock);
  if (name == nullptr && spec.secondNameTextBlock != 0) name = LoadTextOfBlock(spec.secondNameTextBlock);
  return name;
}

}  // namespace

int BXUtilGetStaffName(short16 staff, short16, UniChar* buffer, int capacity) {
  if (buffer == nullptr) return 0;
  if (capacity > 0) buffer[0] = 0;
  EDTStaffSpec2014 spec = {};
  if (BXUtilGetStaffSpec(staff, &spec) == 0) return 0;
  UniChar* const name = LoadNameOfStaff(spec);
  if (name == nullptr) return 0;
  BXUtilStripTextTags(name);
  // Compatibility: a name of `capacity` units or more has no final 0, and its length is counted beyond the buffer.
  // Hosts limit the names of staves, and extensions use buffers above that limit.
  bx_strncpy(buffer, name, static_cast<std::size_t>(static_cast<std::ptrdiff_t>(capacity)));
  const auto length = static_cast<int>(bx_strlen(buffer));
  BXUtilFreeRawText(name);
  return length;
}
