// Any bytes as MusicXML: read by one reader and by several, hidden, written, read again, and shown again.
#include <algorithm>
#include <cstdint>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/host/declaration.h"
#include "fuzz/host/markup.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"
#include "host/score/ledgeredits.h"
#include "host/score/mixedchords.h"
#include "host/score/musicxml.h"
#include "host/score/partsections.h"
#include "host/text/inputerror.h"
#include "tests/host/scoretext.h"

namespace {

using brvhost::InputError;
using brvhost::Score;
using brvhost::ScoreEntry;
using brvhost::ScoreNote;

constexpr std::size_t kSectionSizes[] = {1, 200};
constexpr int kReaders = 3;

// One bit for each entry: whether it is hidden.
using Hidden = std::vector<bool>;

std::optional<Score> Read(std::string_view document) {
  try {
    return brvhost::ReadMusicXml(document);
  } catch (const InputError& error) {
    Require(*error.what() != '\0', "a refusal has a message");
    return std::nullopt;
  }
}

void CheckSections(std::string_view document, const std::optional<Score>& whole) {
  for (const std::size_t size : kSectionSizes) {
    const auto sections = brvhost::PartSections(document, size);
    if (sections.size() < 2) continue;
    std::string together;
    for (const auto& section : sections) together.append(section.content);
    Require(together == document, "the sections together are the document");
    auto score = brvhost::ReadSections(sections, kReaders);
    if (!score) continue;
    Require(whole.has_value(), "what one reader refuses, several refuse");
    if (auto warning = brvhost::WarningOfMixedChords(document, *score)) score->warnings.push_back(*warning);
    Require(Everything(*score) == Everything(*whole), "several readers find what one finds");
  }
}

// What does not depend on the attributes print-leger.
std::string MusicOf(Score score) {
  for (ScoreNote& note : score.notes) note = {};
  for (ScoreEntry& entry : score.entries) entry.hidden = false;
  score.warnings.clear();
  return Everything(score);
}

Hidden HiddenOf(const Score& score) {
  Hidden hidden;
  for (const ScoreEntry& entry : score.entries) hidden.push_back(entry.hidden);
  return hidden;
}

bool IsChanged(const Score& score, const ScoreEntry& entry) { return entry.hidden != score.IsHiddenInDocument(entry); }

// Whether a note that has to change has no tag of its own.
bool ChangesAnEntity(std::string_view document, const Score& score) {
  return std::ranges::any_of(score.entries, [&](const ScoreEntry& entry) {
    return IsChanged(score, entry) && std::ranges::any_of(score.NotesOf(entry), [&](const ScoreNote& note) {
             return note.IsHidden() != entry.hidden && !HasTag(document, score.units, note);
           });
  });
}

std::optional<std::string> Written(std::string_view document, const Score& score) {
  const bool changesAnEntity = ChangesAnEntity(document, score);
  try {
    const brvhost::LedgerEdits edits(document, score);
    std::string written;
    edits.Write([&written](std::string_view piece) { written.append(piece); });
    Require(!changesAnEntity, "a note that comes from an entity is not changed");
    Require(written.size() == edits.EditedSize(), "the size is known before it is written");
    const auto changed =
        std::ranges::count_if(score.entries, [&](const ScoreEntry& entry) { return IsChanged(score, entry); });
    Require(edits.ChangedEntries() == static_cast<std::size_t>(changed), "the changed entries are counted");
    Require(changed > 0 || written == document, "without a change the document stays");
    return written;
  } catch (const InputError& error) {
    Require(changesAnEntity, "only a note that comes from an entity cannot be changed");
    Require(error.place.line > 0, "a note that cannot be changed has a place");
    return std::nullopt;
  }
}

struct WrittenScore {
  std::string document;
  Score score;
};

// Writes the score with these entries hidden, and reads it again.
std::optional<WrittenScore> WriteWith(const Hidden& hidden, std::string_view document, Score score) {
  for (std::size_t i = 0; i < hidden.size(); ++i) score.entries[i].hidden = hidden[i];
  const auto written = Written(document, score);
  if (!written) return std::nullopt;
  const auto again = Read(*written);
  Require(again.has_value(), "what was written is read");
  Require(MusicOf(*again) == MusicOf(score), "hiding changes nothing of the music");
  Require(HiddenOf(*again) == hidden, "the entries are hidden as was asked for");
  Require(WithoutLedgerAttributes(*written, *again) == WithoutLedgerAttributes(document, score),
          "every byte outside of the attributes stays");
  return WrittenScore{*written, *again};
}

// Whether hiding has added attributes alone, so that showing takes everything back.
bool OnlyAdds(const Score& score, const Hidden& hidden) {
  for (std::size_t i = 0; i < hidden.size(); ++i) {
    const ScoreEntry& entry = score.entries[i];
    if (entry.hidden == hidden[i]) continue;
    const auto has = [](const ScoreNote& note) { return note.Attribute() != brvhost::LegerAttribute::kAbsent; };
    if (entry.hidden || std::ranges::any_of(score.NotesOf(entry), has)) return false;
  }
  return true;
}

void CheckEdits(std::string_view document, const Score& score, const Hidden& hidden) {
  const auto changed = WriteWith(hidden, document, score);
  if (!changed) return;
  const auto undone = WriteWith(HiddenOf(score), changed->document, changed->score);
  Require(undone.has_value(), "what could be changed can be changed back");
  if (OnlyAdds(score, hidden)) Require(undone->document == document, "undone, the document is what it was");
}

// Any entries, chosen by the bytes of the document itself, so that each document is an input as it stands.
Hidden AnyOf(const Score& score, std::string_view document) {
  std::mt19937 random(static_cast<std::uint32_t>(std::hash<std::string_view>()(document)));
  Hidden hidden(score.entries.size());
  std::generate(hidden.begin(), hidden.end(), [&random] { return (random() & 1) != 0; });
  return hidden;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view document(reinterpret_cast<const char*>(bytes), size);
  if (brvhost::DeclaresSlowEncoding(document)) return 0;
  const auto score = Read(document);
  CheckSections(document, score);
  if (!score) return 0;
  Require(Everything(*score) == Everything(brvhost::ReadMusicXml(document, kReaders)), "the readers do not count");
  CheckEdits(document, *score, HiddenOf(*score));
  CheckEdits(document, *score, Hidden(score->entries.size(), true));
  CheckEdits(document, *score, Hidden(score->entries.size(), false));
  CheckEdits(document, *score, AnyOf(*score, document));
  return 0;
}
