// A document without its print-leger attributes, found in another way than the one by which they are edited.
#pragma once

#include <string>
#include <string_view>

#include "host/score/score.h"

namespace brvhost {

// The bytes of the document without the attributes print-leger of the notes of its score, and without the blanks before
// these.
std::string WithoutLedgerAttributes(std::string_view document, const Score& score);

// Whether the note's start tag stands in the document: that of a note from an entity does not.
bool HasTag(std::string_view document, CodeUnits units, const ScoreNote& note);

}  // namespace brvhost
