#include "host/services/scorerecords.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

#include "BrvEDK/Source/documentrecords.h"
#include "host/score/details.h"
#include "host/services/ownrecords.h"
#include "host/services/storerecord.h"
#include "host/services/textrecords.h"

namespace brvhost {
namespace {

constexpr int kMaxSharps = 7;
constexpr int kFifthsOfAnOctave = 12;

// As the 16-bit word of a record.
std::int16_t Word(int value) { return static_cast<std::int16_t>(value); }

// The key as it sounds, in the interface's form.
int ConcertKey(const WrittenKey& key, const Transposition& transposition) {
  if (!key.isStandard) return kNonStandardKey;
  int sharps = key.sharps + transposition.Fifths();
  while (sharps > kMaxSharps) sharps -= kFifthsOfAnOctave;
  while (sharps < -kMaxSharps) sharps += kFifthsOfAnOctave;
  return (sharps & 0xFF) | (key.isMinor ? kMinorKey : 0);
}

// The chromatic form leads from sounding to written pitch; its fields have six bits each. Wider intervals take the
// diatonic form.
int TranspositionCode(const Transposition& transposition) {
  const int steps = -transposition.steps;
  const int fifths = -transposition.Fifths();
  const auto fits = [](int value) { return value >= -32 && value < 32; };
  if (fits(steps) && fits(fifths)) return (steps & 0x3F) << 6 | (fifths & 0x3F);
  return (steps & 0xFF) | kDiatonicTransposition;
}

// What a part may state.
using Statement = bool PartDetails::*;

// The first part that states something, or null.
const ScorePart* FirstWith(const Score& score, Statement states) {
  const auto found = std::ranges::find_if(score.parts, [&](const ScorePart& part) { return part.details.*states; });
  return found == score.parts.end() ? nullptr : &*found;
}

// What a part states of a measure; it may have fewer measures than the score.
const MeasureState* StateOf(const ScorePart* part, int measure) {
  if (part == nullptr || part->details.measures.size() < static_cast<std::size_t>(measure)) return nullptr;
  return &part->details.measures[static_cast<std::size_t>(measure) - 1];
}

void StoreMeasures(const Score& score, EDataStore& records) {
  const ScorePart* const keyPart = FirstWith(score, &PartDetails::statesKey);
  const ScorePart* const meterPart = FirstWith(score, &PartDetails::statesMeter);
  for (int measure = 1; measure <= score.measures; ++measure) {
    EDTMeasureSpec2014 record{};
    if (const MeasureState* const state = StateOf(keyPart, measure)) {
      record.keySignature = Word(ConcertKey(state->key, keyPart->details.TranspositionOf(1)));
    }
    if (const MeasureState* const state = StateOf(meterPart, measure)) {
      record.beats = Word(state->meter.beats);
      record.beatUnit = Word(state->meter.beatUnit);
    }
    StoreRecord(records, kMeasureSpecTag, measure, record);
  }
}

void StoreStaves(const Score& score, TextRecords& texts, EDataStore& records) {
  for (const ScorePart& part : score.parts) {
    EDTStaffSpec2014 record{};
    record.nameTextBlock = Word(texts.Store(part.names.name, part.names.nameFont));
    record.secondNameTextBlock = Word(texts.Store(part.names.abbreviation, part.names.abbreviationFont));
    for (int staff = 1; staff <= part.staves; ++staff) {
      record.transposition = Word(TranspositionCode(part.details.TranspositionOf(staff)));
      StoreRecord(records, kStaffSpecTag, part.firstStaff + staff - 1, record);
    }
  }
}

int SymbolNumber(const std::string& symbol) {
  constexpr const char* kSymbols[] = {"brace", "bracket", "line", "square"};
  const auto* const found = std::ranges::find(kSymbols, symbol);
  return found == std::end(kSymbols) ? 0 : static_cast<int>(found - kSymbols) + 1;
}

void StoreGroups(const Score& score, TextRecords& texts, EDataStore& records) {
  int number = 0;
  for (const PartGroup& group : score.groups) {
    const int last = std::min(group.lastPart, static_cast<int>(score.parts.size()) - 1);
    if (group.firstPart > last) continue;
    const ScorePart& firstPart = score.parts[static_cast<std::size_t>(group.firstPart)];
    const ScorePart& lastPart = score.parts[static_cast<std::size_t>(last)];
    GroupRecord record{};
    record.firstStaff = Word(firstPart.firstStaff);
    record.lastStaff = Word(lastPart.firstStaff + lastPart.staves - 1);
    record.nameTextBlock = Word(texts.Store(group.name));
    record.symbol = Word(SymbolNumber(group.symbol));
    StoreRecord(records, kGroupSpecTag, ++number, record);
  }
}

void StorePages(const Score& score, EDataStore& records) {
  std::vector<int> firstMeasures = {1};
  for (const ScorePart& part : score.parts) {
    firstMeasures.insert(firstMeasures.end(), part.details.newPages.begin(), part.details.newPages.end());
  }
  std::ranges::sort(firstMeasures);
  firstMeasures.erase(std::unique(firstMeasures.begin(), firstMeasures.end()), firstMeasures.end());
  int page = 0;
  for (const int measure : firstMeasures) {
    PageRecord record{};
    record.firstMeasure = Word(measure);
    StoreRecord(records, kPageSpecTag, ++page, record);
  }
}

void StorePreferences(EDataStore& records) {
  EDTGeneralPrefs2008 record{};
  record.usePitchNames = 1;
  record.octaveOffset = 0;  // middle C is C4
  StoreRecord(records, kGeneralPrefsTag, 0, record);
}

}  // namespace

void StoreScoreRecords(const Score& score, EDataStore& records) {
  TextRecords texts(records);
  StoreMeasures(score, records);
  StoreStaves(score, texts, records);
  StoreGroups(score, texts, records);
  StorePages(score, records);
  StorePreferences(records);
}

}  // namespace brvhost
