// The document's tagged records, as extensions find them by name. They live as long as the document is open. All
// functions return 1 for success and 0 for failure. A record has at most kMaxRecordSize bytes.
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "BrvEDK/Source/brevixpdk.h"
#include "host/services/edatastore.h"
#include "host/services/serve.h"

namespace {

using brvhost::EDataStore;
using brvhost::Serve;
using brvhost::Session;

constexpr uint32 kMaxRecordSize = 1 << 24;

// What `work` returns for the document's records.
template <class Work>
short16 ServeRecords(const EDataKey* key, const Work& work, const char* name = __builtin_FUNCTION()) {
  if (key == nullptr) return 0;
  const auto serve = [&](Session& session) { return work(session.Document().Records()); };
  return Serve(0, serve, name);
}

// Copies as much as fits into `size` bytes.
void CopyOut(const EDataStore::Bytes& record, void* data, std::int32_t size) {
  if (data == nullptr || size <= 0) return;
  std::copy_n(record.data(), std::min(static_cast<std::size_t>(size), record.size()), static_cast<std::uint8_t*>(data));
}

bool CopyIfFound(const EDataStore::Bytes* record, void* data, std::int32_t size) {
  if (record != nullptr) CopyOut(*record, data, size);
  return record != nullptr;
}

// Null data is a record of zeros.
EDataStore::Bytes BytesOf(const void* data, uint32 size) {
  const auto* const bytes = static_cast<const std::uint8_t*>(data);
  return bytes == nullptr ? EDataStore::Bytes(size) : EDataStore::Bytes(bytes, bytes + size);
}

}  // namespace

extern "C" {

// Null data asks for the size alone.
short16 BX_LoadEData(uint32 tag, EDataKey* key, void* data, std::int32_t* size, BrvVersion) {
  return ServeRecords(key, [&](const EDataStore& records) {
    const EDataStore::Bytes* const record = size == nullptr ? nullptr : records.Find(tag, *key);
    if (record == nullptr) return false;
    CopyOut(*record, data, *size);
    *size = static_cast<std::int32_t>(record->size());
    return true;
  });
}

// Creates the record where there is none.
short16 BX_SaveEData(uint32 tag, EDataKey* key, void* data, uint32 size, BrvVersion) {
  return ServeRecords(key, [&](EDataStore& records) {
    if (size > kMaxRecordSize) return false;
    records.Save(tag, *key, BytesOf(data, size));
    return true;
  });
}

// Fails where there is one already.
short16 BX_CreateEData(uint32 tag, EDataKey* key, void* data, int32 size, BrvVersion) {
  return ServeRecords(key, [&](EDataStore& records) {
    const auto count = static_cast<uint32>(size);
    return count <= kMaxRecordSize && records.Create(tag, *key, BytesOf(data, count));
  });
}

short16 BX_DeleteEData(uint32 tag, EDataKey* key, BrvVersion) {
  return ServeRecords(key, [&](EDataStore& records) { return records.Erase(tag, *key); });
}

// The nearest record of the tag before the key, by record number and then index; the key becomes its key. `size` is
// the number of bytes at `data`.
short16 BX_PreviousEData(uint32 tag, EDataKey* key, void* data, int32 size, BrvVersion) {
  return ServeRecords(key,
                      [&](const EDataStore& records) { return CopyIfFound(records.Previous(tag, *key), data, size); });
}

// Likewise the nearest record after the key.
short16 BX_NextEData(uint32 tag, EDataKey* key, void* data, int32 size, BrvVersion) {
  return ServeRecords(key, [&](const EDataStore& records) { return CopyIfFound(records.Next(tag, *key), data, size); });
}

}  // extern "C"
