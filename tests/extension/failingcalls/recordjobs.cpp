// Jobs of the functions for document records.
#include <algorithm>
#include <array>
#include <cstring>

#include "jobs.h"
#include "tests/BrvEDK/records/legacyhost.h"

namespace {

// A host with legacy records, each full of one number: the record "ot13" is 13, 13, 13, 13, 13, 13.
class NumberedRecords : public LegacyHost {
 public:
  NumberedRecords(const std::string& legacyTags, FailingCalls failing, int rowLength = 1) {
    for (std::size_t i = 0; i < legacyTags.size(); i += 2) {
      for (int index = 0; index < rowLength; ++index) {
        const int number = std::stoi(legacyTags.substr(i, 2)) + index;
        const Address address = {Tag("ot" + legacyTags.substr(i, 2)), kDocumentRecord, index};
        At(address).fill(static_cast<std::uint16_t>(number));
        addresses_.emplace_back(address, number);
      }
    }
    host.Fail(failing);
  }

  // What became of each record when the fields that it has got were 7.
  std::string Fates() {
    std::string fates;
    for (const auto& [address, number] : addresses_) {
      const Words& words = At(address);
      fates += " " + std::to_string(number) + Fate(words, static_cast<std::uint16_t>(number));
    }
    return fates;
  }

 private:
  static std::string Fate(const Words& words, std::uint16_t number) {
    const auto count = [&](int word) { return std::count(words.begin(), words.end(), word); };
    if (count(number) == 6) return " as it was";
    if (count(7) + count(number) == 6) return " saved";
    if (count(7) + count(0) == 6) return " saved over zeros";
    return " garbled";
  }

  std::vector<std::pair<Address, int>> addresses_;
};

constexpr std::uint32_t kFretInstrumentTag = 0x4F156649;
constexpr const char* kPlaybackRecords = "13393637";  // in the order in which the table needs them

template <std::size_t kWords>
std::string TextOfWords(const std::array<std::uint16_t, kWords>& words) {
  std::string text;
  for (const std::uint16_t word : words) text += " " + std::to_string(word);
  return text;
}

template <std::size_t kWords>
Outcome LoadPrefs(NumberedRecords& records, const char* tag, int recordNumber) {
  std::array<std::uint16_t, kWords> prefs;
  prefs.fill(0xAAAA);
  std::int32_t size = sizeof(prefs);
  EDataKey key = {static_cast<std::uint16_t>(recordNumber), 0};
  const int result = BX_LoadEData(Tag(tag), &key, prefs.data(), &size, kBrvVersion);
  return {std::to_string(result) + ":" + TextOfWords(prefs), records.host.Calls()};
}

template <std::size_t kWords>
Outcome SavePrefs(NumberedRecords& records, const char* tag) {
  std::array<std::uint16_t, kWords> prefs;
  prefs.fill(7);
  EDataKey key = {0, 0};
  const int result = BX_SaveEData(Tag(tag), &key, prefs.data(), sizeof(prefs), kBrvVersion);
  return {std::to_string(result) + ":" + records.Fates(), records.host.Calls()};
}

}  // namespace

Outcome LoadFretInstrument(FailingCalls failing) {
  std::array<std::uint8_t, 252> record;
  record.fill(0xAA);
  RecordingHost host;
  host.On("BX_LoadEData", [](const HostCall& call) {
    std::memset(call.Pointer<void>(2), 7, 252);
    return 1;
  });
  host.Fail(failing);
  std::int32_t size = sizeof(record);
  EDataKey key = {1, 0};
  const int result = BX_LoadEData(kFretInstrumentTag, &key, record.data(), &size, kBrvVersion);
  const auto isFullOf = [&](int byte) { return std::count(record.begin(), record.end(), byte) == 252; };
  return {std::to_string(result) + (isFullOf(7) ? ": filled" : isFullOf(0) ? ": cleared" : ": garbled"), host.Calls()};
}

Outcome LoadPlaybackPrefs(FailingCalls failing) {
  NumberedRecords records(kPlaybackRecords, failing);
  return LoadPrefs<7>(records, "pfPL", 0);
}

Outcome LoadRowOfThree(FailingCalls failing) {
  NumberedRecords records("94", failing, 3);
  return LoadPrefs<18>(records, "pfSP", 0);
}

Outcome SavePlaybackPrefs(FailingCalls failing) {
  NumberedRecords records(kPlaybackRecords, failing);
  return SavePrefs<7>(records, "pfPL");
}

Outcome SaveRowOfThree(FailingCalls failing) {
  NumberedRecords records("94", failing, 3);
  return SavePrefs<18>(records, "pfSP");
}
