// How pitches are written and read at present: state of the process, set by BXUtilSetPitchFormatting.
#pragma once

#include <cstdint>

extern std::int16_t sUsePitchNames;  // 0: note numbers
extern std::int16_t sMiddleCRef;     // the octave number of the octave that begins at middle C
