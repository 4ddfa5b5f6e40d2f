#include "host/services/edatastore.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace brvhost {

const EDataStore::Bytes* EDataStore::Find(std::uint32_t tag, EDataKey key) const {
  const auto found = records_.find(AddressOf(tag, key));
  return found == records_.end() ? nullptr : &found->second;
}

void EDataStore::Save(std::uint32_t tag, EDataKey key, Bytes bytes) {
  const Address address = AddressOf(tag, key);
  KeepOriginal(address);
  records_.insert_or_assign(address, std::move(bytes));
}

bool EDataStore::Create(std::uint32_t tag, EDataKey key, Bytes bytes) {
  const Address address = AddressOf(tag, key);
  if (records_.contains(address)) return false;
  KeepOriginal(address);
  return records_.emplace(address, std::move(bytes)).second;
}

bool EDataStore::Erase(std::uint32_t tag, EDataKey key) {
  const Address address = AddressOf(tag, key);
  if (!records_.contains(address)) return false;
  KeepOriginal(address);
  return records_.erase(address) != 0;
}

const EDataStore::Bytes* EDataStore::Previous(std::uint32_t tag, EDataKey& key) const {
  auto found = records_.lower_bound(AddressOf(tag, key));
  if (found == records_.begin()) return nullptr;
  --found;
  if (std::get<0>(found->first) != tag) return nullptr;
  key = KeyOf(found->first);
  return &found->second;
}

const EDataStore::Bytes* EDataStore::Next(std::uint32_t tag, EDataKey& key) const {
  const auto found = records_.upper_bound(AddressOf(tag, key));
  if (found == records_.end() || std::get<0>(found->first) != tag) return nullptr;
  key = KeyOf(found->first);
  return &found->second;
}

void EDataStore::KeepOriginal(const Address& address) {
  if (!keepsOriginals_ || originals_.contains(address)) return;
  const auto found = records_.find(address);
  originals_.emplace(address, found == records_.end() ? std::nullopt : std::optional(found->second));
}

std::optional<std::pair<std::uint32_t, EDataKey>> EDataStore::FirstChanged() const {
  for (const auto& [address, original] : originals_) {
    const auto now = records_.find(address);
    if (original && (now == records_.end() || now->second != *original)) {
      return std::pair(std::get<0>(address), KeyOf(address));
    }
  }
  return std::nullopt;
}

std::size_t EDataStore::Added() const {
  return static_cast<std::size_t>(std::ranges::count_if(
      originals_, [this](const auto& entry) { return !entry.second && records_.contains(entry.first); }));
}

}  // namespace brvhost
