// How pitches are written and read now: state of the process, set by BXUtilSetPitchFormatting.
#pragma once

#include <cstdint>

// Unless set otherwise, middle C is C4.
inline constexpr int kOctaveOfMiddleC = 4;

extern std::int16_t sUsePitchNames;  // 0: note numbers
extern std::int16_t sMiddleCRef;     // the number of the octave that begins at middle C
