// Puts a record of the interface into the document's records.
#pragma once

#include <cstdint>

#include "BrvEDK/Source/hostrecords.h"
#include "host/services/edatastore.h"

namespace brvhost {

// The key of a record that has a number and no index.
inline EDataKey KeyOf(int number) { return {static_cast<std::uint16_t>(number), 0}; }

template <class Record>
void StoreRecord(EDataStore& records, std::uint32_t tag, int number, const Record& record) {
  const auto* const bytes = reinterpret_cast<const std::uint8_t*>(&record);
  records.Save(tag, KeyOf(number), EDataStore::Bytes(bytes, bytes + sizeof(record)));
}

}  // namespace brvhost
