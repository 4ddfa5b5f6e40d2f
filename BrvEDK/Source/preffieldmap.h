// How preference records are put together from legacy records.
//
// Hosts that do not have the newer preference records (tags that begin with "pf") keep the same settings in words of
// legacy records (tags that begin with "ot", twelve bytes each). For each preference record, a table lists where its
// fields come from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "hostrecords.h"

// How a field is made from the words of its legacy record.
enum PrefConversion : std::uint32_t {
  kPrefWord = 0,           // the 16-bit word as it is
  kPrefHighWordFirst = 1,  // a 32-bit field: its high half in the word, its low half in the next
  kPrefLowWordFirst = 2,   // a 32-bit field: its low half in the word, its high half in the next
  kPrefInverted = 3,       // a 16-bit truth value: 1 if the word is 0, else 0
  kPrefByte = 4,           // the low byte of the word, zero-extended; stored with its sign
};

// Where a host keeps a legacy record.
struct LegacyAddress {
  std::uint32_t tag = 0;
  std::uint16_t recordNumber = kDocumentRecord;
  std::uint16_t recordIndex = 0;

  EDataKey Key() const { return {recordNumber, recordIndex}; }
  bool operator==(const LegacyAddress&) const = default;
};

// One field of a preference record.
struct PrefFieldMap {
  LegacyAddress legacy;
  std::int16_t fieldOffset;  // in the preference record, in bytes
  std::int16_t wordIndex;    // of the legacy record's word where the field starts, 0 to 5
  std::uint16_t fieldSize;   // 2 or 4 bytes
  PrefConversion conversion;
};

// A legacy record.
struct LegacyRecord {
  static constexpr int kWords = 6;
  std::uint16_t words[kWords];
};
static_assert(sizeof(LegacyRecord) == 12);

// What a table may have: BX_LoadEData and BX_SaveEData keep one bit for each field.
inline constexpr std::size_t kMostPrefFields = 64;

extern const PrefFieldMap EDTDistancePrefs_MAP_ARRAY[];
extern const PrefFieldMap EDTSizePrefs_MAP_ARRAY[];
extern const PrefFieldMap EDTMiscDocPrefs_MAP_ARRAY[];
extern const PrefFieldMap EDTRepeatPrefs_MAP_ARRAY[];
extern const PrefFieldMap EDTPianoBracePrefs_MAP_ARRAY[];
extern const PrefFieldMap EDTSmartShapePrefs_MAP_ARRAY[];
extern const PrefFieldMap EDTPlaybackPrefs_MAP_ARRAY[];
extern const PrefFieldMap EDTExtractPrefs_MAP_ARRAY[];
extern const PrefFieldMap EDTPageFormatPrefsScore_MAP_ARRAY[];
extern const PrefFieldMap EDT2005Prefs_MAP_ARRAY[];

// Returns the table of a preference record, or an empty one. Of the page-format records ("pfPF") only number 0 has one.
std::span<const PrefFieldMap> FindPrefFieldMap(std::uint32_t tag, int recordNumber);
