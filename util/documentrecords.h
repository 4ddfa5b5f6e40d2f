// Records of the document as far as the kit reads them. The rest of each is the host's.
#pragma once

#include <cstddef>
#include <cstdint>

#pragma pack(push, 2)

// Of a measure, tag "SOMS".
struct EDTMeasureSpec2014 {
  std::uint8_t hostHead[2];
  std::int16_t keySignature;
  std::uint8_t hostMiddle[4];
  std::int16_t beats;
  std::int16_t beatUnit;
  std::uint8_t hostTail[18];
};
static_assert(sizeof(EDTMeasureSpec2014) == 30);
static_assert(offsetof(EDTMeasureSpec2014, keySignature) == 2);
static_assert(offsetof(EDTMeasureSpec2014, beats) == 8);
static_assert(offsetof(EDTMeasureSpec2014, beatUnit) == 10);

// Of a staff, tag "SOIS".
struct EDTStaffSpec2014 {
  std::uint8_t hostHead[20];
  std::int16_t transposition;  // a code: see transposition.h
  std::uint8_t hostMiddle[8];
  std::int16_t nameTextBlock;        // of the staff's name; 0: none
  std::int16_t secondNameTextBlock;  // of the name that stands in for it; 0: none
  std::uint8_t hostMiddle2[68];
  std::uint8_t newerHostData[12];  // hosts of old do not write these
  std::uint8_t hostTail[22];
};
static_assert(sizeof(EDTStaffSpec2014) == 136);
static_assert(offsetof(EDTStaffSpec2014, transposition) == 20);
static_assert(offsetof(EDTStaffSpec2014, nameTextBlock) == 30);
static_assert(offsetof(EDTStaffSpec2014, secondNameTextBlock) == 32);
static_assert(offsetof(EDTStaffSpec2014, newerHostData) == 102);

// Of a group of staves, tag "SDNG".
struct EDTGroupSpec {
  std::uint8_t hostData[36];
};
static_assert(sizeof(EDTGroupSpec) == 36);

// Of a page, tag "SOPS".
struct EDTPageSpec {
  std::uint8_t hostData[22];
};
static_assert(sizeof(EDTPageSpec) == 22);

// Of a text block, tag "SOTX".
struct EDTTextBlock25_4 {
  std::int16_t rawText;  // the number of its raw text
  std::uint8_t hostTail[28];
};
static_assert(sizeof(EDTTextBlock25_4) == 30);
static_assert(offsetof(EDTTextBlock25_4, rawText) == 0);

// Of the document, tag "pfgp".
struct EDTGeneralPrefs2008 {
  std::uint8_t hostData[66];
};
static_assert(sizeof(EDTGeneralPrefs2008) == 66);

#pragma pack(pop)
