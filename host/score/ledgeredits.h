// The bytes of a document with the ledger lines of its score as they are now.
#pragma once

#include <functional>
#include <string_view>

#include "host/score/score.h"

namespace brvhost {

// Hands out the document in pieces, in order, with the attribute print-leger changed in the notes of those entries
// whose state is no longer the document's: taken away where the wanted state is the note's own, else set. All other
// bytes stand. `document` is what the score was read from.
//
// Throws InputError, before the first piece, where such a note is brought in by an entity.
void WriteEdited(std::string_view document, const Score& score, const std::function<void(std::string_view)>& write);

}  // namespace brvhost
