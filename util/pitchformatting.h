// How pitches are written and read at present: state of the process, set by BXUtilSetPitchFormatting.
#pragma once

#include <cstdint>

// Where nothing else is set, middle C is C4.
inline constexpr int kOctaveOfMiddleC = 4;

extern std::int16_t sUsePitchNames;  // 0: note numbers
extern std::int16_t sMiddleCRef;     // the octave number of the octave that begins at middle C
