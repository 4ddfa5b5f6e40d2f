#include "cleantgf.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "brevixpdk.h"

std::uint8_t CanAddNoteRecordToRests = 1;

namespace {

// The notes in use of one entry, as they lie in memory.
//
// Compatibility: a note count above twelve is followed past the entry, as hosts follow it: what they read has to be
// what was numbered here. Note 12 covers the entry's own position, and note 14 the note count of the next entry, which
// is read only when its turn comes. The array EXENTRY::notes ends with its twelfth element, and compilers count on
// that, so the notes are reached as bytes.
class Notes {
 public:
  Notes(unsigned char* entry, int count) : first_(entry + offsetof(EXENTRY, notes)), count_(count) {}

  int Count() const { return count_; }

  std::uint16_t NoteID(int i) const { return Word(i, offsetof(EXNOTE, noteID)); }
  void SetNoteID(int i, int noteID) const { SetWord(i, offsetof(EXNOTE, noteID), noteID); }

  std::uint16_t NoteWord(int i) const { return Word(i, offsetof(EXNOTE, noteWord)); }
  void SetNoteWord(int i, int noteWord) const { SetWord(i, offsetof(EXNOTE, noteWord), noteWord); }

 private:
  unsigned char* At(int i, std::size_t offset) const {
    return first_ + static_cast<std::size_t>(i) * sizeof(EXNOTE) + offset;
  }

  std::uint16_t Word(int i, std::size_t offset) const {
    std::uint16_t word;
    std::memcpy(&word, At(i, offset), sizeof(word));
    return word;
  }

  void SetWord(int i, std::size_t offset, int value) const {
    const auto word = static_cast<std::uint16_t>(value);
    std::memcpy(At(i, offset), &word, sizeof(word));
  }

  unsigned char* first_;
  int count_;
};

// The greatest identifier.
//
// Compatibility: identifiers from 0x8000 up count as negative, as hosts read them: the next number follows the greatest
// of the others.
int GreatestNoteID(const Notes& notes) {
  int greatest = 0;
  for (int i = 0; i < notes.Count(); ++i) {
    greatest = std::max<int>(greatest, static_cast<std::int16_t>(notes.NoteID(i)));
  }
  return greatest;
}

// Whether one of the first `count` notes, other than the note itself, has the note's identifier.
bool IsTaken(const Notes& notes, int count, int note) {
  for (int other = 0; other < count; ++other) {
    if (other != note && notes.NoteID(other) == notes.NoteID(note)) return true;
  }
  return false;
}

// Whether each note has its own identifier, as in almost every entry that comes from a host.
bool AreNumbered(const Notes& notes) {
  for (int i = 0; i < notes.Count(); ++i) {
    if (notes.NoteID(i) == 0 || IsTaken(notes, i, i)) return false;
  }
  return true;
}

// Of two equal identifiers the earlier one is replaced; after that, the later one is unique.
//
// Compatibility: a number beyond 0x7FFF is given without checking whether an earlier note has it. Hosts read such
// numbers as negative, and give out none themselves.
void RenumberNotes(const Notes& notes) {
  int greatest = GreatestNoteID(notes);
  for (int i = 0; i < notes.Count(); ++i) {
    if (notes.NoteID(i) == 0 || IsTaken(notes, notes.Count(), i)) notes.SetNoteID(i, ++greatest);
  }
}

void MirrorNoteIDs(const Notes& notes) {
  for (int i = 0; i < notes.Count(); ++i) {
    notes.SetNoteWord(i, (notes.NoteWord(i) & ~kNoteIDBits) | (notes.NoteID(i) & kNoteIDBits));
  }
}

void ClearNotes(EXNOTE* first, int count) { std::memset(first, 0, sizeof(EXNOTE) * static_cast<std::size_t>(count)); }

// Clears three notes at a time, the last three perhaps over one that is already clear: a length that the compiler knows
// takes two stores, and a variable one takes longer than everything else that is done to an entry.
void ClearUnusedNotes(EXENTRY& entry, int count) {
  constexpr int kLastThree = EXENTRY::kMaxNotes - 3;
  if (count <= kLastThree) {
    for (int i = count; i < EXENTRY::kMaxNotes; i += 3) ClearNotes(&entry.notes[std::min(i, kLastThree)], 3);
  } else {
    for (int i = count; i < EXENTRY::kMaxNotes; ++i) ClearNotes(&entry.notes[i], 1);
  }
}

// The note has been zeroed before, and so has its identifier.
void AddPlaceholderNote(EXENTRY& entry) {
  entry.noteCount = 1;
  entry.notes[0].hostWord = 0;
  entry.notes[0].noteWord = kPlaceholderNote;
  entry.entryFlags[kContentByte] |= kHasPlaceholder;
}

void CleanEntry(unsigned char* bytes, bool fillRests) {
  auto& entry = *reinterpret_cast<EXENTRY*>(bytes);
  // No host gives a negative count; if one comes, nothing before the first note must be written.
  const int count = std::max<int>(entry.noteCount, 0);
  const Notes notes(bytes, count);
  if (!AreNumbered(notes)) RenumberNotes(notes);
  MirrorNoteIDs(notes);
  ClearUnusedNotes(entry, count);
  if (count == 0 && fillRests) AddPlaceholderNote(entry);
}

}  // namespace

void CleanTGF(const EXTGF2005a* frame, bool) {
  const int entryCount = frame->entryCount;
  auto* entry = reinterpret_cast<unsigned char*>(frame->entries);
  const bool fillRests = CanAddNoteRecordToRests != 0;
  for (int i = 0; i < entryCount; ++i, entry += sizeof(EXENTRY)) CleanEntry(entry, fillRests);
}
