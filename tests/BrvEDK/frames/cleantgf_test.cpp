// Frames on their way back to the host.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <vector>

#include "brevixpdk.h"
#include "recordinghost.h"

namespace {

using testing::ElementsAre;

class SaveTGF : public testing::Test {
 protected:
  void TearDown() override { CanAddNoteRecordToRests = 1; }

  static EXENTRY Entry(const std::vector<int>& noteIDs) {
    EXENTRY entry;
    std::memset(&entry, 0xA5, sizeof(entry));
    entry.noteCount = static_cast<std::int16_t>(noteIDs.size());
    for (std::size_t i = 0; i < noteIDs.size(); ++i) entry.notes[i].noteID = static_cast<std::uint16_t>(noteIDs[i]);
    return entry;
  }

  void Save(EXENTRY& entry, int entryCount = 1) {
    EXTGF2005a frame = {};
    frame.entries = &entry;
    frame.entryCount = static_cast<std::int16_t>(entryCount);
    BX_SaveTGF(&frame, kBrvVersion);
  }

  std::vector<int> Renumbered(const std::vector<int>& noteIDs) {
    EXENTRY entry = Entry(noteIDs);
    Save(entry);
    std::vector<int> ids;
    for (std::size_t i = 0; i < noteIDs.size(); ++i) ids.push_back(entry.notes[i].noteID);
    return ids;
  }

  static bool IsZero(const EXNOTE& note) {
    static const EXNOTE kZero = {};
    return std::memcmp(&note, &kZero, sizeof(note)) == 0;
  }

  RecordingHost host_;
};

TEST_F(SaveTGF, RenumbersTheEarlierOfTwoEqualNoteIds) { EXPECT_THAT(Renumbered({5, 5, 3}), ElementsAre(6, 5, 3)); }

TEST_F(SaveTGF, NumbersNotesWithoutAnId) { EXPECT_THAT(Renumbered({0, 0}), ElementsAre(1, 2)); }

TEST_F(SaveTGF, NumbersOnFromTheGreatestId) { EXPECT_THAT(Renumbered({0, 9, 0, 4}), ElementsAre(10, 9, 11, 4)); }

TEST_F(SaveTGF, RenumbersAllButTheLastOfManyEqualIds) {
  EXPECT_THAT(Renumbered({7, 7, 7, 7}), ElementsAre(8, 9, 10, 7));
}

TEST_F(SaveTGF, CountsAnIdWithBit15AsNegative) {
  EXPECT_THAT(Renumbered({0x8000, 0}), ElementsAre(0x8000, 1));
  EXPECT_THAT(Renumbered({0xFFFF, 0xFFFF}), ElementsAre(1, 0xFFFF));
}

TEST_F(SaveTGF, GivesANumberBeyond0x7FFFTwiceWhereANoteBeforeHasIt) {
  EXPECT_THAT(Renumbered({0x8000, 0x7FFF, 0}), ElementsAre(0x8000, 0x7FFF, 0x8000));
  EXPECT_THAT(Renumbered({0, 0x7FFF, 0x8000}), ElementsAre(0x8000, 0x7FFF, 0x8001));
}

TEST_F(SaveTGF, KeepsIdsThatAreUniqueAlready) { EXPECT_THAT(Renumbered({3, 1, 2}), ElementsAre(3, 1, 2)); }

TEST_F(SaveTGF, CopiesTheLowFiveBitsOfTheIdIntoTheNoteWord) {
  EXENTRY entry = Entry({33, 31, 5});
  Save(entry);
  EXPECT_EQ(entry.notes[0].noteWord, (0xA5A5 & ~0x1F) | 1);
  EXPECT_EQ(entry.notes[1].noteWord, (0xA5A5 & ~0x1F) | 31);
  EXPECT_EQ(entry.notes[2].noteWord, (0xA5A5 & ~0x1F) | 5);
}

TEST_F(SaveTGF, CopiesTheIdThatANoteWasGiven) {
  EXENTRY entry = Entry({5, 5, 3});
  Save(entry);
  EXPECT_EQ(entry.notes[0].noteWord & 0x1F, 6);
  EXPECT_EQ(entry.notes[1].noteWord & 0x1F, 5);
  EXPECT_EQ(entry.notes[2].noteWord & 0x1F, 3);
}

TEST_F(SaveTGF, ZeroesTheUnusedNotes) {
  EXENTRY entry = Entry({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
  Save(entry);
  EXPECT_FALSE(IsZero(entry.notes[10]));
  EXPECT_TRUE(IsZero(entry.notes[11]));
}

TEST_F(SaveTGF, KeepsAllNotesOfAFullEntry) {
  EXENTRY entry = Entry({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
  Save(entry);
  EXPECT_EQ(entry.noteCount, 12);
  EXPECT_EQ(entry.notes[11].noteID, 12);
  EXPECT_EQ(entry.notes[11].hostWord, 0xA5A5);
}

// The thirteenth note covers the position and what follows it; its identifier is at byte 140, its word at 144.
TEST_F(SaveTGF, FollowsAThirteenthNoteOverTheEndOfItsEntry) {
  EXENTRY entry = Entry({0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
  entry.noteCount = 13;
  const std::uint8_t tail[] = {13, 0, 0xA5, 0xA5, 0xA5, 0xA5};
  std::memcpy(entry.hostTail, tail, sizeof(tail));
  EXENTRY expected = entry;
  for (int i = 0; i < 12; ++i) {
    const int id = i == 0 ? 14 : i + 1;
    expected.notes[i].noteID = static_cast<std::uint16_t>(id);
    expected.notes[i].noteWord = static_cast<std::uint16_t>(0xA5A0 | id);
  }
  expected.hostTail[4] = 0xA0 | 13;
  Save(entry);
  EXPECT_EQ(std::memcmp(&entry, &expected, sizeof(entry)), 0);
}

// The fifteenth note's identifier is the note count of the next entry.
TEST_F(SaveTGF, ReadsTheCountThatAFifteenthNoteOfTheEntryBeforeWasGiven) {
  EXENTRY entries[] = {
      Entry({1, 0x8001, 0x8002, 0x8003, 0x8004, 0x8005, 0x8006, 0x8007, 0x8008, 0x8009, 0x800A, 0x800B}), Entry({})};
  entries[0].noteCount = 15;
  entries[1].hostHead[4] = 0xA6;  // with the byte after it the identifier of the fourteenth note
  Save(entries[0], 2);
  EXPECT_EQ(entries[1].noteCount, 2) << "a rest no longer";
  EXPECT_EQ(entries[1].notes[0].noteID, 1);
  EXPECT_EQ(entries[1].notes[1].noteID, 0xA5A5) << "equal to the first, which gave way";
  EXPECT_TRUE(IsZero(entries[1].notes[2]));
}

TEST_F(SaveTGF, GivesARestAPlaceholderNote) {
  EXENTRY entry = Entry({});
  entry.entryFlags[3] = 0x40;
  Save(entry);
  EXPECT_EQ(entry.noteCount, 1);
  EXPECT_EQ(entry.notes[0].noteID, 0);
  EXPECT_EQ(entry.notes[0].hostWord, 0);
  EXPECT_EQ(entry.notes[0].noteWord, 0x8000);
  EXPECT_EQ(entry.entryFlags[3], 0x41);
  for (int i = 1; i < 12; ++i) EXPECT_TRUE(IsZero(entry.notes[i])) << i;
}

TEST_F(SaveTGF, LeavesARestWithoutNotesWherePlaceholdersAreSwitchedOff) {
  CanAddNoteRecordToRests = 0;
  EXENTRY entry = Entry({});
  entry.entryFlags[3] = 0x40;
  Save(entry);
  EXPECT_EQ(entry.noteCount, 0);
  EXPECT_EQ(entry.entryFlags[3], 0x40);
  for (const EXNOTE& note : entry.notes) EXPECT_TRUE(IsZero(note));
}

TEST_F(SaveTGF, TakesANegativeNoteCountForARest) {
  EXENTRY entry = Entry({});
  entry.noteCount = -3;
  entry.entryFlags[3] = 0x40;
  EXENTRY expected = entry;
  std::memset(expected.notes, 0, sizeof(expected.notes));
  expected.noteCount = 1;
  expected.notes[0].noteWord = 0x8000;
  expected.entryFlags[3] = 0x41;
  Save(entry);
  EXPECT_EQ(std::memcmp(&entry, &expected, sizeof(entry)), 0);
}

TEST_F(SaveTGF, KeepsANegativeNoteCountWherePlaceholdersAreSwitchedOff) {
  CanAddNoteRecordToRests = 0;
  EXENTRY entry = Entry({});
  entry.noteCount = -32768;
  EXENTRY expected = entry;
  std::memset(expected.notes, 0, sizeof(expected.notes));
  Save(entry);
  EXPECT_EQ(std::memcmp(&entry, &expected, sizeof(entry)), 0);
}

TEST_F(SaveTGF, TouchesNothingButNotesCountAndThePlaceholderBit) {
  EXENTRY entry = Entry({});
  EXENTRY expected = entry;
  std::memset(expected.notes, 0, sizeof(expected.notes));
  expected.noteCount = 1;
  expected.notes[0].noteWord = 0x8000;
  expected.entryFlags[3] |= 1;
  Save(entry);
  EXPECT_EQ(std::memcmp(&entry, &expected, sizeof(entry)), 0);
}

TEST_F(SaveTGF, LeavesAFrameWithoutEntriesAlone) {
  for (const int count : {0, -1, -32768}) {
    EXENTRY entry = Entry({0, 0});
    const EXENTRY untouched = entry;
    Save(entry, count);
    EXPECT_EQ(std::memcmp(&entry, &untouched, sizeof(entry)), 0) << count;
  }
}

TEST_F(SaveTGF, CleansEveryEntry) {
  EXENTRY entries[] = {Entry({0}), Entry({}), Entry({4, 4})};
  Save(entries[0], 3);
  EXPECT_EQ(entries[0].notes[0].noteID, 1);
  EXPECT_EQ(entries[1].noteCount, 1);
  EXPECT_EQ(entries[2].notes[0].noteID, 5);
}

TEST_F(SaveTGF, SendsTheHostTheCleanedFrame) {
  host_.On("BX_SaveTGF", [](const HostCall& call) -> std::uint64_t {
    EXPECT_EQ(call.Pointer<EXTGF2005a>(0)->entries[0].noteCount, 1);
    return 1;
  });
  EXENTRY entry = Entry({});
  Save(entry);
  EXPECT_EQ(host_.Count("BX_SaveTGF"), 1);
}

TEST_F(SaveTGF, IsNotAloneInCleaningFrames) {
  const std::vector<std::function<void(EXTGF2005a*)>> calls = {
      [](EXTGF2005a* frame) { BX_InsertEXENTRY(frame, 0, 1, kBrvVersion); },
      [](EXTGF2005a* frame) { BX_DeleteEXENTRY(frame, 0, 1, kBrvVersion); },
      [](EXTGF2005a* frame) { BX_ReduceEntries(frame, kBrvVersion); }};
  for (const auto& call : calls) {
    EXENTRY entry = Entry({0});
    EXTGF2005a frame = {};
    frame.entries = &entry;
    frame.entryCount = 1;
    call(&frame);
    EXPECT_EQ(entry.notes[0].noteID, 1);
  }
}

TEST_F(SaveTGF, OnlyCleansOnTheWayBack) {
  EXENTRY entry = Entry({0});
  EXTGF2005a frame = {};
  frame.entries = &entry;
  frame.entryCount = 1;
  host_.Answer("BX_LoadTGF", reinterpret_cast<std::uint64_t>(&frame));
  EXPECT_EQ(BX_LoadTGF(0, 1, 1, 0, 1, kBrvVersion), &frame);
  BX_FreeTGF(&frame, kBrvVersion);
  EXPECT_EQ(entry.notes[0].noteID, 0);
}

TEST_F(SaveTGF, FillsRestsForAnyFlagButZero) {
  for (const int flag : {2, 0x10, 0x7F, 0x80, 0xFE, 0xFF}) {
    CanAddNoteRecordToRests = static_cast<std::uint8_t>(flag);
    EXENTRY entry = Entry({});
    Save(entry);
    EXPECT_EQ(entry.noteCount, 1) << flag;
    EXPECT_EQ(entry.notes[0].noteWord, 0x8000) << flag;
    EXPECT_EQ(CanAddNoteRecordToRests, flag);
  }
}

}  // namespace
