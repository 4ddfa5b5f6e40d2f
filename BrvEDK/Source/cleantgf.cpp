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

void ClearUnusedNotes(EXENTRY& entry, int count) {
  if (count >= EXENTRY::kMaxNotes) return;
  std::memset(&entry.notes[count], 0, sizeof(EXNOTE) * static_cast<std::size_t>(EXENTRY::kMaxNotes - count));
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
  RenumberNotes(entry, count);
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
