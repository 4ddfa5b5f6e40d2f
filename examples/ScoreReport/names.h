// Intervals, pitches and keys in words.
#pragma once

#include <BrvEDK/transposition.h>

#include <string>

// "major 2nd down", "octave up", "none".
std::string NameOf(tInterval interval);

// "Bb3".
std::string NameOf(tDiaPitch pitch);

// "D major", "B minor"; "none" for a key without a tonic.
std::string NameOfKey(int keySignature);
