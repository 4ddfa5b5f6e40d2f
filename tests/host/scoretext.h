// A score as a text, to compare it with another.
#pragma once

#include <ostream>
#include <sstream>
#include <string>

#include "host/score/score.h"

namespace brvhost {

inline void Describe(const PartDetails& details, std::ostream& text) {
  text << details.statesKey << details.statesMeter;
  for (const auto& [key, meter] : details.measures) {
    text << ' ' << key.sharps << (key.isMinor ? "minor" : "major") << key.isStandard << ',' << meter.beats << '/'
         << meter.beatUnit;
  }
  for (const auto& [staff, transposition] : details.transpositions) {
    text << " transposition " << staff << ' ' << transposition.steps << ' ' << transposition.semitones;
  }
  for (const int measure : details.newPages) text << " page " << measure;
  text << '\n';
}

// Everything in it.
inline std::string Everything(const Score& score) {
  std::ostringstream text;
  text << score.staves << ' ' << score.measures << ' ' << score.layers << '\n';
  for (const std::int32_t length : score.measureLengths) text << "length " << length << '\n';
  for (const MeasureNumber& number : score.measureNumbers) text << number.text << ' ' << number.isPrinted << '\n';
  for (const ScoreWarning& warning : score.warnings)
    text << warning.line << ':' << warning.column << warning.text << '\n';
  for (const PartGroup& group : score.groups) {
    text << "group " << group.name << ' ' << group.symbol << ' ' << group.firstPart << '-' << group.lastPart << '\n';
  }
  for (const ScorePart& part : score.parts) {
    text << "part " << part.id << ' ' << part.staves << ' ' << part.firstStaff << ' ' << part.instruments << '\n';
    const PartNames& names = part.names;
    text << names.name << '|' << names.nameFont << '|' << names.abbreviation << '|' << names.abbreviationFont << '\n';
    for (const auto& staff : part.voices) {
      for (const std::string& voice : staff) text << voice << ',';
      text << '\n';
    }
    Describe(part.details, text);
  }
  for (const ScoreFrame& frame : score.frames) {
    text << "frame " << frame.staff << ' ' << frame.measure << ' ' << frame.layer << ':';
    for (const ScoreEntry& entry : score.EntriesOf(frame)) {
      text << ' ' << entry.position << (entry.isRest ? "r" : "") << (entry.hidden ? "h" : "");
      for (const ScoreNote& note : score.NotesOf(entry)) {
        text << '@' << note.offset << ',' << note.attribute;
      }
    }
    text << '\n';
  }
  return text.str();
}

}  // namespace brvhost
