// What the sanitiser of frames costs, on chords of 1 to 12 notes, beside copying the same entries with memcpy.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

#include "cleantgf.h"
#include "sidebyside.h"

namespace {

constexpr int kEntries = 20000;  // those of a string quartet
constexpr int kCalls = 10;

std::vector<EXENTRY> ChordsOf(int notes) {
  std::vector<EXENTRY> entries(kEntries);
  for (EXENTRY& entry : entries) {
    entry.noteCount = static_cast<std::int16_t>(notes);
    for (int i = 0; i < notes; ++i) entry.notes[i].noteID = static_cast<std::uint16_t>(i + 1);
  }
  return entries;
}

void Compare(int notes) {
  std::vector<EXENTRY> entries = ChordsOf(notes);
  std::vector<EXENTRY> copy(kEntries);
  EXTGF2005a frame{};
  frame.entries = entries.data();
  frame.entryCount = kEntries;
  PrintRatio(("20000 chords of " + std::to_string(notes) + ": CleanTGF / memcpy").c_str(), kCalls,
             [&](int) {
               CleanTGF(&frame, false);
               benchmark::ClobberMemory();
             },
             [&](int) {
               std::memcpy(static_cast<void*>(copy.data()), entries.data(), kEntries * sizeof(EXENTRY));
               benchmark::ClobberMemory();
             });
}

}  // namespace

int main() {
  for (int notes = 1; notes <= EXENTRY::kMaxNotes; ++notes) Compare(notes);
}
