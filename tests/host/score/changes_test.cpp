#include "host/score/changes.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/host/scores.h"

namespace brvhost {
namespace {

// Two measures of two voices; the second entry is a chord.
const std::string kDocument = Partwise(
    "<measure>\n"
    "<note><duration>1</duration></note>\n"
    "<note><duration>1</duration></note>\n"
    "<note><chord/><duration>1</duration></note>\n"
    "<backup><duration>1</duration></backup>\n"
    "<note><duration>1</duration><voice>2</voice></note>\n"
    "</measure>\n"
    "<measure><note print-leger=\"no\"><duration>1</duration></note></measure>\n");

std::vector<std::string> Described(const std::vector<EntryChange>& changes) {
  std::vector<std::string> texts;
  for (const EntryChange& change : changes) {
    texts.push_back(fmt::format("line {}: staff {}, measure {}, layer {}, position {}: {}", change.line, +change.staff,
                                +change.measure, change.layer, change.position, change.isHidden));
  }
  return texts;
}

// With the bits of all entries turned over.
Score Turned() {
  Score score = ReadMusicXml(kDocument);
  for (ScoreEntry& entry : score.entries) entry.hidden = !entry.hidden;
  return score;
}

TEST(ChangesOf, AreInTheOrderOfTheDocumentWithTheirLines) {
  EXPECT_EQ(Described(ChangesOf(kDocument, Turned())),
            (std::vector<std::string>{"line 2: staff 1, measure 1, layer 0, position 0: 1",
                                      "line 3: staff 1, measure 1, layer 0, position 10080: 1",
                                      "line 6: staff 1, measure 1, layer 1, position 10080: 1",
                                      "line 8: staff 1, measure 2, layer 0, position 0: 0"}));
}

TEST(ChangesOf, LeaveOutWhatIsAsInTheDocument) { EXPECT_TRUE(ChangesOf(kDocument, ReadMusicXml(kDocument)).empty()); }

TEST(ChangesFrom, AreWhatBytesWereMadeOf) {
  const std::vector<EntryChange> changes = ChangesOf(kDocument, Turned());
  EXPECT_EQ(Described(ChangesFrom(BytesOf(changes))), Described(changes));
  EXPECT_TRUE(ChangesFrom("").empty());
}

}  // namespace
}  // namespace brvhost
