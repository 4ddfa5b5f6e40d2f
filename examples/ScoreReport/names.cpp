#include "names.h"

#include <array>

namespace {

const char* OrdinalEnding(int number) {
  if (number % 10 == 1 && number != 11) return "st";
  if (number % 10 == 2 && number != 12) return "nd";
  if (number % 10 == 3 && number != 13) return "rd";
  return "th";
}

std::string Quality(int steps, int alteration) {
  const int inOctave = steps % 7;
  const bool isPerfect = inOctave == 0 || inOctave == 3 || inOctave == 4;
  if (alteration == 0) return isPerfect ? "perfect" : "major";
  if (alteration > 0) return "augmented";
  return !isPerfect && alteration == -1 ? "minor" : "diminished";
}

std::string Size(int steps) {
  if (steps == 0) return "unison";
  if (steps % 7 == 0) return steps == 7 ? "octave" : std::to_string(steps / 7) + " octaves";
  return std::to_string(steps + 1) + OrdinalEnding(steps + 1);
}

}  // namespace

std::string NameOf(tInterval interval) {
  if (interval.steps == 0 && interval.alteration == 0) return "none";
  const bool isDown = interval.steps < 0 || (interval.steps == 0 && interval.alteration < 0);
  if (isDown) BXUtilInvertInterval(&interval);
  std::string name = Quality(interval.steps, interval.alteration) + " ";
  if (name == "perfect " && interval.steps % 7 == 0) name.clear();
  return name + Size(interval.steps) + (isDown ? " down" : " up");
}

std::string NameOf(tDiaPitch pitch) {
  std::array<char, 32> text;
  BXUtilFormatPitch(pitch, text.data(), text.size());
  return text.data();
}

std::string NameOfKey(int keySignature) {
  tDiaPitch tonic = {0, 0};
  if (BXUtilRelToAbsTCD(&tonic, keySignature) != 0) return "none";
  std::string name = NameOf(tonic);
  name.resize(name.find_first_of("-0123456789"));  // without the octave
  return name + ((keySignature >> 8 & 0xFF) == 0 ? " major" : " minor");
}
