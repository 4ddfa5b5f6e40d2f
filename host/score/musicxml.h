// Reads MusicXML, partwise or timewise, up to version 4.0.
#pragma once

#include <string_view>

#include "host/score/score.h"

namespace brvhost {

// Reads a whole document. Throws InputError, with the place, for what is not MusicXML or cannot be placed in a score.
//
// What a document may leave out has its usual value: one division to the quarter, voice "1", staff 1. A backup that
// would go back before the barline goes back to the barline, with a warning. All chords of which only some notes are
// hidden get one warning together.
//
// `readers`, 1 or more, is the number of threads that may read parts of a large partwise score at the same time. The
// result does not depend on it.
Score ReadMusicXml(std::string_view document, int readers = 1);

}  // namespace brvhost
