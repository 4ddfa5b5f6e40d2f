// A score as extensions see it: staves, measures, layers, entries. Of the music it holds only what ledger lines need,
// and for each note the place of its start tag in the document, where its attribute is changed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "host/score/details.h"
#include "host/xml/codeunits.h"

namespace brvhost {

inline constexpr std::int32_t kTicksPerQuarter = 10080;
inline constexpr int kMinLayers = 4;
inline constexpr int kMaxStaves = 32767;
inline constexpr int kMaxMeasures = 32767;
inline constexpr int kMaxLayers = 32767;

// What a note's own attribute states about its ledger lines.
enum class LegerAttribute : std::uint8_t { kAbsent, kNo, kYes };

// A note element of the document.
struct ScoreNote {
  std::uint64_t offset : 62 = 0;  // of the byte that opens its start tag
  std::uint64_t attribute : 2 = 0;

  LegerAttribute Attribute() const { return static_cast<LegerAttribute>(attribute); }
  bool IsHidden() const { return Attribute() == LegerAttribute::kNo; }
};

// A note, chord or rest. Its notes are consecutive in the score's list.
struct ScoreEntry {
  std::int32_t position = 0;  // ticks from the barline
  std::uint32_t firstNote = 0;
  std::uint8_t noteElements = 0;  // 1 to 12; a rest has one
  bool isRest = false;
  bool hidden = false;  // each of its notes is, in the document or as changed since
};

// The entries of one place, in ascending order of position. Never empty.
struct ScoreFrame {
  std::uint16_t staff = 0;    // from 1, through all parts
  std::uint16_t measure = 0;  // from 1, by order
  std::uint16_t layer = 0;    // from 0
  std::uint32_t firstEntry = 0;
  std::uint32_t entryCount = 0;
};

// A part of the score. Parts are in the order of the document.
struct ScorePart {
  std::string id;
  PartNames names;
  PartDetails details;
  int staves = 1;
  int firstStaff = 1;
  int instruments = 0;
  std::vector<std::vector<std::string>> voices;  // of the file, by staff and layer: those of layers with entries
};

// Something in the document that could be read only by guessing.
struct ScoreWarning {
  std::uint64_t line = 0;
  std::uint64_t column = 0;
  std::string text;
};

struct Score {
  std::vector<ScorePart> parts;
  std::vector<ScoreNote> notes;
  std::vector<ScoreEntry> entries;
  std::vector<ScoreFrame> frames;  // ordered by staff, layer and measure, as extensions walk them
  std::vector<ScoreWarning> warnings;
  std::vector<PartGroup> groups;  // their parts are indices of `parts`
  int staves = 0;
  int measures = 0;
  std::vector<std::int32_t> measureLengths;   // in ticks, by measure: how far the clock of any part gets
  std::vector<MeasureNumber> measureNumbers;  // of the first part's measures
  int layers = kMinLayers;
  CodeUnits units = CodeUnits::kBytes;  // in which the document was read, and is changed

  std::span<const ScoreEntry> EntriesOf(const ScoreFrame& frame) const {
    return std::span(entries).subspan(frame.firstEntry, frame.entryCount);
  }
  std::span<const ScoreNote> NotesOf(const ScoreEntry& entry) const {
    return std::span(notes).subspan(entry.firstNote, entry.noteElements);
  }

  // Whether each note of the entry is hidden in the document, as it was read.
  bool IsHiddenInDocument(const ScoreEntry& entry) const;

  // In ticks; the score has that measure.
  std::int32_t LengthOf(int measure) const { return measureLengths[static_cast<std::size_t>(measure) - 1]; }

  // The part that a staff belongs to, or null where there is no such staff.
  const ScorePart* PartOfStaff(int staff) const;

  // The file's voices on a staff of the score, by layer.
  const std::vector<std::string>& VoicesOn(int staff) const;
};

}  // namespace brvhost
