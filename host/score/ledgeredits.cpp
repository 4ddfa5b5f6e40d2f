#include "host/score/ledgeredits.h"

#include <algorithm>
#include <string>
#include <vector>

#include "host/text/inputerror.h"
#include "host/xml/starttag.h"
#include "host/xml/xmlreader.h"

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

// Refuses the element that is reported at an offset. Reading the document again says in which line that is.
class Refusal : public XmlHandler {
 public:
  explicit Refusal(std::uint64_t offset) : offset_(offset) {}

  void Begin(XmlPosition& position) override { position_ = &position; }
  void StartElement(const char*, const XmlAttributes&) override {
    if (position_->Offset() == offset_) throw InputError("a note that an entity brings in cannot be changed");
  }
  void EndElement() override {}
  void Text(std::string_view) override {}

 private:
  const std::uint64_t offset_;
  XmlPosition* position_ = nullptr;
};

ByteEdit EditOf(const StartTag& tag, const NoteChange& change) {
  if (change.hide == change.note.IsHiddenByDefault()) return tag.Remove(kAttribute);
  const std::string_view value = change.hide ? "no" : "yes";
  const bool present = change.note.Attribute() != LegerAttribute::kAbsent;
  return present ? tag.Change(kAttribute, value) : tag.Add(kAttribute, value);
}

void CheckTags(std::string_view document, CodeUnits units, const std::vector<NoteChange>& changes) {
  for (const NoteChange& change : changes) {
    if (StartTag::At(document, units, change.note.offset)) continue;
    Refusal refusal(change.note.offset);
    ReadXml(document, refusal);
  }
}

}  // namespace

void WriteEdited(std::string_view document, const Score& score, const std::function<void(std::string_view)>& write) {
  const std::vector<NoteChange> changes = ChangesOf(score);
  CheckTags(document, score.units, changes);
  std::uint64_t written = 0;
  for (const NoteChange& change : changes) {
    const ByteEdit edit = EditOf(*StartTag::At(document, score.units, change.note.offset), change);
    write(document.substr(written, edit.offset - written));
    write(edit.inserted);
    written = edit.offset + edit.removed;
  }
  write(document.substr(written));
}

}  // namespace brvhost
