#include "host/services/document.h"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>
#include <utility>

#include "host/process/extensioncaller.h"
#include "host/services/foreignchange.h"
#include "host/services/scorerecords.h"

namespace brvhost {
namespace {

auto PlaceOf(const ScoreFrame& frame) {
  return std::make_tuple(int{frame.staff}, int{frame.layer}, int{frame.measure});
}

std::string Described(const ScoreFrame& place) {
  return fmt::format("staff {}, measure {}, layer {}", place.staff, place.measure, place.layer + 1);
}

// The four characters of a record's tag.
std::string TagText(std::uint32_t tag) {
  std::string text;
  for (int shift = 24; shift >= 0; shift -= 8) text += static_cast<char>(tag >> shift);
  return text;
}

EDataStore RecordsOf(const Score& score) {
  EDataStore records;
  StoreScoreRecords(score, records);
  return records;
}

}  // namespace

OpenDocument::OpenDocument(Score& score) : OpenDocument(score, RecordsOf(score)) {}

OpenDocument::OpenDocument(Score& score, EDataStore records) : score_(score), records_(std::move(records)) {
  records_.KeepOriginals();
}

const ScoreFrame* OpenDocument::Find(int staff, int measure, int layer) {
  const auto place = std::make_tuple(staff, layer, measure);
  const auto& frames = score_.frames;
  if (nextFrame_ >= frames.size() || PlaceOf(frames[nextFrame_]) != place) {
    nextFrame_ = static_cast<std::size_t>(std::ranges::lower_bound(frames, place, {}, PlaceOf) - frames.begin());
  }
  if (nextFrame_ == frames.size() || PlaceOf(frames[nextFrame_]) != place) return nullptr;
  return &frames[nextFrame_++];
}

EXENTRY OpenDocument::RecordOf(const ScoreEntry& entry) const {
  EXENTRY record{};
  record.flags = entry.hidden ? kNoLegerLines : 0;
  record.position = entry.position;
  if (entry.isRest) return record;
  record.entryFlags[kContentByte] = kContentBit;
  record.noteCount = entry.noteElements;
  for (std::uint16_t i = 0; i < entry.noteElements; ++i) {
    record.notes[i].noteID = static_cast<std::uint16_t>(i + 1);
    record.notes[i].noteWord = static_cast<std::uint16_t>((i + 1) & kNoteIDBits);
  }
  return record;
}

EXTGF2005a* OpenDocument::LoadFrame(int staff, int measure, int layer) {
  const ScoreFrame* const found = Find(staff, measure, layer);
  if (found == nullptr) return nullptr;
  std::vector<EXENTRY> entries = loaded_.TakeSpareEntries();
  for (const ScoreEntry& entry : score_.EntriesOf(*found)) entries.push_back(RecordOf(entry));
  LoadedFrame& frame = loaded_.Load(*found, std::move(entries), misuses_);
  if (watchesLoaders_) frame.loader = CallerInExtension("BX_LoadTGF");
  return &frame.record;
}

std::string OpenDocument::RefusedChangeIn(const LoadedFrame& frame) const {
  const int count = frame.record.entryCount;
  if (count < 0) return "gave a count of entries below zero to " + Described(*frame.place);
  if (std::cmp_greater(count, frame.entries.size())) return "added entries to " + Described(*frame.place);
  if (std::cmp_less(count, frame.entries.size())) return "removed entries from " + Described(*frame.place);
  int number = 0;
  for (const ScoreEntry& entry : score_.EntriesOf(*frame.place)) {
    const char* const change = ForeignChange(RecordOf(entry), frame.record.entries[number++]);
    if (change != nullptr) return fmt::format("{} entry {} of {}", change, number, Described(*frame.place));
  }
  return "";
}

bool OpenDocument::SaveFrame(const EXTGF2005a* record) {
  const LoadedFrame* const frame = loaded_.Find(record);
  if (frame == nullptr) misuses_.Note("saves a frame that is not loaded");
  if (frame == nullptr) return false;
  if (const std::string change = RefusedChangeIn(*frame); !change.empty()) {
    if (refusedChange_.empty()) refusedChange_ = change;
    return false;
  }
  for (std::uint32_t i = 0; i < frame->place->entryCount; ++i) {
    score_.entries[frame->place->firstEntry + i].hidden = (record->entries[i].flags & kNoLegerLines) != 0;
  }
  ++savedFrames_;
  return true;
}

bool OpenDocument::FreeFrame(const EXTGF2005a* record) {
  if (loaded_.Free(record, misuses_)) return true;
  misuses_.Note("frees a frame that is not loaded");
  return false;
}

std::string OpenDocument::RefusedChange() const {
  if (!refusedChange_.empty()) return refusedChange_;
  const auto changed = records_.FirstChanged();
  if (!changed) return "";
  const auto [tag, key] = *changed;
  return fmt::format("changed the record {} ({}, {})", TagText(tag), key.recordNumber, key.recordIndex);
}

std::size_t OpenDocument::AddedRecords() const { return records_.Added(); }

Misuse OpenDocument::MisusesSoFar() const {
  Misuse misuses = misuses_;
  loaded_.LookAtFreed(misuses);
  return misuses;
}

void OpenDocument::StartEdit() {
  if (editDepth_ == 0) {
    Checkpoint now{{}, records_, refusedChange_};
    for (const ScoreEntry& entry : score_.entries) now.hidden.push_back(entry.hidden);
    checkpoint_ = std::move(now);
  }
  ++editDepth_;
}

bool OpenDocument::EndEdit() {
  if (editDepth_ == 0) misuses_.Note("ends an edit that it has not started");
  if (editDepth_ == 0) return false;
  --editDepth_;
  return true;
}

bool OpenDocument::CancelEdit() {
  if (!EndEdit()) return false;
  if (editDepth_ > 0) return true;
  records_ = std::move(checkpoint_.records);
  refusedChange_ = std::move(checkpoint_.refusedChange);
  for (std::size_t i = 0; i < score_.entries.size(); ++i) score_.entries[i].hidden = checkpoint_.hidden[i];
  return true;
}

}  // namespace brvhost
