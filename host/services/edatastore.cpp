#include "host/services/edatastore.h"

#include <tuple>
#include <utility>

namespace brvhost {

const EDataStore::Bytes* EDataStore::Find(std::uint32_t tag, EDataKey key) const {
  const auto found = records_.find(AddressOf(tag, key));
  return found == records_.end() ? nullptr : &found->second;
}

void EDataStore::Save(std::uint32_t tag, EDataKey key, Bytes bytes) {
  records_.insert_or_assign(AddressOf(tag, key), std::move(bytes));
}

bool EDataStore::Create(std::uint32_t tag, EDataKey key, Bytes bytes) {
  return records_.emplace(AddressOf(tag, key), std::move(bytes)).second;
}

bool EDataStore::Erase(std::uint32_t tag, EDataKey key) { return records_.erase(AddressOf(tag, key)) != 0; }

const EDataStore::Bytes* EDataStore::Previous(std::uint32_t tag, EDataKey& key) const {
  auto found = records_.lower_bound(AddressOf(tag, key));
  if (found == records_.begin()) return nullptr;
  --found;
  if (std::get<0>(found->first) != tag) return nullptr;
  key = {std::get<1>(found->first), std::get<2>(found->first)};
  return &found->second;
}

const EDataStore::Bytes* EDataStore::Next(std::uint32_t tag, EDataKey& key) const {
  const auto found = records_.upper_bound(AddressOf(tag, key));
  if (found == records_.end() || std::get<0>(found->first) != tag) return nullptr;
  key = {std::get<1>(found->first), std::get<2>(found->first)};
  return &found->second;
}

}  // namespace brvhost
