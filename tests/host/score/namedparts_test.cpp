#include "host/score/namedparts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/text/inputerror.h"

namespace brvhost {
namespace {

struct PartFacts {
  const char* id;
  const char* name;
  const char* abbreviation = "";
  int staves = 1;
};

Score ScoreWith(const std::vector<PartFacts>& parts) {
  Score score;
  for (const auto& [id, name, abbreviation, staves] : parts) {
    ScorePart part;
    part.id = id;
    part.names.name = name;
    part.names.abbreviation = abbreviation;
    part.staves = staves;
    part.firstStaff = score.staves + 1;
    score.staves += staves;
    score.parts.push_back(part);
  }
  return score;
}

// Staves 1; 2; 3 and 4; 5; 6.
const Score& Orchestra() {
  static const Score score = ScoreWith({{"P1", "Violin I", "Vln. I"},
                                        {"P2", "VIOLIN I", "Vln. II"},
                                        {"P3", "Harp", "Hp.", 2},
                                        {"P4", "Horns 1, 2", "Hn."},
                                        {"P5", "Horns 3, 4", "Hn."}});
  return score;
}

std::string Staves(const std::vector<std::string>& texts, const Score& score = Orchestra()) {
  return TextOf(StavesOfParts(texts, score));
}

std::string WrongWith(const std::vector<std::string>& texts, const Score& score = Orchestra()) {
  try {
    return "found: " + Staves(texts, score);
  } catch (const InputError& error) {
    return error.what();
  }
}

TEST(StavesOfParts, AreThoseOfTheNameTheAbbreviationOrTheID) {
  EXPECT_EQ(Staves({"Harp"}), "3-4");
  EXPECT_EQ(Staves({"Hp."}), "3-4");
  EXPECT_EQ(Staves({"P3"}), "3-4");
}

TEST(StavesOfParts, AreThoseOfAllPartsWithTheName) { EXPECT_EQ(Staves({"Hn."}), "5-6"); }

TEST(StavesOfParts, DoWithoutRegardToCaseWhereNoNameIsWrittenSo) {
  EXPECT_EQ(Staves({"Violin I"}), "1");
  EXPECT_EQ(Staves({"VIOLIN I"}), "2");
  EXPECT_EQ(Staves({"violin i"}), "1-2");
  EXPECT_EQ(Staves({"hARP"}), "3-4");
}

TEST(StavesOfParts, TakeSeveralNamesBetweenCommas) {
  EXPECT_EQ(Staves({"Harp,Violin I"}), "1, 3-4");
  EXPECT_EQ(Staves({" Harp , Violin I "}), "1, 3-4");
  EXPECT_EQ(Staves({"Harp", "P2,P1"}), "1-4");
}

TEST(StavesOfParts, TakeANameWithACommaByItself) {
  EXPECT_EQ(Staves({"Horns 1, 2"}), "5");
  EXPECT_EQ(Staves({"horns 3, 4", "Harp"}), "3-4, 6");
  EXPECT_EQ(WrongWith({"Harp,Horns 1, 2"}),
            "the score has no part \"Horns 1\"; the nearest is Horns 1, 2; it has Violin I, VIOLIN I, Harp, Horns 1, "
            "2, Horns 3, 4");
}

TEST(StavesOfParts, RefuseANameThatNoPartHas) {
  EXPECT_EQ(
      WrongWith({"Hrap"}),
      "the score has no part \"Hrap\"; the nearest is Harp; it has Violin I, VIOLIN I, Harp, Horns 1, 2, Horns 3, 4");
  EXPECT_EQ(
      WrongWith({"Tuba"}, ScoreWith({{"A", ""}, {"B", "b"}, {"C", ""}, {"D", ""}, {"E", ""}, {"F", ""}, {"G", ""}})),
      "the score has no part \"Tuba\"; it has A, b, C, D, E, F and 1 more");
  EXPECT_EQ(WrongWith({"Harp,,"}),
            "the score has no part \"\"; it has Violin I, VIOLIN I, Harp, Horns 1, 2, Horns 3, 4");
  EXPECT_EQ(WrongWith({""}, ScoreWith({{"", ""}})), "the score has no part \"\"");
}

TEST(StavesOfParts, CutLongNamesInMessages) {
  EXPECT_EQ(WrongWith({std::string(100, 'x')}, ScoreWith({{"A", "Harp"}})),
            "the score has no part \"" + std::string(60, 'x') + "...\"; it has Harp");
}

}  // namespace
}  // namespace brvhost
