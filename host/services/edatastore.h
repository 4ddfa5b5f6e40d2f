// The document's tagged records, kept for the life of the document.
#pragma once

#include <cstdint>
#include <map>
#include <tuple>
#include <vector>

#include "BrvEDK/Source/hostrecords.h"

namespace brvhost {

class EDataStore {
 public:
  using Bytes = std::vector<std::uint8_t>;

  // The record, or null. Stays valid until the record is erased.
  const Bytes* Find(std::uint32_t tag, EDataKey key) const;
  // Changes a record, or adds it.
  void Save(std::uint32_t tag, EDataKey key, Bytes bytes);
  // Adds a record; false, and nothing is added, when there is one already.
  [[nodiscard]] bool Create(std::uint32_t tag, EDataKey key, Bytes bytes);
  bool Erase(std::uint32_t tag, EDataKey key);
  // The nearest record of the same tag before or after `key`, by record number, then record index, both unsigned.
  // Moves `key` to it. Null, with `key` unchanged, when there is none.
  const Bytes* Previous(std::uint32_t tag, EDataKey& key) const;
  const Bytes* Next(std::uint32_t tag, EDataKey& key) const;

 private:
  using Address = std::tuple<std::uint32_t, std::uint16_t, std::uint16_t>;
  static Address AddressOf(std::uint32_t tag, EDataKey key) { return {tag, key.recordNumber, key.recordIndex}; }

  std::map<Address, Bytes> records_;
};

}  // namespace brvhost
