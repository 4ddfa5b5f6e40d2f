// Document records, and the newer preference records on hosts that keep them as legacy records.
#include <algorithm>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <span>

#include "brvassert.h"
#include "hostfunction.h"
#include "preffield.h"
#include "recordtag.h"

namespace {

constexpr std::uint32_t kFretInstrument = 0x4F156649;
constexpr std::uint32_t kFretInstrumentSize = 252;
// Extensions built for hosts before this version save legacy records themselves.
//
// Compatibility: saving depends on the version, loading does not. Extensions of any version load preference records,
// and get the same settings as from the legacy records.
constexpr BrvVersion kFirstVersionWithPrefs = 0x08000000;

HOST_LOOKUP(LoadLookup, BX_LoadEData);
HOST_LOOKUP(SaveLookup, BX_SaveEData);

short16 LoadFromHost(uint32 tag, EDataKey* key, void* data, std::int32_t* size, BrvVersion version) {
  FORWARD_WITH_LOOKUP(LoadLookup, BX_LoadEData, 0, tag, key, data, size, version);
}

short16 SaveToHost(uint32 tag, EDataKey* key, void* data, uint32 size, BrvVersion version) {
  FORWARD_WITH_LOOKUP(SaveLookup, BX_SaveEData, 0, tag, key, data, size, version);
}

short16 Flag(bool value) { return static_cast<short16>(value ? 1 : 0); }

int NumberOf(const EDataKey* key) { return key == nullptr ? 0 : key->recordNumber; }

// Returns whether the host could load the fret-instrument record.
//
// Compatibility: the failed assertion keeps the file name and line by which existing crash reports are sorted, wherever
// the check is now.
bool LoadFretInstrument(EDataKey* key, void* data, std::int32_t* size, BrvVersion version) {
  if (static_cast<std::uint32_t>(*size) < kFretInstrumentSize) {
    BrvAssertFailed("BX_LoadEData", "BrvEDK/Source/brevixpdk", 1442, "*size >= sizeof(EDTFretInstrument25_3)");
  }
  auto* const bytes = static_cast<std::uint8_t*>(data);
  std::fill_n(bytes, kFretInstrumentSize, std::uint8_t{0});
  return LoadFromHost(kFretInstrument, key, data, size, version) != 0;
}

bool IsAnyByteSet(const void* data, std::uint32_t size) {
  const auto* const bytes = static_cast<const std::uint8_t*>(data);
  return std::any_of(bytes, bytes + size, [](std::uint8_t byte) { return byte != 0; });
}

// Legacy records ----------------------------------------------------------------------------------------------------

// The host's legacy record, or zeros if it has none.
//
// Compatibility: a load or save that the host refuses is not reported. Hosts lack the records of settings that came
// after them, and extensions still expect the rest of a preference record.
LegacyRecord LoadLegacy(const LegacyAddress& address, BrvVersion version) {
  LegacyRecord record{};
  EDataKey key = address.Key();
  std::int32_t size = sizeof(record);
  LoadFromHost(address.tag, &key, &record, &size, version);
  return record;
}

// Compatibility: the record goes out with the kit's version, not with the caller's: the kit is what wrote it, and hosts
// choose the layout by the version.
void SaveLegacy(const LegacyAddress& address, LegacyRecord record) {
  EDataKey key = address.Key();
  SaveToHost(address.tag, &key, &record, sizeof(record), kBrvVersion);
}

// The legacy records that a preference tag without a table maps to: some in a row.
struct LegacyRow {
  LegacyAddress first;
  int count = 0;  // 0: the tag needs no mapping

  LegacyAddress At(int i) const {
    return {first.tag, first.recordNumber, static_cast<std::uint16_t>(first.recordIndex + i)};
  }
  std::uint32_t Size() const { return static_cast<std::uint32_t>(count) * sizeof(LegacyRecord); }
};

// A preference tag, the legacy records that it maps to, and the record numbers that it allows.
struct PrefTag {
  std::uint32_t tag;
  std::uint32_t legacyTag;
  int count;
  int lastNumber;  // from 1; 0 allows any
  bool isIndexed;  // the record number chooses the legacy record
};

constexpr PrefTag kPrefTags[] = {
    {RecordTag("pfGD"), RecordTag("ot79"), 1, 0, false},  {RecordTag("pfGG"), RecordTag("ot88"), 11, 0, false},
    {RecordTag("pfGb"), RecordTag("ot98"), 1, 4, true},   {RecordTag("pfGd"), RecordTag("ot80"), 1, 0, false},
    {RecordTag("pfGs"), RecordTag("ot91"), 1, 1, false},  {RecordTag("pfMM"), RecordTag("ot25"), 2, 0, false},
    {RecordTag("pfND"), RecordTag("ot04"), 1, 0, false},  {RecordTag("pfNd"), RecordTag("ot66"), 1, 0, false},
    {RecordTag("pfPF"), RecordTag("ot77"), 4, 1, false},  {RecordTag("pfSC"), RecordTag("ot52"), 2, 0, false},
    {RecordTag("pfSN"), RecordTag("ot40"), 1, 128, true}, {RecordTag("pfSP"), RecordTag("ot94"), 3, 0, false},
    {RecordTag("pfSl"), RecordTag("ot26"), 1, 15, true},  {RecordTag("pfTC"), RecordTag("ot86"), 5, 0, false},
    {RecordTag("pfTI"), RecordTag("ot84"), 4, 0, false},  {RecordTag("pfTX"), RecordTag("ot78"), 9, 0, false},
    {RecordTag("pfTp"), RecordTag("ot85"), 4, 0, false},  {RecordTag("pfTs"), RecordTag("ot90"), 1, 9, true},
};

// Returns false if the tag does not allow the record number.
bool mapPrefTag(std::uint32_t tag, int recordNumber, LegacyRow& row) {
  row = {};
  const auto* const found = std::find_if(std::begin(kPrefTags), std::end(kPrefTags),
                                         [tag](const PrefTag& known) { return known.tag == tag; });
  if (found == std::end(kPrefTags)) return true;
  const int index = ZeroExtend16(recordNumber - 1);
  if (found->lastNumber != 0 && index >= found->lastNumber) return false;
  row.first = {found->legacyTag, kDocumentRecord, static_cast<std::uint16_t>(found->isIndexed ? index : 0)};
  row.count = found->count;
  return true;
}

void LoadRowInto(void* data, const LegacyRow& row, BrvVersion version) {
  auto* bytes = static_cast<std::uint8_t*>(data);
  for (int i = 0; i < row.count; ++i, bytes += sizeof(LegacyRecord)) {
    const LegacyRecord record = LoadLegacy(row.At(i), version);
    std::memcpy(bytes, &record, sizeof(record));
  }
}

bool LoadRow(const LegacyRow& row, void* data, std::int32_t* size, BrvVersion version) {
  if (size == nullptr) return false;
  const auto whole = static_cast<std::int32_t>(row.Size());
  if (data != nullptr && *size < whole) return false;
  if (data != nullptr) LoadRowInto(data, row, version);
  // Set last: until then the host sees the caller's size.
  *size = whole;
  return true;
}

bool SaveRow(const LegacyRow& row, const void* data, std::uint32_t size) {
  if (data == nullptr || row.Size() > size) return false;
  const auto* bytes = static_cast<const std::uint8_t*>(data);
  for (int i = 0; i < row.count; ++i, bytes += sizeof(LegacyRecord)) {
    LegacyRecord record;
    std::memcpy(&record, bytes, sizeof(record));
    SaveLegacy(row.At(i), record);
  }
  return true;
}

// Preference records with a table -----------------------------------------------------------------------------------

// Goes through the legacy records that a table needs, each once, in the order in which they first appear: loads the
// record, calls `forField(field, record)` for each of its fields, and then `afterRecord(address, record)`.
template <class ForField, class AfterRecord>
void ForEachLegacyRecord(std::span<const PrefFieldMap> map, BrvVersion version, ForField forField,
                         AfterRecord afterRecord) {
  std::bitset<kMostPrefFields> done;
  for (std::size_t i = 0; i < map.size(); ++i) {
    if (done[i]) continue;
    const LegacyAddress& address = map[i].legacy;
    LegacyRecord record = LoadLegacy(address, version);
    for (std::size_t j = i; j < map.size(); ++j) {
      if (map[j].legacy != address) continue;
      forField(map[j], record);
      done[j] = true;
    }
    afterRecord(address, record);
  }
}

// The size that a load reports.
//
// Compatibility: it is the sum of the fields' sizes, less than the extent of a record with gaps. Extensions compare it
// with the sizes that they were built with.
std::int32_t SizeOf(std::span<const PrefFieldMap> map) {
  std::int32_t size = 0;
  for (const PrefFieldMap& field : map) size += field.fieldSize;
  return size;
}

// Compatibility: the capacity in *size is not checked. Extensions pass the whole record, and some leave *size unset.
bool LoadByTable(std::span<const PrefFieldMap> map, void* data, std::int32_t* size, BrvVersion version) {
  if (size == nullptr) return false;
  *size = SizeOf(map);
  if (data == nullptr) return true;
  ForEachLegacyRecord(
      map, version,
      [data](const PrefFieldMap& field, const LegacyRecord& record) { LoadPrefField(field, record, data); },
      [](const LegacyAddress&, const LegacyRecord&) {});
  return true;
}

// Compatibility: two bytes for each field are enough, whatever the fields' sizes. Older extensions pass no more.
bool SaveByTable(std::span<const PrefFieldMap> map, const void* data, std::uint32_t size, BrvVersion version) {
  if (data == nullptr || 2 * map.size() > size) return false;
  bool changed = false;
  ForEachLegacyRecord(
      map, version,
      [&](const PrefFieldMap& field, LegacyRecord& record) { changed |= StorePrefField(field, data, record); },
      [&](const LegacyAddress& address, const LegacyRecord& record) {
        if (changed) SaveLegacy(address, record);
        changed = false;
      });
  return true;
}

}  // namespace

// Compatibility: both look up their host function before anything else, whether or not the call needs it, so that they
// are bound at their first call as all other host calls are.

short16 BX_LoadEData(uint32 tag, EDataKey* key, void* data, std::int32_t* size, BrvVersion version) {
  LoadLookup::Address();
  if (tag == kFretInstrument && data != nullptr && !LoadFretInstrument(key, data, size, version)) {
    // Compatibility: a failed load counts as success if any byte arrived. Some hosts fill the record, yet report
    // failure.
    return Flag(IsAnyByteSet(data, kFretInstrumentSize));
  }
  // Compatibility: the fret-instrument record is loaded a second time below. Hosts complete it only when asked again.
  const std::span<const PrefFieldMap> map = FindPrefFieldMap(tag, NumberOf(key));
  if (!map.empty()) return Flag(LoadByTable(map, data, size, version));
  LegacyRow row;
  if (!mapPrefTag(tag, NumberOf(key), row)) return Flag(false);
  if (row.count == 0) return LoadFromHost(tag, key, data, size, version);
  return Flag(LoadRow(row, data, size, version));
}

short16 BX_SaveEData(uint32 tag, EDataKey* key, void* data, uint32 size, BrvVersion version) {
  SaveLookup::Address();
  if (version < kFirstVersionWithPrefs) return SaveToHost(tag, key, data, size, version);
  const std::span<const PrefFieldMap> map = FindPrefFieldMap(tag, NumberOf(key));
  if (!map.empty()) return Flag(SaveByTable(map, data, size, version));
  LegacyRow row;
  if (!mapPrefTag(tag, NumberOf(key), row)) return Flag(false);
  if (row.count == 0) return SaveToHost(tag, key, data, size, version);
  return Flag(SaveRow(row, data, size));
}
