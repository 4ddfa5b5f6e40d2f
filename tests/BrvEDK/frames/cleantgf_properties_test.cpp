// What holds for every entry that goes back to the host.
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstring>
#include <set>

#include "brevixpdk.h"
#include "recordinghost.h"

namespace {

void Save(EXENTRY& entry) {
  static RecordingHost host;
  host.Forget();
  EXTGF2005a frame = {};
  frame.entries = &entry;
  frame.entryCount = 1;
  BX_SaveTGF(&frame, kBrvVersion);
}

// Any bytes, up to twelve notes, and identifiers from a few up, so that many are equal.
EXENTRY AnyEntry(int lowestID) {
  EXENTRY entry;
  const auto bytes = *rc::gen::container<std::vector<std::uint8_t>>(sizeof(entry), rc::gen::arbitrary<std::uint8_t>());
  std::memcpy(&entry, bytes.data(), sizeof(entry));
  entry.noteCount = static_cast<std::int16_t>(*rc::gen::inRange(0, 13));
  for (EXNOTE& note : entry.notes) note.noteID = static_cast<std::uint16_t>(*rc::gen::inRange(lowestID, lowestID + 15));
  return entry;
}

RC_GTEST_PROP(CleanedEntry, HasNoteIdsThatAreUniqueAndNotZero, ()) {
  EXENTRY entry = AnyEntry(*rc::gen::element(0, 1, 1000, 0x7000));
  const int notes = entry.noteCount;
  Save(entry);
  std::set<int> ids;
  for (int i = 0; i < notes; ++i) {
    RC_ASSERT(entry.notes[i].noteID != 0);
    RC_ASSERT(ids.insert(entry.notes[i].noteID).second);
    RC_ASSERT((entry.notes[i].noteWord & 0x1F) == (entry.notes[i].noteID & 0x1F));
  }
}

RC_GTEST_PROP(CleanedEntry, KeepsEveryByteThatIsNotTheKits, ()) {
  const EXENTRY before = AnyEntry(0);
  EXENTRY after = before;
  Save(after);
  RC_ASSERT(std::memcmp(before.hostHead, after.hostHead, sizeof(before.hostHead)) == 0);
  RC_ASSERT(std::memcmp(before.hostTail, after.hostTail, sizeof(before.hostTail)) == 0);
  RC_ASSERT(std::memcmp(before.entryFlags, after.entryFlags, 3) == 0);
  RC_ASSERT((before.entryFlags[3] & 0xFE) == (after.entryFlags[3] & 0xFE));
  RC_ASSERT(before.flags == after.flags);
  RC_ASSERT(before.position == after.position);
  for (int i = 0; i < before.noteCount; ++i) {
    RC_ASSERT(std::memcmp(before.notes[i].hostData, after.notes[i].hostData, 4) == 0);
    RC_ASSERT(before.notes[i].hostWord == after.notes[i].hostWord);
    RC_ASSERT((before.notes[i].noteWord & ~0x1F) == (after.notes[i].noteWord & ~0x1F));
  }
}

RC_GTEST_PROP(CleanedEntry, ChangesNoMoreWhenCleanedAgainButForAPlaceholder, ()) {
  EXENTRY once = AnyEntry(0);
  const bool rest = once.noteCount == 0;
  Save(once);
  EXENTRY twice = once;
  Save(twice);
  if (rest) {
    // The placeholder is a note like any other by now, and gets an identifier.
    RC_ASSERT(twice.notes[0].noteID == 1);
    RC_ASSERT(twice.notes[0].noteWord == 0x8001);
    twice.notes[0] = once.notes[0];
  }
  RC_ASSERT(std::memcmp(&once, &twice, sizeof(once)) == 0);
}

// The rule for renumbering in other words: of each identifier the last note keeps it, the others and those without
// one take the next free numbers in their order.
RC_GTEST_PROP(CleanedEntry, KeepsTheLastOfEachId, ()) {
  EXENTRY entry = AnyEntry(*rc::gen::element(0, 1, 1000));
  std::vector<int> expected;
  for (int i = 0; i < entry.noteCount; ++i) expected.push_back(entry.notes[i].noteID);
  int greatest = expected.empty() ? 0 : *std::max_element(expected.begin(), expected.end());
  for (auto id = expected.begin(); id != expected.end(); ++id) {
    const bool another = std::find(id + 1, expected.end(), *id) != expected.end();
    if (*id == 0 || another) *id = ++greatest;
  }
  const int notes = entry.noteCount;
  Save(entry);
  for (int i = 0; i < notes; ++i) RC_ASSERT(entry.notes[i].noteID == expected[static_cast<std::size_t>(i)]);
}

}  // namespace
