// Document records of any tag, number and size, loaded and saved on a host that fails as it likes and stores any words.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "brevixpdk.h"
#include "fuzz/kit/lyinghost.h"
#include "fuzz/support/input.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"
#include "tests/BrvEDK/records/listing.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kLegacySize = 12;
constexpr std::size_t kFretSize = 252;
constexpr int kDocument = 0xFFFE;
const std::uint32_t kFretTag = 0x4F156649;
constexpr std::uint32_t kFirstMappedVersion = 0x08000000;

// Tags that map to whole legacy records: the legacy tag, how many, the greatest number from 1 (0: any), and whether the
// number chooses the record.
struct Row {
  const char* tag;
  const char* legacyTag;
  std::size_t records;
  int lastNumber;
  bool isIndexed;
};
constexpr Row kRows[] = {{"pfGD", "ot79", 1, 0, false}, {"pfGG", "ot88", 11, 0, false}, {"pfGb", "ot98", 1, 4, true},
                         {"pfGd", "ot80", 1, 0, false}, {"pfGs", "ot91", 1, 1, true},   {"pfMM", "ot25", 2, 0, false},
                         {"pfND", "ot04", 1, 0, false}, {"pfNd", "ot66", 1, 0, false},  {"pfPF", "ot77", 4, 1, true},
                         {"pfSC", "ot52", 2, 0, false}, {"pfSN", "ot40", 1, 128, true}, {"pfSP", "ot94", 3, 0, false},
                         {"pfSl", "ot26", 1, 15, true}, {"pfTC", "ot86", 5, 0, false},  {"pfTI", "ot84", 4, 0, false},
                         {"pfTX", "ot78", 9, 0, false}, {"pfTp", "ot85", 4, 0, false},  {"pfTs", "ot90", 1, 9, true}};

const std::vector<ListedRecord>& Listed() {
  static const std::vector<ListedRecord> records = ListedRecords();
  return records;
}

std::uint32_t Unsigned16(const Bytes& bytes, std::size_t at) {
  return static_cast<std::uint32_t>(bytes.at(at) | bytes.at(at + 1) << 8);
}
std::uint32_t Unsigned32(const Bytes& bytes, std::size_t at) {
  return Unsigned16(bytes, at) | Unsigned16(bytes, at + 2) << 16;
}
void Put16(Bytes& bytes, std::size_t at, std::uint32_t value) {
  bytes.at(at) = static_cast<std::uint8_t>(value);
  bytes.at(at + 1) = static_cast<std::uint8_t>(value >> 8);
}

// The field as it is loaded from its legacy record.
std::uint32_t Loaded(const ListedField& field, const Bytes& legacy) {
  const std::size_t word = 2 * static_cast<std::size_t>(field.word);
  const std::uint32_t value = Unsigned16(legacy, word);
  if (field.kind == "long") return value << 16 | Unsigned16(legacy, word + 2);
  if (field.kind == "inverted") return value == 0 ? 1 : 0;
  if (field.kind == "byte") return value & 0xFF;
  return value;
}

// Puts the field's value into its legacy record. Returns whether that counts as a change.
bool Store(const ListedField& field, const Bytes& record, Bytes& legacy) {
  const auto offset = static_cast<std::size_t>(field.offset);
  const std::size_t word = 2 * static_cast<std::size_t>(field.word);
  if (field.kind == "long") {
    const std::uint32_t value = Unsigned32(record, offset);
    if (value == Loaded(field, legacy)) return false;
    Put16(legacy, word, value >> 16);
    Put16(legacy, word + 2, value);
    return true;
  }
  std::uint32_t value = Unsigned16(record, offset);
  if (field.kind == "byte") value = (value & 0x80) != 0 ? value | 0xFF00 : value & 0xFF;
  if (value == Loaded(field, legacy)) return false;
  if (field.kind == "inverted") value = value == 0 ? 1 : 0;
  Put16(legacy, word, value);
  return true;
}

// What the caller passes.
struct Request {
  std::uint32_t tag = 0;
  EDataKey key = {};
  bool hasKey = true;
  bool hasData = true;
  bool hasSize = true;
  std::int32_t size = 0;
  BrvVersion version = 0;
  Bytes data;

  int Number() const { return hasKey ? key.recordNumber : 0; }
  EDataKey* Key() { return hasKey ? &key : nullptr; }
  void* Data() { return hasData ? data.data() : nullptr; }
};

std::vector<Address> AddressesOf(const std::vector<RecordCall>& calls) {
  std::vector<Address> addresses(calls.size());
  std::ranges::transform(calls, addresses.begin(), &RecordCall::address);
  return addresses;
}

void RequireLegacyLoads(const LyingHost& host, BrvVersion version) {
  for (const RecordCall& call : host.loads) {
    Require(call.version == version, "legacy records are loaded with the caller's version");
    Require(call.size == static_cast<int>(kLegacySize), "legacy records are loaded with their size");
  }
}

const Bytes& LegacyAt(const LyingHost& host, const Address& address) {
  const auto found =
      std::ranges::find_if(host.loads, [&address](const RecordCall& call) { return call.address == address; });
  Require(found != host.loads.end(), "each legacy record is loaded");
  return found->bytes;
}

void CheckLoadByTable(const ListedRecord& record, Request& request, LyingHost& host) {
  Bytes expected = request.data;
  std::int32_t size = request.size;
  const int result =
      BX_LoadEData(request.tag, request.Key(), request.Data(), request.hasSize ? &size : nullptr, request.version);
  Require(result == (request.hasSize ? 1 : 0), "a preference record is loaded where there is a size to fill in");
  Require(!request.hasSize || size == record.size, "the size is the sum of the fields'");
  const bool loads = request.hasSize && request.hasData;
  Require(AddressesOf(host.loads) == (loads ? record.LegacyRecords() : std::vector<Address>()),
          "each legacy record is loaded once, in the order of the fields");
  RequireLegacyLoads(host, request.version);
  for (const ListedField& field : record.fields) {
    if (!loads) break;
    const std::uint32_t value = Loaded(field, LegacyAt(host, field.legacy));
    const auto offset = static_cast<std::size_t>(field.offset);
    Put16(expected, offset, value);
    if (field.Size() == 4) Put16(expected, offset + 2, value >> 16);
  }
  Require(request.data == expected, "the fields are those of the legacy records, and nothing else is written");
}

void CheckSaveByTable(const ListedRecord& record, Request& request, LyingHost& host) {
  const Bytes before = request.data;
  const int result = BX_SaveEData(request.tag, request.Key(), request.Data(), static_cast<std::uint32_t>(request.size),
                                  request.version);
  const bool saves = request.hasData && static_cast<std::uint32_t>(request.size) >= 2 * record.fields.size();
  Require(result == (saves ? 1 : 0), "a preference record is saved from two bytes a field");
  Require(request.data == before, "a record that is saved stays as it is");
  Require(AddressesOf(host.loads) == (saves ? record.LegacyRecords() : std::vector<Address>()),
          "each legacy record is loaded once before it is saved");
  RequireLegacyLoads(host, request.version);
  std::vector<RecordCall> expected;
  for (const Address& address : AddressesOf(host.loads)) {
    Bytes legacy = LegacyAt(host, address);
    bool changed = false;
    for (const ListedField& field : record.fields) {
      if (field.legacy == address) changed |= Store(field, before, legacy);
    }
    if (changed) expected.push_back({address, kBrvVersion, static_cast<int>(kLegacySize), legacy});
  }
  std::vector<RecordCall> saved = host.saves;
  for (RecordCall& call : saved) call.succeeded = false;
  Require(saved == expected, "those legacy records are saved in which a field has changed, with the kit's version");
}

// The legacy records of a row, or none where it does not have the number.
std::vector<Address> AddressesOf(const Row& row, int number) {
  const int index = (number - 1) & 0xFFFF;
  if (row.lastNumber != 0 && index >= row.lastNumber) return {};
  std::vector<Address> addresses;
  for (std::size_t i = 0; i < row.records; ++i) {
    addresses.emplace_back(Tag(row.legacyTag), kDocument, (row.isIndexed ? index : 0) + static_cast<int>(i));
  }
  return addresses;
}

void CheckLoadRow(const Row& row, Request& request, LyingHost& host) {
  Bytes expected = request.data;
  std::int32_t size = request.size;
  const auto addresses = AddressesOf(row, request.Number());
  const auto whole = static_cast<std::int32_t>(row.records * kLegacySize);
  const int result =
      BX_LoadEData(request.tag, request.Key(), request.Data(), request.hasSize ? &size : nullptr, request.version);
  const bool good = !addresses.empty() && request.hasSize && (!request.hasData || request.size >= whole);
  Require(result == (good ? 1 : 0), "a row is loaded where its number and size allow it");
  Require(!request.hasSize || size == (good ? whole : request.size), "the size of a row is that of its records");
  Require(AddressesOf(host.loads) == (good && request.hasData ? addresses : std::vector<Address>()),
          "the legacy records of a row are loaded in order");
  RequireLegacyLoads(host, request.version);
  for (std::size_t i = 0; i < host.loads.size(); ++i) {
    std::ranges::copy(host.loads[i].bytes, expected.begin() + static_cast<std::ptrdiff_t>(i * kLegacySize));
  }
  Require(request.data == expected, "a row is its legacy records, and nothing else is written");
}

void CheckSaveRow(const Row& row, Request& request, LyingHost& host) {
  const Bytes before = request.data;
  const auto addresses = AddressesOf(row, request.Number());
  const std::size_t whole = row.records * kLegacySize;
  const int result = BX_SaveEData(request.tag, request.Key(), request.Data(), static_cast<std::uint32_t>(request.size),
                                  request.version);
  const bool good = !addresses.empty() && request.hasData && static_cast<std::uint32_t>(request.size) >= whole;
  Require(result == (good ? 1 : 0), "a row is saved where its number and size allow it");
  Require(host.loads.empty(), "a row is saved without a load");
  Require(AddressesOf(host.saves) == (good ? addresses : std::vector<Address>()), "a row is saved in order");
  for (std::size_t i = 0; i < host.saves.size(); ++i) {
    const auto from = before.begin() + static_cast<std::ptrdiff_t>(i * kLegacySize);
    Require(host.saves[i].bytes == Bytes(from, from + kLegacySize),
            "a legacy record is saved from its place in the row");
    Require(host.saves[i].version == kBrvVersion, "a row is saved with the kit's version");
  }
  Require(request.data == before, "a row that is saved stays as it is");
}

Address GivenAddress(const Request& request) {
  return request.hasKey ? Address{request.tag, request.key.recordNumber, request.key.recordIndex}
                        : Address{request.tag, -1, -1};
}

void CheckLoadUnmapped(Request& request, LyingHost& host) {
  std::int32_t size = request.size;
  const int result =
      BX_LoadEData(request.tag, request.Key(), request.Data(), request.hasSize ? &size : nullptr, request.version);
  Require(host.loads.size() == 1, "another record is loaded once");
  Require(host.loads[0].address == GivenAddress(request) && host.loads[0].version == request.version,
          "another record is loaded as it was asked for");
  Require((result != 0) == host.loads[0].succeeded, "the host's answer is passed on");
  Require(result >= INT16_MIN && result <= INT16_MAX, "an answer has 16 bits");
}

void CheckLoadFret(Request& request, LyingHost& host) {
  request.data.resize(kFretSize);
  std::int32_t size = std::max<std::int32_t>(request.size, kFretSize);
  const int result = BX_LoadEData(request.tag, request.Key(), request.data.data(), &size, request.version);
  Require(!host.loads.empty() && host.loads.size() <= 2, "the fret instrument is loaded once or twice");
  const bool first = host.loads[0].succeeded;
  Require(host.loads.size() == (first ? 2 : 1), "it is loaded again after a success");
  const bool anyByte = std::ranges::any_of(request.data, [](std::uint8_t byte) { return byte != 0; });
  Require((result != 0) == (first ? host.loads[1].succeeded : anyByte), "any byte counts after a failure");
}

void CheckSaveUnmapped(Request& request, LyingHost& host) {
  const int result = BX_SaveEData(request.tag, request.Key(), request.Data(), static_cast<std::uint32_t>(request.size),
                                  request.version);
  Require(host.loads.empty() && host.saves.size() == 1, "another record is saved once");
  const RecordCall& save = host.saves[0];
  Require(save.address == GivenAddress(request) && save.version == request.version && save.size == request.size,
          "another record is saved as it was asked for");
  Require((result != 0) == save.succeeded, "the host's answer is passed on");
}

std::uint32_t AnyTag(Input& input) {
  const auto number = static_cast<std::size_t>(input.Byte());
  if (number < Listed().size()) return Tag(Listed()[number].tag);
  if (number < Listed().size() + std::size(kRows)) return Tag(kRows[number - Listed().size()].tag);
  return number == 0xFF ? kFretTag : input.Long();
}

Request AnyRequest(Input& input) {
  Request request;
  request.tag = AnyTag(input);
  const int flags = input.Byte();
  request.hasKey = (flags & 1) == 0;
  request.hasData = (flags & 2) == 0;
  request.hasSize = (flags & 4) == 0;
  request.key = {input.Byte(), input.Byte()};
  if ((flags & 8) != 0) request.key.recordNumber = input.Word();
  request.size = (flags & 16) != 0 ? static_cast<std::int32_t>(input.Long()) : input.Byte();
  request.version = (flags & 32) != 0 ? input.Long() : kBrvVersion;
  return request;
}

// The record of the table that is loaded or saved, or null.
const ListedRecord* ListedFor(const Request& request) {
  const auto found = std::ranges::find_if(Listed(), [&](const ListedRecord& r) { return Tag(r.tag) == request.tag; });
  if (found == Listed().end() || (found->tag == "pfPF" && request.Number() != 0)) return nullptr;
  return &*found;
}

const Row* RowFor(const Request& request) {
  const auto* const found = std::ranges::find_if(kRows, [&](const Row& row) { return Tag(row.tag) == request.tag; });
  return found == std::end(kRows) ? nullptr : found;
}

// The bytes that the kit may touch, and no more.
std::size_t SizeOfBuffer(const Request& request, bool isMapped) {
  if (!isMapped) return static_cast<std::size_t>(std::clamp(request.size, 0, 1000));
  if (const ListedRecord* const record = ListedFor(request)) return record->Extent();
  if (const Row* const row = RowFor(request)) return row->records * kLegacySize;
  return static_cast<std::size_t>(std::clamp(request.size, 0, 1000));
}

void Check(Input& input) {
  static RecordingHost recorder;
  const bool saves = input.Flag();
  Request request = AnyRequest(input);
  const bool isMapped = !saves || request.version >= kFirstMappedVersion;
  const std::string_view content = input.Text(SizeOfBuffer(request, isMapped));
  request.data.assign(content.begin(), content.end());
  request.data.resize(SizeOfBuffer(request, isMapped), 0xA5);
  const bool isFret = request.tag == kFretTag && !saves && request.hasData;
  LyingHost host(recorder, input, isFret ? kFretSize : std::max(request.data.size(), kLegacySize));
  const ListedRecord* const record = isMapped ? ListedFor(request) : nullptr;
  const Row* const row = isMapped ? RowFor(request) : nullptr;
  if (isFret) return CheckLoadFret(request, host);
  if (record != nullptr) {
    return saves ? CheckSaveByTable(*record, request, host) : CheckLoadByTable(*record, request, host);
  }
  if (row != nullptr) return saves ? CheckSaveRow(*row, request, host) : CheckLoadRow(*row, request, host);
  return saves ? CheckSaveUnmapped(request, host) : CheckLoadUnmapped(request, host);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  Input input(bytes, size);
  Check(input);
  return 0;
}
