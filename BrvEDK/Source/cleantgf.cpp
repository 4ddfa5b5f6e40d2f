#include "cleantgf.h"

#include <algorithm>
#include <cstring>

#include "brevixpdk.h"

std::uint8_t CanAddNoteRecordToRests = 1;

namespace {

constexpr std::uint16_t kNoteIDBits = 0x1F;
constexpr std::uint16_t kPlaceholderNote = 0x8000;
constexpr int kPlaceholderByte = 3;  // of the entry's flags
constexpr std::uint8_t kHasPlaceholder = 0x01;

// The greatest identifier, read as the host reads it: those from 0x8000 up count as negative.
int GreatestNoteID(const EXENTRY& entry, int count) {
  int greatest = 0;
  for (int i = 0; i < count; ++i) greatest = std::max<int>(greatest, static_cast<std::int16_t>(entry.notes[i].noteID));
  return greatest;
}

bool IsTaken(const EXENTRY& entry, int count, int slot) {
  for (int other = 0; other < count; ++other) {
    if (other != slot && entry.notes[other].noteID == entry.notes[slot].noteID) return true;
  }
  return false;
}

// Whether each note has an identifier of its own, as almost all that come from a host have.
bool AreNumbered(const EXENTRY& entry, int count) {
  for (int i = 0; i < count; ++i) {
    if (entry.notes[i].noteID == 0 || IsTaken(entry, i, i)) return false;
  }
  return true;
}

// Of two equal identifiers the earlier one gives way: once it has its new number, the later is alone.
void RenumberNotes(EXENTRY& entry, int count) {
  int greatest = GreatestNoteID(entry, count);
  for (int i = 0; i < count; ++i) {
    if (entry.notes[i].noteID == 0 || IsTaken(entry, count, i)) {
      entry.notes[i].noteID = static_cast<std::uint16_t>(++greatest);
    }
  }
}

void MirrorNoteIDs(EXENTRY& entry, int count) {
  for (int i = 0; i < count; ++i) {
    EXNOTE& note = entry.notes[i];
    note.noteWord = static_cast<std::uint16_t>((note.noteWord & ~kNoteIDBits) | (note.noteID & kNoteIDBits));
  }
}

void ClearNotes(EXNOTE* first, int count) { std::memset(first, 0, sizeof(EXNOTE) * static_cast<std::size_t>(count)); }

// Three notes at a time, the last three perhaps over one that is clear: a length that the compiler knows takes two
// stores, and one that varies more than all else that is done to an entry.
void ClearUnusedNotes(EXENTRY& entry, int count) {
  constexpr int kLastThree = EXENTRY::kMaxNotes - 3;
  if (count <= kLastThree) {
    for (int i = count; i < EXENTRY::kMaxNotes; i += 3) ClearNotes(&entry.notes[std::min(i, kLastThree)], 3);
  } else {
    for (int i = count; i < EXENTRY::kMaxNotes; ++i) ClearNotes(&entry.notes[i], 1);
  }
}

// The note is zeroed by now, its identifier too.
void AddPlaceholderNote(EXENTRY& entry) {
  entry.noteCount = 1;
  entry.notes[0].hostWord = 0;
  entry.notes[0].noteWord = kPlaceholderNote;
  entry.entryFlags[kPlaceholderByte] |= kHasPlaceholder;
}

void CleanEntry(EXENTRY& entry, bool fillRests) {
  // A negative count does not come from a host; it is no reason to write before the first slot.
  const int count = std::max<int>(entry.noteCount, 0);
  if (!AreNumbered(entry, count)) RenumberNotes(entry, count);
  MirrorNoteIDs(entry, count);
  ClearUnusedNotes(entry, count);
  if (entry.noteCount == 0 && fillRests) AddPlaceholderNote(entry);
}

}  // namespace

void CleanTGF(const EXTGF2005a* frame, bool) {
  if (frame->entryCount <= 0) return;
  const bool fillRests = CanAddNoteRecordToRests != 0;
  for (int i = 0; i < frame->entryCount; ++i) CleanEntry(frame->entries[i], fillRests);
}
