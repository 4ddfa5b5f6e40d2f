// Records of the document, as far as the kit reads them, and their tags. Their other bytes belong to the host.
#pragma once

#include <cstddef>
#include <cstdint>

#include "hosttypes.h"
#include "recordtag.h"

inline constexpr std::uint32_t kMeasureSpecTag = RecordTag("SOMS");   // EDTMeasureSpec2014, by measure
inline constexpr std::uint32_t kStaffSpecTag = RecordTag("SOIS");     // EDTStaffSpec2014, by staff
inline constexpr std::uint32_t kGroupSpecTag = RecordTag("SDNG");     // EDTGroupSpec, by two numbers of the host's
inline constexpr std::uint32_t kPageSpecTag = RecordTag("SOPS");      // EDTPageSpec, by page
inline constexpr std::uint32_t kTextBlockTag = RecordTag("SOTX");     // EDTTextBlock25_4, by text block
inline constexpr std::uint32_t kRawTextTag = RecordTag("txbl");       // UTF-16 units without a final 0, by raw text
inline constexpr std::uint32_t kGeneralPrefsTag = RecordTag("pfgp");  // EDTGeneralPrefs2008, number 0

// A key signature is a 16-bit number: its low byte is the number of sharps (positive) or flats (negative), its high
// byte the mode, 0 major, 1 minor. From 0x4000 on it is a non-standard key.
//
// Examples: 0 is C major, 2 D major, 0x00FF F major, 0x0100 A minor, 0x0104 C sharp minor.
inline constexpr short16 kMinorKey = 0x0100;
inline constexpr short16 kNonStandardKey = 0x4000;

// A staff's transposition, from sounding to written pitch, is a 16-bit code in one of two forms.
//
//   diatonic, bit 13 set     bits 0 to 7 the steps, bits 8 to 11 the alteration, both signed; the key does not change
//   chromatic, bit 13 clear  bits 0 to 5 the change of the key in fifths, bits 6 to 11 the steps, both signed; a key
//                            of more than six sharps or flats is respelt, unless bit 14 is set
//
// Examples: 0x2007 is written an octave above its sound (a double bass); 0x0042 a major second above it, two fifths up
// (a clarinet in B flat).
inline constexpr int kDiatonicTransposition = 0x2000;
inline constexpr int kKeepKey = 0x4000;

#pragma pack(push, 2)

// A measure.
struct EDTMeasureSpec2014 {
  std::uint8_t hostHead[2];
  std::int16_t keySignature;  // the key as it sounds
  std::uint8_t hostMiddle[4];
  std::int16_t beats;     // the upper number of the time signature
  std::int16_t beatUnit;  // the lower one: 4 for quarter notes
  std::uint8_t hostTail[18];
};
static_assert(sizeof(EDTMeasureSpec2014) == 30);
static_assert(offsetof(EDTMeasureSpec2014, keySignature) == 2);
static_assert(offsetof(EDTMeasureSpec2014, beats) == 8);
static_assert(offsetof(EDTMeasureSpec2014, beatUnit) == 10);

// A staff.
struct EDTStaffSpec2014 {
  std::uint8_t hostHead[20];
  std::int16_t transposition;  // a code, diatonic or chromatic (kDiatonicTransposition)
  std::uint8_t hostMiddle[8];
  std::int16_t nameTextBlock;        // of the staff's name; 0: none
  std::int16_t secondNameTextBlock;  // of the name used if there is no first; 0: none
  std::uint8_t hostMiddle2[68];
  std::uint8_t newerHostData[12];  // older hosts do not write these
  std::uint8_t hostTail[22];
};
static_assert(sizeof(EDTStaffSpec2014) == 136);
static_assert(offsetof(EDTStaffSpec2014, transposition) == 20);
static_assert(offsetof(EDTStaffSpec2014, nameTextBlock) == 30);
static_assert(offsetof(EDTStaffSpec2014, secondNameTextBlock) == 32);
static_assert(offsetof(EDTStaffSpec2014, newerHostData) == 102);

// A group of staves.
struct EDTGroupSpec {
  std::uint8_t hostData[36];
};
static_assert(sizeof(EDTGroupSpec) == 36);

// A page.
struct EDTPageSpec {
  std::uint8_t hostData[22];
};
static_assert(sizeof(EDTPageSpec) == 22);

// A text block.
struct EDTTextBlock25_4 {
  std::int16_t rawText;  // the number of its raw text
  std::uint8_t hostTail[28];
};
static_assert(sizeof(EDTTextBlock25_4) == 30);
static_assert(offsetof(EDTTextBlock25_4, rawText) == 0);

// General preferences of the document: how pitches are written as text.
struct EDTGeneralPrefs2008 {
  std::uint8_t hostHead[38];
  std::int16_t usePitchNames;  // 0: pitches are numbers, 60 for middle C
  std::int16_t octaveOffset;   // offset of octave numbers, in semitones; 0: middle C is C4
  std::uint8_t hostTail[24];
};
static_assert(sizeof(EDTGeneralPrefs2008) == 66);
static_assert(offsetof(EDTGeneralPrefs2008, usePitchNames) == 38);
static_assert(offsetof(EDTGeneralPrefs2008, octaveOffset) == 40);

#pragma pack(pop)
