#include "host/services/loadedframes.h"

#include <cstdint>
#include <cstring>
#include <utility>

namespace brvhost {
namespace {

void NoteIfWritten(const LoadedFrame& freed, Misuse& misuse) {
  constexpr EXTGF2005a kUntouched{};
  if (std::memcmp(&freed.record, &kUntouched, sizeof(kUntouched)) != 0)
    misuse.Note("writes to a frame that it has freed");
}

}  // namespace

std::vector<EXENTRY> LoadedFrames::TakeSpareEntries() {
  spareEntries_.clear();
  return std::move(spareEntries_);
}

LoadedFrame& LoadedFrames::Load(const ScoreFrame& place, std::vector<EXENTRY> entries, Misuse& misuse) {
  auto frame = std::move(freed_[oldest_]);
  if (frame != nullptr) NoteIfWritten(*frame, misuse);
  if (frame == nullptr) frame = std::make_unique<LoadedFrame>();
  frame->place = &place;
  frame->entries = std::move(entries);
  frame->record.entries = frame->entries.data();
  frame->record.entryCount = static_cast<std::int16_t>(frame->entries.size());
  LoadedFrame& loaded = *frame;
  loaded_.emplace(&loaded.record, std::move(frame));
  return loaded;
}

LoadedFrame* LoadedFrames::Find(const EXTGF2005a* record) const {
  const auto found = loaded_.find(record);
  return found == loaded_.end() ? nullptr : found->second.get();
}

bool LoadedFrames::Free(const EXTGF2005a* record, Misuse& misuse) {
  const auto found = loaded_.find(record);
  if (found == loaded_.end()) return false;
  auto& place = freed_[oldest_];
  if (place != nullptr) NoteIfWritten(*place, misuse);
  place = std::move(found->second);
  loaded_.erase(found);
  oldest_ = (oldest_ + 1) % kKept;
  place->record = {};
  place->loader = nullptr;
  spareEntries_ = std::move(place->entries);
  return true;
}

std::vector<const char*> LoadedFrames::Loaders() const {
  std::vector<const char*> loaders;
  for (const auto& [record, frame] : loaded_) loaders.push_back(frame->loader);
  return loaders;
}

void LoadedFrames::LookAtFreed(Misuse& misuse) const {
  for (const auto& freed : freed_) {
    if (freed != nullptr) NoteIfWritten(*freed, misuse);
  }
}

}  // namespace brvhost
