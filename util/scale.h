// The C major scale in semitones: where steps and semitones meet.
#pragma once

#include <array>
#include <cstdint>

inline constexpr int kSemitonesOfAnOctave = 12;

// Semitones of each step of an octave above its C.
inline constexpr std::array<std::uint8_t, 7> kMajorToChromatic = {0, 2, 4, 5, 7, 9, 11};
