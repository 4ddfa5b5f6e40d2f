// Loads a record of a known size into a record of the kit's.
#pragma once

#include "brevixpdk.h"

// What the host answers: non-zero for success. It fills as much of the record as it has; the rest stays.
template <class Record>
short16 LoadRecord(std::uint32_t tag, short16 recordNumber, Record* record) {
  EDataKey key = {static_cast<std::uint16_t>(recordNumber), 0};
  std::int32_t size = sizeof(Record);
  return BX_LoadEData(tag, &key, record, &size, kBrvVersion);
}
