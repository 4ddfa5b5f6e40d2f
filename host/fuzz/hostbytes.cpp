#include "host/fuzz/hostbytes.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace brvhost {
namespace {

constexpr std::uint8_t kByte = 0xA5;
constexpr std::uint16_t kWord = 0xA5A5;

template <std::size_t size>
bool IsWhole(const std::uint8_t (&bytes)[size]) {
  return std::all_of(bytes, bytes + size, [](std::uint8_t byte) { return byte == kByte; });
}

int NotesOf(const EXENTRY& entry) { return std::clamp<int>(entry.noteCount, 0, EXENTRY::kMaxNotes); }

// Notes that an extension adds have none of the host's.
bool IsWhole(const EXNOTE& note) { return IsWhole(note.hostData) && note.hostWord == kWord; }
bool IsNew(const EXNOTE& note) { return note.hostWord == 0; }

bool IsWhole(const EXENTRY& entry) {
  return IsWhole(entry.hostHead) && IsWhole(entry.hostTail) &&
         std::all_of(entry.notes, entry.notes + NotesOf(entry),
                     [](const EXNOTE& note) { return IsNew(note) || IsWhole(note); });
}

// To that byte and that word.
void SetHostBytes(EXENTRY& entry, std::uint8_t byte, std::uint16_t word) {
  std::memset(entry.hostHead, byte, sizeof(entry.hostHead));
  std::memset(entry.hostTail, byte, sizeof(entry.hostTail));
  for (int i = 0; i < NotesOf(entry); ++i) {
    std::memset(entry.notes[i].hostData, byte, sizeof(entry.notes[i].hostData));
    entry.notes[i].hostWord = word;
  }
}

bool Is(const InterceptedCall& call, std::string_view name) { return call.function.name == name; }

}  // namespace

void HostBytes::Start() {
  loaded_.clear();
  wrong_.clear();
}

void HostBytes::Look(const EXTGF2005a& frame, const Given& given) {
  if (!wrong_.empty()) return;
  if (!IsWhole(frame.hostData)) wrong_ = "overwrites the host's bytes in a frame";
  // Entries that it adds have none, and those that it removes move the others.
  if (frame.entryCount != given.count || frame.entries != given.entries) return;
  for (int i = 0; i < given.count; ++i) {
    if (wrong_.empty() && !IsWhole(given.entries[i])) {
      wrong_ = fmt::format("overwrites the host's bytes in entry {} of a frame", i + 1);
    }
  }
}

std::optional<Register> HostBytes::Before(const InterceptedCall& call) {
  if (!Is(call, "BX_SaveTGF") && !Is(call, "BX_FreeTGF")) return std::nullopt;
  const auto* const frame = call.Pointer<const EXTGF2005a>(0);
  const auto found = loaded_.find(frame);
  if (found == loaded_.end()) return std::nullopt;
  const Given given = found->second;
  Look(*frame, given);
  if (Is(call, "BX_FreeTGF")) loaded_.erase(found);
  // The document compares entries with what they were.
  for (int i = 0; i < given.count; ++i) SetHostBytes(given.entries[i], 0, 0);
  return std::nullopt;
}

void HostBytes::After(const InterceptedCall& call, Register& result) {
  const bool isLoad = Is(call, "BX_LoadTGF");
  if (!isLoad && !Is(call, "BX_SaveTGF")) return;
  auto* const frame = isLoad ? reinterpret_cast<EXTGF2005a*>(result) : call.Pointer<EXTGF2005a>(0);
  if (frame == nullptr) return;
  if (isLoad) {
    loaded_[frame] = {frame->entries, frame->entryCount};
    std::memset(frame->hostData, kByte, sizeof(frame->hostData));
  }
  const auto found = loaded_.find(frame);
  if (found == loaded_.end()) return;
  for (int i = 0; i < found->second.count; ++i) SetHostBytes(found->second.entries[i], kByte, kWord);
}

}  // namespace brvhost
