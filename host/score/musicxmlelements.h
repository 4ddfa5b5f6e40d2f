// The elements of MusicXML that place notes in a score, and the numbers in them.
#pragma once

#include <string>

#include "host/score/fraction.h"

namespace brvhost {

// Whether it is the root element of a score.
bool IsRootOfScore(const std::string& name);

// The children of a measure, as they affect the clock.
enum class Child { kOther, kNote, kBackup, kForward, kAttributes };
Child ChildNamed(const char* name);

// The elements within them whose text is read.
enum class Leaf { kNone, kDuration, kVoice, kStaff, kDivisions, kStaves };
Leaf LeafNamed(Child parent, const char* name);

// These throw InputError, without a place, for any other text; `what` is the number's name in a sentence.
Fraction PositiveNumber(const char* what, const std::string& text);
Fraction NumberFrom0(const char* what, const std::string& text);
int StaffNumber(const char* what, const std::string& text, int min);

}  // namespace brvhost
