#include "host/services/foreignchange.h"

#include <algorithm>
#include <cstring>

namespace brvhost {
namespace {

bool AreSame(const EXENTRY& a, const EXENTRY& b) { return std::memcmp(&a, &b, sizeof(a)) == 0; }

// A rest as the kit saves it.
EXENTRY WithPlaceholder(EXENTRY rest) {
  rest.noteCount = 1;
  rest.notes[0].noteWord = kPlaceholderNote;
  rest.entryFlags[kContentByte] |= kHasPlaceholder;
  return rest;
}

void ClearUnusedNotes(EXENTRY& entry) {
  const int used = std::clamp<int>(entry.noteCount, 0, EXENTRY::kMaxNotes);
  std::fill(entry.notes + used, entry.notes + EXENTRY::kMaxNotes, EXNOTE{});
}

}  // namespace

const char* ForeignChange(const EXENTRY& given, EXENTRY saved) {
  EXENTRY wanted = given;
  wanted.flags = static_cast<std::uint16_t>((given.flags & ~kNoLegerLines) | (saved.flags & kNoLegerLines));
  if (AreSame(wanted, saved)) return nullptr;
  ClearUnusedNotes(saved);
  if (AreSame(wanted, saved)) return nullptr;
  if (given.noteCount == 0 && AreSame(WithPlaceholder(wanted), saved)) return nullptr;
  if (saved.position != given.position) return "moved";
  if (saved.noteCount > given.noteCount) return "added notes to";
  if (saved.noteCount < given.noteCount) return "removed notes from";
  return "overwrote more than the ledger-line bit of";
}

}  // namespace brvhost
