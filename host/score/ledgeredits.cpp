#include "host/score/ledgeredits.h"

#include <algorithm>
#include <string>
#include <vector>

#include "host/score/inputerror.h"
#include "host/xml/starttag.h"

namespace brvhost {
namespace {

constexpr std::string_view kAttribute = "print-leger";

struct NoteChange {
  ScoreNote note;
  bool hide;
};

// In the order of the document.
std::vector<NoteChange> ChangesOf(const Score& score) {
  std::vector<NoteChange> changes;
  for (const ScoreEntry& entry : score.entries) {
    if (entry.hidden == score.IsHiddenInDocument(entry)) continue;
    for (const ScoreNote& note : score.NotesOf(entry)) changes.push_back({note, entry.hidden});
  }
  std::ranges::sort(changes, {}, [](const NoteChange& change) { return change.note.offset; });
  return changes;
}

TextPlace PlaceOf(std::string_view document, std::uint64_t offset) {
  const std::string_view before = document.substr(0, offset);
  const auto lines = static_cast<std::uint64_t>(std::ranges::count(before, '\n'));
  return {lines + 1, offset - (before.find_last_of('\n') + 1) + 1};
}

ByteEdit EditOf(const StartTag& tag, const NoteChange& change) {
  if (change.hide == change.note.IsHiddenByDefault()) return tag.Remove(kAttribute);
  const std::string_view value = change.hide ? "no" : "yes";
  const bool present = change.note.Attribute() != LegerAttribute::kAbsent;
  return present ? tag.Change(kAttribute, value) : tag.Add(kAttribute, value);
}

void CheckTags(std::string_view document, CodeUnits units, const std::vector<NoteChange>& changes) {
  for (const NoteChange& change : changes) {
    if (StartTag::At(document, units, change.note.offset)) continue;
    throw InputError("a note that an entity brings in cannot be changed", PlaceOf(document, change.note.offset));
  }
}

}  // namespace

void WriteEdited(std::string_view document, const Score& score, const std::function<void(std::string_view)>& write) {
  const CodeUnits units = CodeUnitsOf(document);
  const std::vector<NoteChange> changes = ChangesOf(score);
  CheckTags(document, units, changes);
  std::uint64_t written = 0;
  for (const NoteChange& change : changes) {
    const ByteEdit edit = EditOf(*StartTag::At(document, units, change.note.offset), change);
    write(document.substr(written, edit.offset - written));
    write(edit.inserted);
    written = edit.offset + edit.removed;
  }
  write(document.substr(written));
}

}  // namespace brvhost
