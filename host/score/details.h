// What a score says of itself besides its notes: keys, meters, transpositions, names, groups, pages.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace brvhost {

// A key as it is written: sharps, or flats as a negative number, and the mode.
struct WrittenKey {
  int sharps = 0;
  bool isMinor = false;
  bool isStandard = true;  // made of fifths

  bool operator==(const WrittenKey&) const = default;
};

// A meter; one of several parts counts as their sum. 0 beats: no meter.
struct Meter {
  int beats = 0;
  int beatUnit = 0;

  bool operator==(const Meter&) const = default;
};

// From written to sounding pitch.
struct Transposition {
  int steps = 0;      // diatonic, octaves included
  int semitones = 0;  // likewise

  // The change of the key from written to sounding, in fifths.
  int Fifths() const { return 7 * semitones - 12 * steps; }
};

// What holds at the start of one measure of one part.
struct MeasureState {
  WrittenKey key;
  Meter meter;
};

struct PartDetails {
  bool statesKey = false;
  bool statesMeter = false;
  std::vector<MeasureState> measures;
  std::map<int, Transposition> transpositions;  // the first that is stated, by staff from 1; 0 is for all others
  std::vector<int> newPages;                    // the measures that a page starts with, from 1

  Transposition TranspositionOf(int staff) const {
    auto found = transpositions.find(staff);
    if (found == transpositions.end()) found = transpositions.find(0);
    return found == transpositions.end() ? Transposition{} : found->second;
  }
};

// What the list of parts says of a part.
struct PartNames {
  std::string name;
  std::string nameFont;
  std::string abbreviation;
  std::string abbreviationFont;
};

// A group of neighbouring parts, by their order, from 0, both included.
struct PartGroup {
  std::string name;
  std::string symbol;  // brace, bracket, line, square or nothing
  int firstPart = 0;
  int lastPart = 0;
};

}  // namespace brvhost
