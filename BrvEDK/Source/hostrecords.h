// Records that host and extension pass to each other by pointer. The host defines their layout: packed to two bytes, in
// the byte order of the machine. Members named host... belong to the host; an extension leaves them alone.
#pragma once

#include <cstddef>
#include <cstdint>

#include "hosttypes.h"

// One UTF-16 unit. Text for people crosses the interface as units in the machine's byte order, ended by a 0 unit.
typedef unsigned short UniChar;

#pragma pack(push, 2)

// The region of the score that the user selected. Both ends are included.
struct EREGION {
  std::uint16_t regionScope;   // passed to BX_LoadTGF unchanged
  std::int16_t startStaff;     // first staff, from 1
  std::int16_t startMeasure;   // first measure, from 1
  std::int32_t startPosition;  // first position inside the first measure
  std::uint16_t hostData;
  std::int16_t endStaff;     // last staff
  std::int16_t endMeasure;   // last measure
  std::int32_t endPosition;  // last position inside the last measure
};
static_assert(sizeof(EREGION) == 20);
static_assert(offsetof(EREGION, startStaff) == 2);
static_assert(offsetof(EREGION, startMeasure) == 4);
static_assert(offsetof(EREGION, startPosition) == 6);
static_assert(offsetof(EREGION, hostData) == 10);
static_assert(offsetof(EREGION, endStaff) == 12);
static_assert(offsetof(EREGION, endMeasure) == 14);
static_assert(offsetof(EREGION, endPosition) == 16);

// The three texts of a menu item, each ended by a 0 unit, filled by BrevixExtensionEnumerate_UTF16.
struct MenuItemTexts {
  static constexpr int kUnits = 128;  // in each text, with the 0 unit that ends it
  UniChar text1[kUnits];              // the item's name in the menu
  UniChar text2[kUnits];              // its name in the Undo command
  UniChar text3[kUnits];              // its explanation
  std::uint32_t reserved;             // always 0
};
static_assert(sizeof(MenuItemTexts) == 772);
static_assert(offsetof(MenuItemTexts, text2) == 256);
static_assert(offsetof(MenuItemTexts, text3) == 512);
static_assert(offsetof(MenuItemTexts, reserved) == 768);

// One note of an entry.
struct EXNOTE {
  std::uint8_t hostData[4];
  // Never 0, and unique within the entry up to 0x7FFF: a number beyond it that the kit gives may be that of an earlier
  // note.
  std::uint16_t noteID;
  std::uint16_t hostWord;
  std::uint16_t noteWord;  // bits 0 to 4: the low bits of noteID; bit 15: set for the placeholder note of a rest
};
static_assert(sizeof(EXNOTE) == 10);
static_assert(offsetof(EXNOTE, noteID) == 4);
static_assert(offsetof(EXNOTE, hostWord) == 6);
static_assert(offsetof(EXNOTE, noteWord) == 8);

// One note, chord or rest.
struct EXENTRY {
  static constexpr int kMaxNotes = 12;  // that an entry has room for
  std::uint8_t hostHead[8];
  std::uint8_t entryFlags[4];  // in the byte kContentByte: kContentBit and kHasPlaceholder
  std::uint16_t flags;         // bit 0x40: no ledger lines
  std::int16_t noteCount;      // 0 to 12; 0 is a rest
  EXNOTE notes[kMaxNotes];     // those from index noteCount on are unused
  std::int32_t position;       // within the measure
  std::uint8_t hostTail[6];
};
static_assert(sizeof(EXENTRY) == 146);
static_assert(offsetof(EXENTRY, entryFlags) == 8);
static_assert(offsetof(EXENTRY, flags) == 12);
static_assert(offsetof(EXENTRY, noteCount) == 14);
static_assert(offsetof(EXENTRY, notes) == 16);
static_assert(offsetof(EXENTRY, position) == 136);

// The contents of one measure of one staff in one layer. The host owns it from BX_LoadTGF to BX_FreeTGF.
struct EXTGF2005a {
  std::uint8_t hostData[14];
  EXENTRY* entries;         // entryCount records, one after the other, in ascending order of position
  std::int16_t entryCount;  // 0 or less: none
};
static_assert(sizeof(EXTGF2005a) == 24);
static_assert(offsetof(EXTGF2005a, entries) == 14);
static_assert(offsetof(EXTGF2005a, entryCount) == 22);

// The key of a document record.
struct EDataKey {
  std::uint16_t recordNumber;  // which of the tag's records: the number of a measure, of a staff, ...
  std::uint16_t recordIndex;   // which of the records with this number; 0 where there is only one
};
static_assert(sizeof(EDataKey) == 4);
static_assert(offsetof(EDataKey, recordIndex) == 2);

#pragma pack(pop)

// The record number of a record of the whole document.
inline constexpr std::uint16_t kDocumentRecord = 0xFFFE;

// The bit of EXENTRY::flags that hides the entry's ledger lines.
inline constexpr std::uint16_t kNoLegerLines = 0x40;

// The bit of EXENTRY::entryFlags that marks an entry as music, and the byte that it is in: set for notes, clear for
// rests.
inline constexpr int kContentByte = 3;
inline constexpr std::uint8_t kContentBit = 0x40;

// The bit that tells hosts of a rest's placeholder note, which the kit adds to rests as it saves them, in the same
// byte.
inline constexpr std::uint8_t kHasPlaceholder = 0x01;

// The bits of EXNOTE::noteWord that repeat the low bits of the note's identifier, and the word of a placeholder note.
inline constexpr std::uint16_t kNoteIDBits = 0x1F;
inline constexpr std::uint16_t kPlaceholderNote = 0x8000;
