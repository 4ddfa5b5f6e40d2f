#include "host/services/document.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "host/services/scorerecords.h"

namespace brvhost {
namespace {

auto PlaceOf(const ScoreFrame& frame) {
  return std::make_tuple(int{frame.staff}, int{frame.layer}, int{frame.measure});
}

}  // namespace

OpenDocument::OpenDocument(Score& score) : score_(score) { StoreScoreRecords(score, records_); }

const ScoreFrame* OpenDocument::Find(int staff, int measure, int layer) {
  const auto place = std::make_tuple(staff, layer, measure);
  const auto& frames = score_.frames;
  if (nextFrame_ >= frames.size() || PlaceOf(frames[nextFrame_]) != place) {
    nextFrame_ = static_cast<std::size_t>(std::ranges::lower_bound(frames, place, {}, PlaceOf) - frames.begin());
  }
  if (nextFrame_ == frames.size() || PlaceOf(frames[nextFrame_]) != place) return nullptr;
  return &frames[nextFrame_++];
}

std::unique_ptr<OpenDocument::Frame> OpenDocument::NewFrame() {
  if (spare_ == nullptr) return std::make_unique<Frame>();
  spare_->entries.clear();
  return std::move(spare_);
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
  auto frame = NewFrame();
  frame->firstEntry = found->firstEntry;
  for (const ScoreEntry& entry : score_.EntriesOf(*found)) frame->entries.push_back(RecordOf(entry));
  frame->record.entries = frame->entries.data();
  frame->record.entryCount = static_cast<std::int16_t>(found->entryCount);
  EXTGF2005a* const record = &frame->record;
  loaded_.emplace(record, std::move(frame));
  return record;
}

OpenDocument::LoadedFrameMap::iterator OpenDocument::FindLoaded(const EXTGF2005a* record) {
  const auto found = loaded_.find(record);
  if (found == loaded_.end()) ++strayFrames_;
  return found;
}

bool OpenDocument::SaveFrame(const EXTGF2005a* record) {
  const auto found = FindLoaded(record);
  if (found == loaded_.end()) return false;
  const Frame& frame = *found->second;
  if (record->entryCount < 0 || static_cast<std::size_t>(record->entryCount) != frame.entries.size()) return false;
  for (std::size_t i = 0; i < frame.entries.size(); ++i) {
    score_.entries[frame.firstEntry + i].hidden = (record->entries[i].flags & kNoLegerLines) != 0;
  }
  ++savedFrames_;
  return true;
}

bool OpenDocument::FreeFrame(const EXTGF2005a* record) {
  const auto found = FindLoaded(record);
  if (found == loaded_.end()) return false;
  spare_ = std::move(found->second);
  loaded_.erase(found);
  return true;
}

void OpenDocument::StartEdit() {
  if (editDepth_ == 0) {
    Checkpoint now{{}, records_};
    for (const ScoreEntry& entry : score_.entries) now.hidden.push_back(entry.hidden);
    checkpoint_ = std::move(now);
  }
  ++editDepth_;
}

bool OpenDocument::EndEdit() {
  if (editDepth_ == 0) return false;
  --editDepth_;
  return true;
}

bool OpenDocument::CancelEdit() {
  if (!EndEdit()) return false;
  if (editDepth_ > 0) return true;
  records_ = std::move(checkpoint_.records);
  for (std::size_t i = 0; i < score_.entries.size(); ++i) score_.entries[i].hidden = checkpoint_.hidden[i];
  return true;
}

}  // namespace brvhost
