// Records whose words are this host's own choice: of their layout, only the size is known to extensions.
#pragma once

#include <cstddef>
#include <cstdint>

#include "BrvEDK/Source/documentrecords.h"

namespace brvhost {

#pragma pack(push, 2)

// Of a group of staves.
struct GroupRecord {
  std::int16_t firstStaff;
  std::int16_t lastStaff;
  std::int16_t nameTextBlock;  // 0: none
  std::int16_t symbol;         // 0 none, 1 brace, 2 bracket, 3 line, 4 square
  std::uint8_t unused[28];
};
static_assert(sizeof(GroupRecord) == sizeof(EDTGroupSpec));
static_assert(offsetof(GroupRecord, lastStaff) == 2);
static_assert(offsetof(GroupRecord, nameTextBlock) == 4);
static_assert(offsetof(GroupRecord, symbol) == 6);

// Of a page.
struct PageRecord {
  std::int16_t firstMeasure;
  std::uint8_t unused[20];
};
static_assert(sizeof(PageRecord) == sizeof(EDTPageSpec));

#pragma pack(pop)

}  // namespace brvhost
