#include "host/score/ledgeredits.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "host/text/inputerror.h"
#include "host/xml/codeunits.h"
#include "host/xml/elementplace.h"

namespace brvhost {
namespace {

constexpr std::string_view kAttribute = "print-leger";

// Hides the note's ledger lines if they are shown, and shows them if they are hidden.
ByteEdit EditOf(const StartTag& tag, const ScoreNote& note) {
  if (note.IsHidden()) return tag.Remove(kAttribute);
  const bool present = note.Attribute() != LegerAttribute::kAbsent;
  return present ? tag.Change(kAttribute, "no") : tag.Add(kAttribute, "no");
}

StartTag TagAt(std::string_view document, CodeUnits units, std::uint64_t offset) {
  if (const auto tag = StartTag::At(document, units, offset)) return *tag;
  throw InputError("a note that comes from an entity cannot be changed", PlaceOfElement(document, offset));
}

}  // namespace

LedgerEdits::LedgerEdits(std::string_view document, const Score& score)
    : document_(document), editedSize_(document.size()) {
  std::vector<ScoreNote> changed;
  for (const ScoreEntry& entry : score.entries) {
    if (entry.hidden == score.IsHiddenInDocument(entry)) continue;
    ++changedEntries_;
    const auto changes = [&entry](const ScoreNote& note) { return note.IsHidden() != entry.hidden; };
    std::ranges::copy_if(score.NotesOf(entry), std::back_inserter(changed), changes);
  }
  std::ranges::sort(changed, {}, [](const ScoreNote& note) { return note.offset; });
  edits_.reserve(changed.size());
  for (const ScoreNote& note : changed) Append(EditOf(TagAt(document, score.units, note.offset), note));
}

void LedgerEdits::Append(const ByteEdit& edit) {
  edits_.push_back({edit.offset, edit.removed, NumberOf(edit.inserted)});
  editedSize_ += edit.inserted.size() - edit.removed;
}

std::uint8_t LedgerEdits::NumberOf(const std::string& text) {
  const auto found = std::ranges::find(texts_, text);
  const auto number = static_cast<std::uint8_t>(std::distance(texts_.begin(), found));
  if (found == texts_.end()) texts_.push_back(text);
  return number;
}

void LedgerEdits::Write(const std::function<void(std::string_view)>& write) const {
  std::uint64_t written = 0;
  for (const Edit& edit : edits_) {
    write(document_.substr(written, edit.offset - written));
    write(texts_[edit.text]);
    written = edit.offset + edit.removed;
  }
  write(document_.substr(written));
}

}  // namespace brvhost
