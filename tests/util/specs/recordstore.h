// A score of records that remembers what it was asked.
#pragma once

#include <cstring>
#include <string>
#include <vector>

#include "brevixpdk.h"
#include "recordinghost.h"
#include "testscore.h"

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
  using Bytes = TestScore::Bytes;

  RecordStore() {
    host.Before("BX_LoadEData", [this](const HostCall& call) { Remember(call); });
  }

  void Put(std::uint32_t tag, int number, Bytes bytes) { score_.PutBytes(tag, number, std::move(bytes)); }
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
  void Remember(const HostCall& call) {
    const auto tag = static_cast<std::uint32_t>(call.arguments[0]);
    const auto* const key = call.Pointer<EDataKey>(1);
    const auto* const data = call.Pointer<std::uint8_t>(2);
    const auto* const size = call.Pointer<std::int32_t>(3);
    requests.push_back({tag, key->recordNumber, key->recordIndex, data == nullptr ? 0 : *size, data != nullptr,
                        static_cast<std::uint32_t>(call.arguments[4])});
    if (data != nullptr && *size == 136) seenNewerData.assign(data + 102, data + 114);
  }

  TestScore score_{host};
};
