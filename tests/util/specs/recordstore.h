// A host with records, on the recording host: it remembers what it was asked.
#pragma once

#include <algorithm>
#include <cstring>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "brevixpdk.h"
#include "recordinghost.h"

struct Request {
  std::uint32_t tag;
  int number;
  int index;
  std::int32_t size;
  bool hasData;
  std::uint32_t version;
  bool operator==(const Request&) const = default;
};

class RecordStore {
 public:
  using Bytes = std::vector<std::uint8_t>;

  RecordStore() {
    host.On("BX_LoadEData", [this](const HostCall& call) { return Load(call); });
  }

  void Put(std::uint32_t tag, int number, Bytes bytes, int index = 0) {
    records_[{tag, number, index}] = std::move(bytes);
  }
  void PutText(int number, const std::u16string& text) {
    const auto* const units = reinterpret_cast<const std::uint8_t*>(text.data());
    Put(0x7478626C, number, Bytes(units, units + 2 * text.size()));
  }
  // A text block that leads to a raw text.
  void PutTextBlock(int number, int rawText) {
    Bytes bytes(30, 0xEE);
    const auto word = static_cast<std::int16_t>(rawText);
    std::memcpy(bytes.data(), &word, 2);
    Put(0x534F5458, number, bytes);
  }
  void PutStaff(int number, int name, int secondName) {
    Bytes bytes(136, 0xEE);
    const auto first = static_cast<std::int16_t>(name);
    const auto second = static_cast<std::int16_t>(secondName);
    std::memcpy(bytes.data() + 30, &first, 2);
    std::memcpy(bytes.data() + 32, &second, 2);
    Put(0x534F4953, number, bytes);
  }

  RecordingHost host;
  std::vector<Request> requests;
  // Bytes 102 to 113 of the last record of 136 bytes, as they came to the host.
  Bytes seenNewerData;

 private:
  std::uint64_t Load(const HostCall& call) {
    const auto tag = static_cast<std::uint32_t>(call.arguments[0]);
    const auto* const key = call.Pointer<EDataKey>(1);
    auto* const data = call.Pointer<std::uint8_t>(2);
    auto* const size = call.Pointer<std::int32_t>(3);
    requests.push_back({tag, key->recordNumber, key->recordIndex, data == nullptr ? 0 : *size, data != nullptr,
                        static_cast<std::uint32_t>(call.arguments[4])});
    if (data != nullptr && *size == 136) seenNewerData.assign(data + 102, data + 114);
    const auto found = records_.find({tag, key->recordNumber, key->recordIndex});
    if (found == records_.end()) return 0;
    const Bytes& bytes = found->second;
    if (data != nullptr)
      std::copy_n(bytes.data(), std::min<std::size_t>(bytes.size(), static_cast<std::size_t>(*size)), data);
    *size = static_cast<std::int32_t>(bytes.size());
    return 1;
  }

  std::map<std::tuple<std::uint32_t, int, int>, Bytes> records_;
};
