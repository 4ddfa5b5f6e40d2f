// What cleaning frames costs, for chords of 1 to 12 notes, compared with copying the same entries with memcpy.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

#include "cleantgf.h"
#include "sidebyside.h"

namespace {

constexpr int kOfAQuartet = 20000;  // more than the processor's nearest memory holds
constexpr int kOfAMeasure = 16;
constexpr int kEntriesOfATurn = 200000;

std::vector<EXENTRY> Chords(int count, int notes) {
  std::vector<EXENTRY> entries(static_cast<std::size_t>(count));
  for (EXENTRY& entry : entries) {
    entry.noteCount = static_cast<std::int16_t>(notes);
    for (int i = 0; i < notes; ++i) entry.notes[i].noteID = static_cast<std::uint16_t>(i + 1);
  }
  return entries;
}

void Compare(int count, int notes) {
  std::vector<EXENTRY> entries = Chords(count, notes);
  std::vector<EXENTRY> copy(entries.size());
  EXTGF2005a frame{};
  frame.entries = entries.data();
  frame.entryCount = static_cast<std::int16_t>(count);
  const std::string text = std::to_string(count) + " chords of " + std::to_string(notes) + ": CleanTGF / memcpy";
  PrintRatio(
      text.c_str(), kEntriesOfATurn / count,
      [&](int) {
        CleanTGF(&frame, false);
        benchmark::ClobberMemory();
      },
      [&](int) {
        std::memcpy(static_cast<void*>(copy.data()), entries.data(), entries.size() * sizeof(EXENTRY));
        benchmark::ClobberMemory();
      });
}

}  // namespace

int main() {
  for (const int count : {kOfAQuartet, kOfAMeasure}) {
    for (int notes = 1; notes <= EXENTRY::kMaxNotes; ++notes) Compare(count, notes);
  }
}
