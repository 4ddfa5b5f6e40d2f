// A host of document records that answers as an input wants it to, and remembers what was asked of it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "fuzz/support/input.h"
#include "tests/BrvEDK/records/legacyhost.h"

// A call as the host saw it. Of loads, `bytes` is what it left in the buffer; of saves, what it was given.
struct RecordCall {
  Address address;
  std::uint32_t version = 0;
  std::int32_t size = 0;  // as it was given
  std::vector<std::uint8_t> bytes;
  bool succeeded = false;

  bool operator==(const RecordCall&) const = default;
};

class LyingHost {
 public:
  // The host leaves memory alone from `limit` bytes of a buffer on, whatever size it is told.
  LyingHost(RecordingHost& host, Input& input, std::size_t limit) : input_(input), limit_(limit) {
    host.Forget();
    host.On("BX_LoadEData", [this](const HostCall& call) { return Load(call); });
    host.On("BX_SaveEData", [this](const HostCall& call) { return Save(call); });
  }
  LyingHost(const LyingHost&) = delete;
  LyingHost& operator=(const LyingHost&) = delete;

  std::vector<RecordCall> loads;
  std::vector<RecordCall> saves;

 private:
  static RecordCall Heard(const HostCall& call, std::int32_t size) {
    RecordCall heard;
    const auto* const key = call.Pointer<EDataKey>(1);
    heard.address = {static_cast<std::uint32_t>(call.arguments[0]), key == nullptr ? -1 : key->recordNumber,
                     key == nullptr ? -1 : key->recordIndex};
    heard.version = static_cast<std::uint32_t>(call.arguments[4]);
    heard.size = size;
    return heard;
  }

  // A number of which the low 16 bits count.
  std::uint64_t Result(bool& succeeded) {
    const std::uint16_t low = input_.Below(4) == 0 ? std::uint16_t{0} : input_.Word();
    succeeded = low != 0;
    return std::uint64_t{0xABCD0000} | low;
  }

  std::uint64_t Load(const HostCall& call) {
    auto* const size = call.Pointer<std::int32_t>(3);
    RecordCall heard = Heard(call, size == nullptr ? -1 : *size);
    auto* const data = call.Pointer<std::uint8_t>(2);
    if (data != nullptr) {
      const auto capacity = static_cast<std::size_t>(std::max(heard.size, 0));
      const std::size_t held = std::min(capacity, limit_);
      std::ranges::copy(input_.Text(std::min<std::size_t>(held, input_.Byte() % 20)), data);
      heard.bytes.assign(data, data + held);
    }
    if (size != nullptr && input_.Flag()) *size = static_cast<std::int32_t>(input_.Long());
    const std::uint64_t result = Result(heard.succeeded);
    loads.push_back(heard);
    return result;
  }

  std::uint64_t Save(const HostCall& call) {
    RecordCall heard = Heard(call, static_cast<std::int32_t>(call.arguments[3]));
    const auto* const data = call.Pointer<std::uint8_t>(2);
    const auto held = std::min<std::size_t>(static_cast<std::uint32_t>(heard.size), limit_);
    if (data != nullptr) heard.bytes.assign(data, data + held);
    const std::uint64_t result = Result(heard.succeeded);
    saves.push_back(heard);
    return result;
  }

  Input& input_;
  const std::size_t limit_;
};
