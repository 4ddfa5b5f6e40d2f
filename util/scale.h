// The C major scale in semitones.
#pragma once

#include <array>
#include <cstdint>

inline constexpr int kSemitonesOfAnOctave = 12;

// The semitones of each step above the octave's C.
inline constexpr std::array<std::uint8_t, 7> kMajorToChromatic = {0, 2, 4, 5, 7, 9, 11};
