// The document's tagged records, as extensions find them by name. They live as long as the document is open. All answer
// 1 for success and 0 for failure. A record has at most kLargestRecord bytes.
#include <algorithm>

#include "BrvEDK/Source/hosttypes.h"
#include "host/services/session.h"

namespace {

using brvhost::EDataStore;
using brvhost::Session;

constexpr std::uint32_t kLargestRecord = 1 << 24;

EDataStore* Records() {
  Session* const session = Session::Current();
  return session == nullptr ? nullptr : &session->Document().Records();
}

// Copies as much as there is room for.
void CopyOut(const EDataStore::Bytes& record, void* data, std::int32_t room) {
  if (data == nullptr || room <= 0) return;
  std::copy_n(record.data(), std::min(static_cast<std::size_t>(room), record.size()), static_cast<std::uint8_t*>(data));
}

// Null data is a record of zeros.
EDataStore::Bytes BytesOf(const void* data, std::uint32_t size) {
  const auto* const bytes = static_cast<const std::uint8_t*>(data);
  return bytes == nullptr ? EDataStore::Bytes(size) : EDataStore::Bytes(bytes, bytes + size);
}

}  // namespace

extern "C" {

// Null data asks for the size alone.
BRV_EXPORT int BX_LoadEData(std::uint32_t tag, const EDataKey* key, void* data, std::int32_t* size, BrvVersion) {
  const EDataStore* const records = Records();
  if (records == nullptr || key == nullptr || size == nullptr) return 0;
  const EDataStore::Bytes* const record = records->Find(tag, *key);
  if (record == nullptr) return 0;
  CopyOut(*record, data, *size);
  *size = static_cast<std::int32_t>(record->size());
  return 1;
}

// Creates the record where there is none.
BRV_EXPORT int BX_SaveEData(std::uint32_t tag, const EDataKey* key, const void* data, std::uint32_t size, BrvVersion) {
  EDataStore* const records = Records();
  if (records == nullptr || key == nullptr || size > kLargestRecord) return 0;
  records->Save(tag, *key, BytesOf(data, size));
  return 1;
}

// Fails where there is one already.
BRV_EXPORT int BX_CreateEData(std::uint32_t tag, const EDataKey* key, const void* data, std::uint32_t size,
                              BrvVersion) {
  EDataStore* const records = Records();
  if (records == nullptr || key == nullptr || size > kLargestRecord) return 0;
  return records->Create(tag, *key, BytesOf(data, size));
}

BRV_EXPORT int BX_DeleteEData(std::uint32_t tag, const EDataKey* key, BrvVersion) {
  EDataStore* const records = Records();
  return records != nullptr && key != nullptr && records->Erase(tag, *key);
}

// The nearest record of the tag before the key, by record number and then index; the key becomes its key. `room` is
// that at `data`, in bytes.
BRV_EXPORT int BX_PreviousEData(std::uint32_t tag, EDataKey* key, void* data, std::int32_t room, BrvVersion) {
  const EDataStore* const records = Records();
  const EDataStore::Bytes* const record = records == nullptr || key == nullptr ? nullptr : records->Previous(tag, *key);
  if (record == nullptr) return 0;
  CopyOut(*record, data, room);
  return 1;
}

// Likewise the nearest after the key.
BRV_EXPORT int BX_NextEData(std::uint32_t tag, EDataKey* key, void* data, std::int32_t room, BrvVersion) {
  const EDataStore* const records = Records();
  const EDataStore::Bytes* const record = records == nullptr || key == nullptr ? nullptr : records->Next(tag, *key);
  if (record == nullptr) return 0;
  CopyOut(*record, data, room);
  return 1;
}

}  // extern "C"
