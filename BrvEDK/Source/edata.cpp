// Document records, and the newer preference records on hosts that keep them as legacy records.
#define BRV_DISTINCT_INTEGER_CLASSES

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "brvassert.h"
#include "hostfunction.h"
#include "preffield.h"
#include "recordtag.h"

namespace {

constexpr std::uint32_t kFretInstrument = 0x4F156649;
constexpr std::uint32_t kFretInstrumentSize = 252;
// Extensions built for hosts before this version save legacy records themselves. Loading has no such test: what they
// load is the same either way.
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

// Whether the fret-instrument record could be loaded, or holds something all the same.
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

// What a preference tag without a table stands for: a row of legacy records, one after the other.
struct LegacyRecords {
  std::uint32_t tag = 0;  // 0: the tag needs no mapping
  int count = 0;
  int firstIndex = 0;

  std::uint32_t Size() const { return static_cast<std::uint32_t>(count) * sizeof(LegacyRecord); }
};

// A preference tag, what it stands for, and the record numbers that it allows.
struct PrefTag {
  std::uint32_t tag;
  std::uint32_t legacyTag;
  int count;
  int lastNumber;  // from 1; 0 allows any
  bool isIndexed;  // the number says which legacy record it is
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

// False when the record number is not one that the tag allows.
bool mapPrefTag(std::uint32_t tag, int recordNumber, LegacyRecords& records) {
  records = {};
  if (tag >> 16 != RecordTag("pf\0\0") >> 16) return true;
  const auto* const found = std::find_if(std::begin(kPrefTags), std::end(kPrefTags),
                                         [tag](const PrefTag& known) { return known.tag == tag; });
  if (found == std::end(kPrefTags)) return true;
  const int index = ZeroExtend16(recordNumber - 1);
  if (found->lastNumber != 0 && index >= found->lastNumber) return false;
  records = {found->legacyTag, found->count, found->isIndexed ? index : 0};
  return true;
}

// What the host has of a legacy record; zeros where it has none.
LegacyRecord LoadLegacy(std::uint32_t tag, EDataKey key, BrvVersion version) {
  LegacyRecord record{};
  std::int32_t size = sizeof(record);
  LoadFromHost(tag, &key, &record, &size, version);
  return record;
}

void SaveLegacy(std::uint32_t tag, EDataKey key, void* data) {
  SaveToHost(tag, &key, data, sizeof(LegacyRecord), kBrvVersion);
}

EDataKey KeyOf(const LegacyRecords& records, int i) {
  return {kDocumentRecord, static_cast<std::uint16_t>(records.firstIndex + i)};
}

void LoadRowInto(void* data, const LegacyRecords& records, BrvVersion version) {
  auto* bytes = static_cast<std::uint8_t*>(data);
  for (int i = 0; i < records.count; ++i, bytes += sizeof(LegacyRecord)) {
    const LegacyRecord record = LoadLegacy(records.tag, KeyOf(records, i), version);
    std::memcpy(bytes, &record, sizeof(record));
  }
}

bool LoadRow(const LegacyRecords& records, void* data, std::int32_t* size, BrvVersion version) {
  if (size == nullptr) return false;
  const auto whole = static_cast<std::int32_t>(records.Size());
  if (data != nullptr && *size < whole) return false;
  if (data != nullptr) LoadRowInto(data, records, version);
  // Last: until then the host sees the caller's size.
  *size = whole;
  return true;
}

bool SaveRow(const LegacyRecords& records, void* data, std::uint32_t size) {
  if (data == nullptr || records.Size() > size) return false;
  auto* record = static_cast<LegacyRecord*>(data);
  for (int i = 0; i < records.count; ++i) SaveLegacy(records.tag, KeyOf(records, i), record++);
  return true;
}

// Preference records with a table -----------------------------------------------------------------------------------

std::uint32_t LegacyTagOf(const PrefFieldMap& field) {
  return RecordTag({'o', 't', field.legacyTag[0], field.legacyTag[1], '\0'});
}

EDataKey KeyOf(const PrefFieldMap& field) {
  return {field.recordNumber == 0 ? kDocumentRecord : field.recordNumber, field.recordIndex};
}

// The work flag and the legacy record's address as one number: fields that still want the same record are alike in it.
std::uint64_t StateOf(const PrefFieldMap& field) {
  static_assert(offsetof(PrefFieldMap, fieldOffset) == sizeof(std::uint64_t));
  std::uint64_t state;
  std::memcpy(&state, &field, sizeof(state));
  return state;
}

// Goes through the legacy records that a table needs, each once, in the order in which they first appear: loads each,
// hands each of its fields to `forField(field, record)`, and then the record to `afterRecord(first field, record)`.
template <class ForField, class AfterRecord>
void ForEachLegacyRecord(std::span<PrefFieldMap> map, BrvVersion version, ForField forField, AfterRecord afterRecord) {
  for (PrefFieldMap& field : map) field.done = 0;
  for (std::size_t i = 0; i < map.size(); ++i) {
    if (map[i].done != 0) continue;
    const std::uint64_t wanted = StateOf(map[i]);
    LegacyRecord legacy = LoadLegacy(LegacyTagOf(map[i]), KeyOf(map[i]), version);
    for (PrefFieldMap& field : map.subspan(i)) {
      if (StateOf(field) != wanted) continue;
      forField(field, legacy);
      field.done = 1;
    }
    afterRecord(map[i], legacy);
  }
}

// The sizes of its fields: not the extent of the record, in which some stand apart.
std::int32_t SizeOf(std::span<const PrefFieldMap> map) {
  std::int32_t size = 0;
  for (const PrefFieldMap& field : map) size += field.fieldSize;
  return size;
}

// The room in *size is not looked at: it always was the caller's to give a whole record.
bool LoadByTable(std::span<PrefFieldMap> map, void* data, std::int32_t* size, BrvVersion version) {
  if (size == nullptr) return false;
  *size = SizeOf(map);
  if (data == nullptr) return true;
  ForEachLegacyRecord(
      map, version,
      [data](const PrefFieldMap& field, const LegacyRecord& legacy) { LoadPrefField(field, legacy, data); },
      [](const PrefFieldMap&, const LegacyRecord&) {});
  return true;
}

// A size of two bytes a field will do, whatever the fields' sizes: callers of old give no more.
bool SaveByTable(std::span<PrefFieldMap> map, const void* data, std::uint32_t size, BrvVersion version) {
  if (data == nullptr || 2 * map.size() > size) return false;
  bool changed = false;
  ForEachLegacyRecord(
      map, version,
      [&](const PrefFieldMap& field, LegacyRecord& legacy) { changed |= StorePrefField(field, data, legacy); },
      [&](const PrefFieldMap& field, LegacyRecord& legacy) {
        if (changed) SaveLegacy(LegacyTagOf(field), KeyOf(field), &legacy);
        changed = false;
      });
  return true;
}

}  // namespace

// Both look their host function up before anything else, whether or not this call comes to it: what is called before
// the host is bound stays without its host function for good, as every other call to the host does.

short16 BX_LoadEData(uint32 tag, EDataKey* key, void* data, std::int32_t* size, BrvVersion version) {
  LoadLookup::Address();
  if (tag == kFretInstrument && data != nullptr && !LoadFretInstrument(key, data, size, version)) {
    return Flag(IsAnyByteSet(data, kFretInstrumentSize));
  }
  // The fret-instrument record is loaded a second time: hosts complete it only when they are asked again.
  const std::span<PrefFieldMap> map = FindPrefFieldMap(tag, NumberOf(key));
  if (!map.empty()) return Flag(LoadByTable(map, data, size, version));
  LegacyRecords records;
  if (!mapPrefTag(tag, NumberOf(key), records)) return Flag(false);
  if (records.tag == 0) return LoadFromHost(tag, key, data, size, version);
  return Flag(LoadRow(records, data, size, version));
}

short16 BX_SaveEData(uint32 tag, EDataKey* key, void* data, uint32 size, BrvVersion version) {
  SaveLookup::Address();
  if (version < kFirstVersionWithPrefs) return SaveToHost(tag, key, data, size, version);
  const std::span<PrefFieldMap> map = FindPrefFieldMap(tag, NumberOf(key));
  if (!map.empty()) return Flag(SaveByTable(map, data, size, version));
  LegacyRecords records;
  if (!mapPrefTag(tag, NumberOf(key), records)) return Flag(false);
  if (records.tag == 0) return SaveToHost(tag, key, data, size, version);
  return Flag(SaveRow(records, data, size));
}
