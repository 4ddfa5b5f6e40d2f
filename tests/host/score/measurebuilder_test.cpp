#include "host/score/measurebuilder.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "tests/host/scores.h"

namespace brvhost {
namespace {

NoteElement OnStaff(int staff) {
  NoteElement element;
  element.staff = staff;
  return element;
}

TEST(MeasureBuilder, TakesAChordOverAllStaves) {
  constexpr int kNotes = 300'000;  // twelve to an entry
  MeasureBuilder measure;
  measure.AddNote(OnStaff(1));
  for (int staff = 2; staff < kMaxStaves; ++staff) measure.AddToChord(OnStaff(staff));
  for (int i = 0; i < kNotes; ++i) measure.AddToChord(OnStaff(kMaxStaves));
  Score score;
  std::vector<ScoreFrame> frames;
  measure.Finish(1, score, frames);
  ASSERT_EQ(frames.size(), std::size_t{kMaxStaves});
  EXPECT_EQ(frames.front().entryCount, 1u);
  EXPECT_EQ(frames.back().entryCount, kNotes / 12u);
  EXPECT_EQ(score.entries.back().noteElements, 12);
}

TEST(MeasureBuilder, StartsEachChordAnew) {
  MeasureBuilder measure;
  for (int i = 0; i < 2; ++i) {
    measure.AddNote(OnStaff(1));
    measure.AddToChord(OnStaff(2));
    measure.AddToChord(OnStaff(1));
  }
  Score score;
  std::vector<ScoreFrame> frames;
  measure.Finish(1, score, frames);
  measure.AddToChord(OnStaff(2));
  measure.Finish(2, score, frames);
  std::vector<int> notes;
  for (const ScoreEntry& entry : score.entries) notes.push_back(entry.noteElements);
  EXPECT_EQ(notes, (std::vector<int>{2, 2, 1, 1, 1}));
}

}  // namespace
}  // namespace brvhost
