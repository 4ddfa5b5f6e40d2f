// The document's tagged records, kept for the life of the document.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <tuple>
#include <utility>
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

  // Calls `work` with the tag, the key and the bytes of each record, in their order.
  template <class Work>
  void ForEach(const Work& work) const {
    for (const auto& [address, bytes] : records_) work(std::get<0>(address), KeyOf(address), bytes);
  }

  // From now on the store knows how it differs from what it is now.
  void KeepOriginals() { keepsOriginals_ = true; }
  // The first record that was there then, and is another now, or not there.
  std::optional<std::pair<std::uint32_t, EDataKey>> FirstChanged() const;
  // How many are there that were not there then.
  std::size_t Added() const;

 private:
  using Address = std::tuple<std::uint32_t, std::uint16_t, std::uint16_t>;
  static Address AddressOf(std::uint32_t tag, EDataKey key) { return {tag, key.recordNumber, key.recordIndex}; }

  static EDataKey KeyOf(const Address& address) { return {std::get<1>(address), std::get<2>(address)}; }
  // To be called before the record of that address changes.
  void KeepOriginal(const Address& address);

  std::map<Address, Bytes> records_;
  bool keepsOriginals_ = false;
  // As they were before they first changed; null: not there.
  std::map<Address, std::optional<Bytes>> originals_;
};

}  // namespace brvhost
