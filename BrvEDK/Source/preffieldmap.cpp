// The tables of the preference records, one field on each line: its offset in the record, its legacy record, and the
// word there.
#include "preffieldmap.h"

#include <cstddef>
#include <span>

#include "recordtag.h"

namespace {

// The address of a legacy record: its tag without the "ot", its index, its number.
struct Legacy {
  char tag[3];
  std::uint16_t index = 0;
  std::uint16_t number = kDocumentRecord;
};

constexpr PrefFieldMap Field(int offset, const Legacy& record, int word, int size, PrefConversion conversion) {
  return {.legacy = {RecordTag({'o', 't', record.tag[0], record.tag[1], '\0'}), record.number, record.index},
          .fieldOffset = static_cast<std::int16_t>(offset),
          .wordIndex = static_cast<std::int16_t>(word),
          .fieldSize = static_cast<std::uint16_t>(size),
          .conversion = conversion};
}

constexpr PrefFieldMap Word(int offset, const Legacy& record, int word) {
  return Field(offset, record, word, 2, kPrefWord);
}
constexpr PrefFieldMap Long(int offset, const Legacy& record, int word) {
  return Field(offset, record, word, 4, kPrefHighWordFirst);
}
constexpr PrefFieldMap Inverted(int offset, const Legacy& record, int word) {
  return Field(offset, record, word, 2, kPrefInverted);
}
constexpr PrefFieldMap Byte(int offset, const Legacy& record, int word) {
  return Field(offset, record, word, 2, kPrefByte);
}

}  // namespace

// Compatibility: fields stay in this order, though their offsets are not always ascending. Hosts see their records read
// and written in it.
// clang-format off

const PrefFieldMap EDTDistancePrefs_MAP_ARRAY[] = {
    Word(0, {"21"}, 3),
    Word(2, {"21"}, 5),
    Word(4, {"59"}, 3),
    Word(6, {"59"}, 4),
    Word(8, {"22"}, 1),
    Word(10, {"22"}, 2),
    Word(12, {"22"}, 3),
    Word(14, {"67"}, 3),
    Word(16, {"67"}, 4),
    Long(18, {"68"}, 4),
    Word(22, {"20"}, 1),
    Word(24, {"20"}, 2),
    Word(26, {"13"}, 3),
    Word(28, {"19"}, 0),
    Word(30, {"19"}, 1),
    Word(32, {"68"}, 0),
    Word(34, {"21"}, 1),
    Word(36, {"68"}, 1),
    Word(38, {"21"}, 0),
    Word(40, {"27"}, 5),
    Word(42, {"18"}, 0),
    Word(44, {"18"}, 2),
    Word(46, {"18"}, 1),
    Word(48, {"21"}, 4),
    Word(50, {"39"}, 0),
    Word(52, {"39"}, 1),
    Long(54, {"65"}, 0),
    Word(58, {"67"}, 1),
    Word(60, {"18"}, 5),
    Word(62, {"67"}, 0),
    Word(64, {"18"}, 3),
    Word(66, {"18"}, 4),
    Word(68, {"14"}, 4),
    Word(70, {"14"}, 5),
    Word(74, {"01"}, 5),
    Word(72, {"77", 4}, 0),
};

const PrefFieldMap EDTSizePrefs_MAP_ARRAY[] = {
    Word(0, {"67"}, 2),
    Word(2, {"58"}, 4),
    Long(4, {"68"}, 2),
    Long(8, {"62"}, 4),
    Word(12, {"03"}, 3),
    Word(14, {"23"}, 0),
    Word(16, {"14"}, 2),
    Word(18, {"64"}, 1),
    Word(20, {"27"}, 3),
    Word(22, {"58"}, 5),
    Word(24, {"59"}, 0),
    Word(26, {"59"}, 1),
    Word(28, {"01"}, 2),
    Word(30, {"59"}, 2),
    Word(32, {"01"}, 3),
    Long(34, {"97"}, 0),
    Word(38, {"20"}, 4),
    Word(40, {"20"}, 5),
    Word(42, {"03"}, 2),
    Word(44, {"21"}, 2),
    Word(46, {"64"}, 5),
    Long(48, {"97"}, 2),
    Word(52, {"69"}, 0),
};

const PrefFieldMap EDTMiscDocPrefs_MAP_ARRAY[] = {
    Word(0, {"36"}, 4),
    Word(2, {"03"}, 4),
    Word(4, {"03"}, 5),
    Word(6, {"09"}, 5),
    Word(8, {"36"}, 2),
    Word(10, {"36"}, 3),
    Inverted(12, {"36"}, 1),
    Word(14, {"41"}, 0),
    Word(16, {"41"}, 1),
    Word(18, {"20"}, 0),
    Word(20, {"27"}, 1),
    Word(22, {"01"}, 0),
    Word(24, {"13"}, 2),
    Word(26, {"15"}, 4),
    Word(28, {"27"}, 0),
    Word(30, {"27"}, 4),
    Word(32, {"44"}, 4),
    Word(34, {"27"}, 2),
    Word(36, {"12"}, 2),
    Word(38, {"12"}, 3),
    Word(40, {"12"}, 1),
    Word(42, {"41", 2}, 1),
    Word(44, {"23"}, 1),
    Word(46, {"19"}, 2),
    Word(48, {"19"}, 3),
    Word(50, {"31"}, 5),
    Byte(52, {"19"}, 4),
    Byte(54, {"19"}, 5),
    Word(56, {"44"}, 3),
    Word(58, {"05"}, 4),
    Word(60, {"05"}, 5),
    Word(62, {"13"}, 0),
    Word(64, {"41"}, 5),
    Word(66, {"12"}, 4),
    Word(68, {"01"}, 1),
    Word(70, {"93"}, 4),
    Word(72, {"76"}, 4),
    Word(74, {"93"}, 2),
    Word(76, {"76"}, 3),
    Word(78, {"17"}, 5),
    Word(80, {"23"}, 4),
    Word(82, {"16"}, 5),
    Long(84, {"62"}, 0),
    Long(88, {"62"}, 2),
    Word(92, {"41", 2}, 0),
    Word(94, {"41"}, 2),
    Long(96, {"41", 1}, 3),
    Word(100, {"76"}, 5),
    Word(102, {"FI", 0, 10}, 2),
};

const PrefFieldMap EDTRepeatPrefs_MAP_ARRAY[] = {
    Word(0, {"70"}, 0),
    Word(2, {"70"}, 1),
    Word(4, {"70"}, 2),
    Word(6, {"70"}, 3),
    Word(8, {"70"}, 4),
    Word(10, {"70"}, 5),
    Word(12, {"71"}, 0),
    Word(14, {"71"}, 1),
    Word(16, {"71"}, 2),
    Word(18, {"71"}, 3),
    Word(20, {"71"}, 4),
    Word(22, {"71"}, 5),
    Word(24, {"05"}, 3),
    Word(26, {"72"}, 0),
    Word(28, {"76"}, 2),
    Word(30, {"72"}, 1),
    Word(32, {"72"}, 2),
    Word(34, {"72"}, 3),
    Word(36, {"72"}, 4),
    Word(38, {"72"}, 5),
};

const PrefFieldMap EDTPianoBracePrefs_MAP_ARRAY[] = {
    Long(0, {"65"}, 2),
    Long(4, {"60"}, 2),
    Long(8, {"65"}, 4),
    Long(12, {"60"}, 4),
    Long(16, {"61"}, 0),
    Long(20, {"61"}, 2),
    Long(24, {"61"}, 4),
    Long(28, {"60"}, 0),
    Long(32, {"64"}, 2),
    Long(36, {"45"}, 2),
    Long(40, {"45"}, 4),
};

const PrefFieldMap EDTSmartShapePrefs_MAP_ARRAY[] = {
    Word(0, {"92"}, 0),
    Word(2, {"92"}, 1),
    Word(4, {"92"}, 2),
    Word(6, {"92"}, 3),
    Word(8, {"FI", 0, 11}, 0),
    Word(10, {"FI", 0, 11}, 1),
    Word(12, {"FI", 0, 12}, 4),
    Word(14, {"FI", 0, 11}, 4),
    Long(16, {"FI", 0, 12}, 0),
    Long(20, {"FI", 0, 12}, 2),
    Word(24, {"FI", 0, 11}, 2),
    Word(26, {"FI", 0, 11}, 5),
    Byte(28, {"12"}, 5),
    Byte(32, {"11"}, 5),
    Byte(36, {"69"}, 4),
    Byte(40, {"69"}, 5),
    Byte(44, {"69"}, 2),
    Byte(48, {"69"}, 3),
    Word(52, {"51"}, 5),
    Word(54, {"53"}, 5),
    Word(56, {"51"}, 4),
    Word(58, {"53"}, 4),
    Word(60, {"50"}, 4),
    Word(62, {"53", 1}, 0),
    Word(64, {"53", 1}, 1),
    Word(66, {"53", 1}, 2),
    Word(68, {"53", 1}, 3),
    Long(70, {"51"}, 0),
    Long(74, {"51"}, 2),
    Word(78, {"53"}, 2),
    Word(80, {"53"}, 0),
    Word(82, {"53"}, 1),
    Long(84, {"93"}, 0),
    Word(88, {"53"}, 3),
    Word(90, {"50"}, 5),
    Word(92, {"50"}, 0),
    Word(94, {"50"}, 1),
    Word(96, {"50"}, 2),
    Word(98, {"50"}, 3),
    Word(100, {"97", 1}, 0),
    Word(102, {"97", 1}, 1),
    Word(104, {"97", 1}, 2),
    Word(106, {"97", 1}, 3),
};

const PrefFieldMap EDTPlaybackPrefs_MAP_ARRAY[] = {
    Word(0, {"13"}, 1),
    Word(2, {"39"}, 3),
    Word(4, {"36"}, 0),
    Word(6, {"36"}, 5),
    Word(8, {"37"}, 0),
    Word(10, {"37"}, 1),
    Word(12, {"37"}, 2),
};

const PrefFieldMap EDTExtractPrefs_MAP_ARRAY[] = {
    Word(0, {"77", 4}, 1),
    Word(2, {"77", 4}, 2),
    Word(4, {"77", 4}, 3),
    Word(6, {"77", 4}, 4),
    Word(8, {"77", 4}, 5),
    Word(10, {"77", 5}, 0),
    Word(12, {"77", 5}, 1),
    Word(14, {"77", 5}, 2),
    Word(16, {"77", 5}, 3),
    Word(18, {"77", 5}, 4),
    Word(20, {"77", 5}, 5),
    Word(22, {"77", 6}, 0),
    Word(24, {"77", 6}, 1),
    Word(26, {"77", 6}, 2),
    Word(28, {"77", 6}, 3),
    Word(30, {"77", 6}, 4),
    Word(32, {"77", 6}, 5),
    Word(34, {"77", 7}, 0),
    Word(36, {"77", 7}, 1),
    Word(38, {"77", 7}, 2),
    Word(40, {"77", 7}, 3),
    Word(46, {"77", 7}, 4),
    Word(48, {"77", 7}, 5),
    Word(42, {"77", 8}, 0),
    Word(44, {"77", 8}, 1),
};

const PrefFieldMap EDTPageFormatPrefsScore_MAP_ARRAY[] = {
    Long(0, {"14"}, 0),
    Long(4, {"15"}, 2),
    Word(8, {"39"}, 2),
    Word(10, {"16"}, 0),
    Word(12, {"16"}, 1),
    Word(14, {"16"}, 2),
    Word(16, {"16"}, 3),
    Word(18, {"02"}, 0),
    Word(20, {"02"}, 1),
    Word(22, {"02"}, 2),
    Word(24, {"02"}, 3),
    Word(26, {"17"}, 0),
    Word(28, {"17"}, 1),
    Word(30, {"17"}, 3),
    Word(32, {"17"}, 2),
    Word(34, {"01"}, 4),
    Word(36, {"02"}, 4),
    Word(38, {"13"}, 5),
    Word(40, {"13"}, 4),
    Word(42, {"02"}, 5),
    Word(44, {"03"}, 0),
    Word(46, {"03"}, 1),
};

const PrefFieldMap EDT2005Prefs_MAP_ARRAY[] = {
    Word(0, {"69"}, 1),
    Word(2, {"20"}, 3),
    Word(4, {"39"}, 5),
    Word(6, {"38"}, 5),
    Word(8, {"39"}, 4),
    Word(10, {"23"}, 5),
    Word(12, {"56"}, 4),
    Word(14, {"41", 2}, 2),
    Word(16, {"41", 2}, 3),
    Word(18, {"94"}, 4),
    Word(20, {"94", 2}, 2),
};
// clang-format on

namespace {

template <std::size_t fields>
std::span<const PrefFieldMap> TableOf(const PrefFieldMap (&table)[fields]) {
  static_assert(fields <= kMostPrefFields);
  return table;
}

}  // namespace

std::span<const PrefFieldMap> FindPrefFieldMap(std::uint32_t tag, int recordNumber) {
  switch (tag) {
    case RecordTag("pf05"):
      return TableOf(EDT2005Prefs_MAP_ARRAY);
    case RecordTag("pfDP"):
      return TableOf(EDTDistancePrefs_MAP_ARRAY);
    case RecordTag("pfEX"):
      return TableOf(EDTExtractPrefs_MAP_ARRAY);
    case RecordTag("pfMS"):
      return TableOf(EDTMiscDocPrefs_MAP_ARRAY);
    case RecordTag("pfPB"):
      return TableOf(EDTPianoBracePrefs_MAP_ARRAY);
    case RecordTag("pfPF"):
      return recordNumber == 0 ? TableOf(EDTPageFormatPrefsScore_MAP_ARRAY) : std::span<const PrefFieldMap>();
    case RecordTag("pfPL"):
      return TableOf(EDTPlaybackPrefs_MAP_ARRAY);
    case RecordTag("pfRP"):
      return TableOf(EDTRepeatPrefs_MAP_ARRAY);
    case RecordTag("pfSI"):
      return TableOf(EDTSizePrefs_MAP_ARRAY);
    case RecordTag("pfSS"):
      return TableOf(EDTSmartShapePrefs_MAP_ARRAY);
    default:
      return {};
  }
}
