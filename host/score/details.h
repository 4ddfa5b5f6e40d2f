// What a score states besides its notes: keys, meters, transpositions, names, groups, pages.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace brvhost {

// A key as it is written: the number of sharps, negative for flats, and the mode.
struct WrittenKey {
  int sharps = 0;
  bool isMinor = false;
  bool isStandard = true;  // made of fifths

  bool operator==(const WrittenKey&) const = default;
};

// A meter; if it has several parts, their sum. 0 beats: no meter.
struct Meter {
  int beats = 0;
  int beatUnit = 0;

  bool operator==(const Meter&) const = default;
};

// From written to sounding pitch.
struct Transposition {
  int steps = 0;      // diatonic, including octaves
  int semitones = 0;  // including octaves

  // The change of the key from written to sounding, in fifths.
  int Fifths() const { return 7 * semitones - 12 * steps; }
};

// What applies at the start of one measure of one part.
struct MeasureState {
  WrittenKey key;
  Meter meter;
};

// The number of a measure as the document has it; empty where it has none.
struct MeasureNumber {
  std::string text;
  bool isPrinted = true;  // as long as the measure is not an implicit one
};

struct PartDetails {
  bool statesKey = false;
  bool statesMeter = false;
  std::vector<MeasureState> measures;
  std::map<int, Transposition> transpositions;  // the first that is stated, by staff from 1; 0: all others
  std::vector<int> newPages;                    // the measures that start a page, from 1

  Transposition TranspositionOf(int staff) const {
    auto found = transpositions.find(staff);
    if (found == transpositions.end()) found = transpositions.find(0);
    return found == transpositions.end() ? Transposition{} : found->second;
  }
};

// What the list of parts states of a part.
struct PartNames {
  std::string name;
  std::string nameFont;
  std::string abbreviation;
  std::string abbreviationFont;
};

// A group of consecutive parts, counted from 0, both ends included.
struct PartGroup {
  std::string name;
  std::string symbol;  // brace, bracket, line, square or nothing
  int firstPart = 0;
  int lastPart = 0;
};

}  // namespace brvhost
