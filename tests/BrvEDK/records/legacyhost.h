// A host that stores legacy records, on the recording host.
#pragma once

#include <array>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "brevixpdk.h"
#include "recordinghost.h"

inline std::uint32_t Tag(const std::string& text) {
  return static_cast<std::uint32_t>(text[0]) << 24 | static_cast<std::uint32_t>(text[1]) << 16 |
         static_cast<std::uint32_t>(text[2]) << 8 | static_cast<std::uint32_t>(text[3]);
}

// Tag, record number, record index.
using Address = std::tuple<std::uint32_t, int, int>;
using Words = std::array<std::uint16_t, 6>;

// A word that shows where it comes from: no two words of the tests' records are alike, and none is 0.
inline std::uint16_t WordAt(const Address& address, int word) {
  const auto [tag, number, index] = address;
  const std::uint32_t mixed = (tag & 0xFFFF) * 2654435761u + static_cast<std::uint32_t>(number) * 40503u +
                              static_cast<std::uint32_t>(index) * 977u + static_cast<std::uint32_t>(word) * 131u;
  return static_cast<std::uint16_t>((mixed >> 8) | 1);
}

class LegacyHost {
 public:
  LegacyHost() {
    host.On("BX_LoadEData", [this](const HostCall& call) { return Load(call); });
    host.On("BX_SaveEData", [this](const HostCall& call) { return Save(call); });
  }

  // The record, made up where nothing was stored.
  Words& At(const Address& address) {
    const auto [found, isNew] = records_.try_emplace(address);
    for (int i = 0; isNew && i < 6; ++i) found->second[static_cast<std::size_t>(i)] = WordAt(address, i);
    return found->second;
  }

  const std::map<Address, Words>& All() const { return records_; }

  RecordingHost host;
  std::vector<Address> loads;
  std::vector<Address> saves;
  std::vector<std::uint32_t> loadVersions;
  std::vector<std::uint32_t> saveVersions;
  bool fails = false;
  std::set<Address> failingLoads;  // of these records alone
  std::set<Address> failingSaves;

 private:
  static Address AddressOf(const HostCall& call) {
    const auto* const key = call.Pointer<EDataKey>(1);
    return {static_cast<std::uint32_t>(call.arguments[0]), key->recordNumber, key->recordIndex};
  }

  std::uint64_t Load(const HostCall& call) {
    loads.push_back(AddressOf(call));
    loadVersions.push_back(static_cast<std::uint32_t>(call.arguments[4]));
    if (fails || failingLoads.contains(loads.back()) || *call.Pointer<std::int32_t>(3) != 12) return 0;
    std::memcpy(call.Pointer<void>(2), At(AddressOf(call)).data(), 12);
    return 1;
  }

  std::uint64_t Save(const HostCall& call) {
    saves.push_back(AddressOf(call));
    saveVersions.push_back(static_cast<std::uint32_t>(call.arguments[4]));
    if (fails || failingSaves.contains(saves.back()) || static_cast<std::uint32_t>(call.arguments[3]) != 12) return 0;
    std::memcpy(At(AddressOf(call)).data(), call.Pointer<void>(2), 12);
    return 1;
  }

  std::map<Address, Words> records_;
};
