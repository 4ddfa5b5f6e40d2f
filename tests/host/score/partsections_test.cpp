#include "host/score/partsections.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "host/text/inputerror.h"
#include "tests/host/scores.h"
#include "tests/host/scoretext.h"

namespace brvhost {
namespace {

std::string Part(const std::string& id, const std::string& measures) {
  return "<part id=\"" + id + "\">" + measures + "</part>\n";
}

// A score of two parts, with what comes before it and them.
std::string TwoParts(const std::string& first, const std::string& second, const std::string& prolog = "",
                     const std::string& partList = "") {
  return prolog + "<score-partwise>\n" + partList + Part("A", first) + Part("B", second) + "</score-partwise>\n";
}

TEST(PartSections, AreCutBeforeEachPartButTheFirst) {
  const std::string document = TwoParts(Measure(Note()), Measure(Note()));
  const auto sections = PartSections(document, 1);
  ASSERT_EQ(sections.size(), 2u);
  EXPECT_EQ(sections[0].opening, "");
  EXPECT_EQ(sections[0].closing, "</score-partwise>");
  EXPECT_EQ(sections[1].opening, "<score-partwise>");
  EXPECT_EQ(sections[1].closing, "");
  EXPECT_EQ(sections[1].offset, document.find("<part id=\"B\""));
  EXPECT_EQ(std::string(sections[0].content).append(sections[1].content), document);
}

TEST(PartSections, AreNotSmallerThanAsked) {
  const std::string document = TwoParts(Measure(Note()), Measure(Note()));
  EXPECT_EQ(PartSections(document, document.size() - 1).size(), 1u);
}

TEST(PartSections, AreNoneOfATimewiseScoreOrOfAnEmptyText) {
  EXPECT_TRUE(
      PartSections("<score-timewise><measure><part id='A'/><part id='B'/></measure></score-timewise>", 1).empty());
  EXPECT_TRUE(PartSections("", 1).empty());
}

std::optional<Score> Apart(const std::string& document) { return ReadSections(PartSections(document, 1), 2); }

TEST(ReadSections, FindsWhatOneReaderFinds) {
  const std::string partList =
      "<part-list>"
      "<part-group number='1' type='start'><group-name>All</group-name><group-symbol>brace</group-symbol></part-group>"
      "<score-part id='A'><part-name font-family='Serif'>First</part-name><part-abbreviation>1st</part-abbreviation>"
      "<score-instrument id='I'/></score-part><score-part id='B'><part-name>Second</part-name></score-part>"
      "<part-group number='1' type='stop'/></part-list>";
  const std::string document = TwoParts(
      "<measure><attributes><key><fifths>3</fifths><mode>minor</mode></key><staves>2</staves></attributes>" + Note() +
          Note("<chord/>") + Note("<staff>2</staff>", " print-leger='no'") + "</measure>" + Measure(Note("<rest/>")),
      "<measure><print new-page='yes'/><attributes><time><beats>3</beats><beat-type>8</beat-type></time></attributes>" +
          Note("<voice>2</voice>") + Note("<voice>1</voice>", " print-leger='yes'") +
          "<attributes><transpose><diatonic>-1</diatonic><chromatic>-2</chromatic></transpose></attributes></measure>",
      "<?xml version='1.0' encoding='utf-8'?><!DOCTYPE score-partwise PUBLIC 'x' 'y'>", partList);
  const auto score = Apart(document);
  ASSERT_TRUE(score.has_value());
  EXPECT_EQ(Everything(*score), Everything(ReadMusicXml(document)));
}

TEST(ReadSections, TakesAsManyStavesAsAScoreCanHave) {
  const auto score = Apart(TwoParts(Measure(Note("<staff>20000</staff>")), Measure(Note("<staff>12767</staff>"))));
  ASSERT_TRUE(score.has_value());
  EXPECT_EQ(score->staves, 32767);
}

struct UnusualScore {
  const char* name;
  std::string document;
};

void PrintTo(const UnusualScore& score, std::ostream* out) { *out << score.name; }

class ReadSectionsLeaves : public testing::TestWithParam<UnusualScore> {};

TEST_P(ReadSectionsLeaves, ToOneReaderWhatTwoWouldSeeOtherwise) {
  ASSERT_GT(PartSections(GetParam().document, 1).size(), 1u) << "there was nothing to cut";
  EXPECT_FALSE(Apart(GetParam().document).has_value());
}

INSTANTIATE_TEST_SUITE_P(
    Scores, ReadSectionsLeaves,
    testing::Values(
        UnusualScore{"CommentWithATag", TwoParts("<!-- <part id='C'> -->" + Measure(Note()), "")},
        UnusualScore{"TextWithATag", TwoParts("<measure><words><![CDATA[<part id='C'>]]></words></measure>", "")},
        UnusualScore{"PartWithinAPart", TwoParts("<part id='C'></part>", "")},
        UnusualScore{"ErrorInTheFirst", TwoParts("<measure>", "")},
        UnusualScore{"ErrorInTheSecond", TwoParts("", "<measure><note><staff>0</staff></note></measure>")},
        UnusualScore{"TooManyStavesTogether",
                     TwoParts(Measure(Note("<staff>20000</staff>")), Measure(Note("<staff>12768</staff>")))},
        UnusualScore{"RootClosedTwice", TwoParts("", "") + "</score-partwise>"},
        UnusualScore{"SomethingAfterTheEnd", TwoParts("", "") + "<score-partwise/>"},
        UnusualScore{"WarningInTheFirst", TwoParts(Measure("<backup><duration>1</duration></backup>"), "")},
        UnusualScore{"WarningInTheSecond", TwoParts("", Measure("<backup><duration>1</duration></backup>"))},
        UnusualScore{"OtherEncoding", TwoParts("", "<!-- \xC3\xA9 -->", "<?xml version='1.0' encoding='ISO-8859-1'?>")},
        UnusualScore{"EntityOfTheDocument",
                     TwoParts("", Measure("&n;"), "<!DOCTYPE score-partwise [<!ENTITY n '<note/>'>]>")},
        UnusualScore{"AttributesTrimmedByDeclaration",
                     TwoParts("", Measure(Note("", " print-leger=' no '")),
                              "<!DOCTYPE score-partwise [<!ATTLIST note print-leger NMTOKEN #IMPLIED>]>")},
        UnusualScore{
            "PartListAfterTheParts",
            "<score-partwise>" + Part("A", "") + Part("B", "") +
                "<part-list><score-part id='A'><part-name>late</part-name></score-part></part-list></score-partwise>"}),
    [](const auto& scenario) { return scenario.param.name; });

// Large enough to be cut.
std::string LargePart(const std::string& id, const std::string& lastMeasure) {
  std::string measures;
  while (measures.size() < (1 << 16)) measures += Measure(Note() + Note("<chord/>")) + "\n";
  return Part(id, measures + lastMeasure);
}

TEST(ReadMusicXml, ReportsTheSamePlaceOfAnErrorHoweverManyReadersThereAre) {
  const std::string document = "<score-partwise>\n" + LargePart("A", "") + LargePart("B", "<measure>\n<bad></measure>");
  ASSERT_GT(PartSections(document, 1 << 16).size(), 1u);
  const auto lines = static_cast<std::uint64_t>(std::ranges::count(document, '\n'));
  for (const int readers : {1, 2, 7}) {
    try {
      ReadMusicXml(document, readers);
      FAIL() << "it was read";
    } catch (const InputError& error) {
      EXPECT_EQ(error.place.line, lines) << readers;
      EXPECT_EQ(error.place.column, 8u) << readers;
    }
  }
}

TEST(ReadMusicXml, ReadsALargeScoreInPartsAsOneReaderDoes) {
  std::string document = "<score-partwise>";
  for (const char* const id : {"A", "B", "C", "D", "E"}) document += LargePart(id, "");
  document += "</score-partwise>";
  ASSERT_TRUE(ReadPartsApart(document, 3).has_value());
  EXPECT_EQ(Everything(ReadMusicXml(document, 3)), Everything(ReadMusicXml(document)));
}

TEST(ReadSections, TakesTheLongestOfAMeasureInAllParts) {
  const auto score = Apart(TwoParts(Measure(Note() + Note()) + Measure(Note()), Measure(Note())));
  ASSERT_TRUE(score.has_value());
  EXPECT_EQ(score->measureLengths, (std::vector<std::int32_t>{2 * kTicksPerQuarter, kTicksPerQuarter}));
}

TEST(ReadMusicXml, WarnsOfMixedChordsHoweverManyReadersThereAre) {
  const std::string chord = Note("", " print-leger='no'") + Note("<chord/>");
  const std::string document = "<score-partwise>\n" + LargePart("A", "") +
                               LargePart("B", "\n " + Measure(chord) + Measure(chord)) +
                               LargePart("C", Measure(chord)) + "</score-partwise>";
  ASSERT_TRUE(ReadPartsApart(document, 3).has_value()) << "this warning keeps nobody from reading parts apart";
  const Score score = ReadMusicXml(document);
  ASSERT_EQ(score.warnings.size(), 1u);
  EXPECT_EQ(Everything(ReadMusicXml(document, 3)), Everything(score));
  const std::string before = document.substr(0, document.find("<note print-leger"));
  EXPECT_EQ(score.warnings[0].line, static_cast<std::uint64_t>(std::ranges::count(before, '\n')) + 1);
  EXPECT_EQ(score.warnings[0].column, before.size() - before.rfind('\n'));
}

// Pieces of scores, well formed and not.
RC_GTEST_PROP(ReadSections, NeverFindsAnythingElseThanOneReader, ()) {
  const std::vector<std::string> pieces = {"<part id=\"A\">",
                                           "</part>",
                                           "<part id='B'>",

                                           "<measure>",
                                           "</measure>",
                                           Measure(Note()),
                                           Measure(Note("<voice>2</voice>") + Note("<chord/>")),
                                           "<!-- <part -->",
                                           "<!--",
                                           "-->",
                                           "<![CDATA[",
                                           "]]>",
                                           "<part-list/>",
                                           "</score-partwise>",
                                           "<backup><duration>1</duration></backup>",
                                           Note(),
                                           "\n"};
  std::string document = "<score-partwise>";
  const auto chosen = *rc::gen::container<std::vector<std::size_t>>(rc::gen::inRange<std::size_t>(0, pieces.size()));
  // Whole parts in most places, so that many documents are well formed.
  for (const std::size_t index : chosen) {
    document += *rc::gen::inRange(0, 40) == 0 ? pieces[index] : Part("P", Measure(Note()) + Measure(Note("<rest/>")));
  }
  document += "</score-partwise>";
  const auto apart = Apart(document);
  RC_CLASSIFY(apart.has_value(), "read apart");
  if (apart) RC_ASSERT(Everything(*apart) == Everything(ReadMusicXml(document)));
}

}  // namespace
}  // namespace brvhost
