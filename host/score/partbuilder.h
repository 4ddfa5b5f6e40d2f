// What is known about one part while its measures are read: its clock, its divisions, the layers of its staves.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/score/fraction.h"
#include "host/score/measurebuilder.h"

namespace brvhost {

// Its functions throw InputError, without a place, where numbers get too large.
class PartBuilder {
 public:
  void BeginMeasure();
  void EndMeasure(Score& score);

  // The divisions of a quarter, more than 0, that durations are counted in from now on.
  void SetDivisions(const Fraction& divisions);
  void SetStaves(int staves);  // unless there are more already

  void Advance(const Fraction& duration);
  // False when the clock would be before the barline; it is set to the barline then.
  [[nodiscard]] bool GoBack(const Fraction& duration);

  // Places a note at the clock, or in the chord of the note before, and moves the clock past it. `element` has its
  // note, its staff, which is one of the part's, and whether it is a rest.
  void AddNote(NoteElement element, const std::string& voice, const Fraction& duration);
  void AddToChord(NoteElement element, const std::string& voice, const Fraction& duration);

  bool IsAtBarline() const { return clock_.IsZero(); }
  int Measures() const { return static_cast<int>(measureLengths_.size()); }
  // How far the clock gets in each measure, in ticks.
  const std::vector<std::int32_t>& MeasureLengths() const { return measureLengths_; }
  int Staves() const { return staves_; }
  int Layers() const;
  // The voice of each layer of each staff.
  std::vector<std::vector<std::string>> Voices() const;
  std::vector<ScoreFrame>& Frames() { return frames_; }

 private:
  struct Staff {
    std::unordered_map<std::string, int> layers;  // by voice
    std::string lastVoice;                        // usually the next note's too
    int lastLayer = -1;
  };

  int LayerOf(int staff, const std::string& voice);
  std::int32_t Position() const;
  void KeepLength();

  Fraction clock_;  // quarters from the barline
  Fraction divisions_{1};
  std::vector<std::int32_t> measureLengths_;
  int staves_ = 1;
  bool hasChordRoot_ = false;
  std::int32_t chordPosition_ = 0;
  std::string chordVoice_;
  std::unordered_map<int, Staff> staffLayers_;  // of the staves that have notes
  MeasureBuilder measure_;
  std::vector<ScoreFrame> frames_;
};

}  // namespace brvhost
