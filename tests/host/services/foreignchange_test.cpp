#include "host/services/foreignchange.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "BrvEDK/Source/cleantgf.h"

namespace brvhost {
namespace {

EXENTRY Chord() {
  EXENTRY entry{};
  entry.entryFlags[kContentByte] = kContentBit;
  entry.noteCount = 2;
  entry.position = 100;
  for (int i = 0; i < 2; ++i) {
    entry.notes[i].noteID = static_cast<std::uint16_t>(i + 1);
    entry.notes[i].noteWord = static_cast<std::uint16_t>(i + 1);
  }
  return entry;
}

EXENTRY Rest() { return {}; }

EXENTRY Cleaned(EXENTRY entry) {
  EXTGF2005a frame{};
  frame.entries = &entry;
  frame.entryCount = 1;
  CleanTGF(&frame, true);
  return entry;
}

std::string Described(const EXENTRY& given, const std::function<void(EXENTRY&)>& change) {
  EXENTRY saved = given;
  change(saved);
  const char* const found = ForeignChange(given, saved);
  return found == nullptr ? "" : found;
}

TEST(ForeignChange, IsNoChangeOfTheLedgerLines) {
  for (const EXENTRY& given : {Chord(), Rest()}) {
    EXENTRY hidden = given;
    hidden.flags = kNoLegerLines;
    EXPECT_EQ(ForeignChange(given, given), nullptr);
    EXPECT_EQ(ForeignChange(given, hidden), nullptr);
    const EXENTRY& shownAgain = given;
    EXPECT_EQ(ForeignChange(hidden, shownAgain), nullptr);
    EXPECT_EQ(ForeignChange(hidden, hidden), nullptr);
  }
}

TEST(ForeignChange, IsNothingThatTheKitCleans) {
  for (EXENTRY given : {Chord(), Rest()}) {
    EXENTRY saved = given;
    saved.flags = kNoLegerLines;
    EXPECT_EQ(ForeignChange(given, Cleaned(saved)), nullptr);
  }
  EXENTRY dirty = Chord();
  dirty.notes[7].noteID = 9;
  EXPECT_EQ(ForeignChange(Chord(), dirty), nullptr) << "a note that is not in use";
}

TEST(ForeignChange, IsNamedForWhatItDid) {
  EXPECT_EQ(Described(Chord(), [](EXENTRY& entry) { entry.position = 99; }), "moved");
  EXPECT_EQ(Described(Rest(), [](EXENTRY& entry) { entry.position = 99; }), "moved");
  EXPECT_EQ(Described(Chord(), [](EXENTRY& entry) { entry.noteCount = 3; }), "added notes to");
  EXPECT_EQ(Described(Rest(), [](EXENTRY& entry) { entry.noteCount = 1; }), "added notes to");
  EXPECT_EQ(Described(Chord(), [](EXENTRY& entry) { entry.noteCount = 1; }), "removed notes from");
  EXPECT_EQ(Described(Chord(), [](EXENTRY& entry) { entry.noteCount = -1; }), "removed notes from");
  EXPECT_EQ(Described(Chord(), [](EXENTRY& entry) { entry.noteCount = 13; }), "added notes to");
}

TEST(ForeignChange, IsFoundInEveryByteThatIsInUse) {
  const std::vector<EXENTRY> givens = {Chord(), Rest()};
  for (const EXENTRY& given : givens) {
    const std::size_t firstUnused =
        offsetof(EXENTRY, notes) + static_cast<std::size_t>(given.noteCount) * sizeof(EXNOTE);
    for (std::size_t i = 0; i < sizeof(EXENTRY); ++i) {
      const bool isUsed = i < firstUnused || i >= offsetof(EXENTRY, position);
      EXENTRY saved = given;
      reinterpret_cast<std::uint8_t*>(&saved)[i] ^= 0x80;
      EXPECT_EQ(ForeignChange(given, saved) != nullptr, isUsed) << i;
    }
  }
}

TEST(ForeignChange, IsEveryOtherFlagBesideTheLedgerLines) {
  for (int bit = 0; bit < 16; ++bit) {
    const std::string expected = 1 << bit == kNoLegerLines ? "" : "overwrote more than the ledger-line bit of";
    EXPECT_EQ(Described(Chord(), [bit](EXENTRY& entry) { entry.flags = static_cast<std::uint16_t>(1 << bit); }),
              expected);
  }
}

}  // namespace
}  // namespace brvhost
