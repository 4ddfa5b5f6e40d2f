#include "host/score/musicxml.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "host/text/inputerror.h"
#include "tests/host/scores.h"

namespace brvhost {
namespace {

using Entries = std::vector<EntryFacts>;
using Lengths = std::vector<std::int32_t>;

TEST(ReadMusicXml, CountsStavesThroughAllParts) {
  const Score score = ReadMusicXml(
      "<score-partwise>"
      "<part-list><score-part id='A'><part-name> Flute </part-name></score-part><score-part id='B'/></part-list>"
      "<part id='A'><measure>" +
      Note() +
      "</measure></part>"
      "<part id='B'><measure><attributes><staves>2</staves></attributes>" +
      Note("<staff>2</staff>") +
      "</measure></part>"
      "</score-partwise>");
  EXPECT_EQ(score.staves, 3);
  ASSERT_EQ(score.parts.size(), 2u);
  EXPECT_EQ(score.parts[0].names.name, "Flute");
  EXPECT_EQ(score.parts[1].firstStaff, 2);
  EXPECT_EQ(score.parts[1].staves, 2);
  EXPECT_EQ(EntriesOf(score), (Entries{{1, 1, 0, 0, 1}, {3, 1, 0, 0, 1}}));
}

TEST(ReadMusicXml, ReadsTimewiseScoresAsPartwiseOnes) {
  const Score score = ReadMusicXml(
      "<score-timewise>"
      "<measure><part id='A'>" +
      Note() + "</part><part id='B'>" + Note() + Note() +
      "</part></measure>"
      "<measure><part id='B'>" +
      Note() + "</part><part id='A'>" + Note() +
      "</part></measure>"
      "</score-timewise>");
  EXPECT_EQ(EntriesOf(score),
            (Entries{{1, 1, 0, 0, 1}, {1, 2, 0, 0, 1}, {2, 1, 0, 0, 1}, {2, 1, 0, 10080, 1}, {2, 2, 0, 0, 1}}));
}

TEST(ReadMusicXml, CountsMeasuresByOrderWhateverTheirNumbers) {
  const Score score =
      ReadMusicXml(Partwise("<measure number='0' implicit='yes'/><measure number='X7'/>" + Measure(Note())));
  EXPECT_EQ(score.measures, 3);
  EXPECT_EQ(EntriesOf(score), (Entries{{1, 3, 0, 0, 1}}));
}

// In parentheses where they are not printed.
std::vector<std::string> NumbersOf(const Score& score) {
  std::vector<std::string> numbers;
  for (const auto& [text, isPrinted] : score.measureNumbers) numbers.push_back(isPrinted ? text : "(" + text + ")");
  return numbers;
}

TEST(ReadMusicXml, KeepsTheNumbersOfTheFirstPartsMeasures) {
  using Numbers = std::vector<std::string>;
  EXPECT_EQ(
      NumbersOf(ReadMusicXml("<score-partwise><part id='A'><measure number='0' implicit='yes'/><measure number=' 1 '/>"
                             "<measure implicit='no' number='1a'/><measure/></part><part id='B'><measure number='7'/>"
                             "</part></score-partwise>")),
      (Numbers{"(0)", "1", "1a", ""}));
  EXPECT_EQ(NumbersOf(ReadMusicXml("<score-timewise><measure number='1'><part id='A'/><part id='B'/></measure>"
                                   "<measure number='X' implicit='yes'><part id='B'/><part id='A'/></measure>"
                                   "</score-timewise>")),
            (Numbers{"1", "(X)"}));
}

TEST(ReadMusicXml, MakesLayersOfAStaffsVoicesInTheirOrder) {
  const Score score = ScoreOf(Note("<voice>5</voice>") + Note("<voice>b</voice>") + Note("<voice> 5 </voice>") +
                              Note("<voice>1</voice><staff>2</staff>"));
  EXPECT_EQ(EntriesOf(score),
            (Entries{{1, 1, 0, 0, 1}, {1, 1, 0, 20160, 1}, {1, 1, 1, 10080, 1}, {2, 1, 0, 30240, 1}}));
  EXPECT_EQ(score.layers, 4) << "never fewer";
}

TEST(ReadMusicXml, HasAsManyLayersAsTheFullestStaffNeeds) {
  std::string notes;
  for (int voice = 1; voice <= 6; ++voice) notes += Note("<voice>" + std::to_string(voice) + "</voice>");
  EXPECT_EQ(ScoreOf(notes).layers, 6);
}

TEST(ReadMusicXml, TakesAChordOnOneStaffForOneEntry) {
  EXPECT_EQ(EntriesOf(ScoreOf(Note() + Note("<chord/>") + Note("<chord/>") + Note())),
            (Entries{{1, 1, 0, 0, 3}, {1, 1, 0, 10080, 1}}));
}

TEST(ReadMusicXml, StartsASecondEntryAfterTwelveNotes) {
  std::string notes = Note();
  for (int i = 0; i < 12; ++i) notes += Note("<chord/>");
  EXPECT_EQ(EntriesOf(ScoreOf(notes)), (Entries{{1, 1, 0, 0, 12}, {1, 1, 0, 0, 1}}));
}

TEST(ReadMusicXml, GivesACrossStaffChordToBothStaves) {
  const std::string notes =
      Note("<staff>2</staff>") + Note("<chord/><staff>1</staff>") + Note("<chord/><staff>2</staff>");
  EXPECT_EQ(EntriesOf(ScoreOf(notes)), (Entries{{1, 1, 0, 0, 1}, {2, 1, 0, 0, 2}}));
}

TEST(ReadMusicXml, KeepsAChordTogetherWhateverIsBetweenAndWhateverVoicesItsNotesName) {
  const std::string notes =
      Note("<voice>X</voice>") + "<direction><staff>1</staff></direction>" + Note("<chord/><voice>Y</voice>");
  EXPECT_EQ(EntriesOf(ScoreOf(notes)), (Entries{{1, 1, 0, 0, 2}}));
}

TEST(ReadMusicXml, PutsTheNotesOfACrossStaffChordInTheVoiceOfItsFirst) {
  const std::string notes = Note("<voice>X</voice>") + Note("<chord/><voice>Y</voice><staff>2</staff>") +
                            Note("<voice>X</voice><staff>2</staff>") + Note("<voice>Y</voice><staff>2</staff>");
  EXPECT_EQ(EntriesOf(ScoreOf(notes)),
            (Entries{{1, 1, 0, 0, 1}, {2, 1, 0, 0, 1}, {2, 1, 0, 10080, 1}, {2, 1, 1, 20160, 1}}));
}

TEST(ReadMusicXml, TakesANoteThatStatesNoVoiceForOneOfTheFirst) {
  const Score score = ScoreOf(Note("<voice>2</voice>") + Note() + Note("<voice>1</voice>") + Note("<voice>2</voice>"));
  EXPECT_EQ(EntriesOf(score),
            (Entries{{1, 1, 0, 0, 1}, {1, 1, 0, 30240, 1}, {1, 1, 1, 10080, 1}, {1, 1, 1, 20160, 1}}));
}

TEST(ReadMusicXml, TakesAChordWithoutAFirstNoteForANote) {
  const Score begun = ReadMusicXml(Partwise(Measure(Note()) + Measure(Note("<chord/>") + Note())));
  EXPECT_EQ(EntriesOf(begun), (Entries{{1, 1, 0, 0, 1}, {1, 2, 0, 0, 1}, {1, 2, 0, 10080, 1}}))
      << "the first note would be in another measure";
  const std::string back = "<backup><duration>1</duration></backup>";
  EXPECT_EQ(
      EntriesOf(ScoreOf(Note() + Note() + Note() + back + Note("<chord/>") + Note())),
      (Entries{{1, 1, 0, 0, 1}, {1, 1, 0, 10080, 1}, {1, 1, 0, 20160, 1}, {1, 1, 0, 20160, 1}, {1, 1, 0, 30240, 1}}))
      << "the clock went back in between";
}

TEST(ReadMusicXml, KeepsTheNotesOfChordsInTheirOrderHoweverManyVoicesThereAre) {
  std::string notes;
  for (int i = 0; i < 50; ++i) {
    const std::string voice = "<voice>" + std::to_string(i % 2) + "</voice>";
    for (int note = 0; note < 4; ++note) notes += Note(voice + (note == 0 ? "" : "<chord/>"));
  }
  const Score score = ScoreOf(notes);
  ASSERT_EQ(score.entries.size(), 50u);
  for (const ScoreEntry& entry : score.entries) {
    const auto ofEntry = score.NotesOf(entry);
    ASSERT_EQ(ofEntry.size(), 4u);
    EXPECT_TRUE(std::ranges::is_sorted(ofEntry, {}, [](const ScoreNote& note) { return +note.offset; }));
  }
}

TEST(ReadMusicXml, PutsAGraceNoteWhereTheNoteIsThatItLeadsTo) {
  EXPECT_EQ(EntriesOf(ScoreOf(Note() + "<note><grace/></note><note><grace/><chord/></note>" + Note())),
            (Entries{{1, 1, 0, 0, 1}, {1, 1, 0, 10080, 2}, {1, 1, 0, 10080, 1}}));
}

TEST(ReadMusicXml, FollowsBackupAndForward) {
  const std::string notes = Note() + Note() + "<backup><duration>2</duration></backup>" +
                            "<forward><duration>1</duration></forward>" + Note("<voice>2</voice>");
  EXPECT_EQ(EntriesOf(ScoreOf(notes)), (Entries{{1, 1, 0, 0, 1}, {1, 1, 0, 10080, 1}, {1, 1, 1, 10080, 1}}));
}

TEST(ReadMusicXml, KeepsEntriesInAscendingOrderWhenAVoiceGoesBack) {
  const std::string notes = Note() + Note("<chord/>") + Note() + "<backup><duration>2</duration></backup>" + Note();
  EXPECT_EQ(EntriesOf(ScoreOf(notes)), (Entries{{1, 1, 0, 0, 2}, {1, 1, 0, 0, 1}, {1, 1, 0, 10080, 1}}));
}

TEST(ReadMusicXml, FollowsDivisionsThatChangeWithinAMeasure) {
  const std::string notes = "<attributes><divisions>3</divisions></attributes>" + Note() +
                            "<attributes><divisions>7</divisions></attributes>" + Note() + Note();
  EXPECT_EQ(EntriesOf(ScoreOf(notes)), (Entries{{1, 1, 0, 0, 1}, {1, 1, 0, 3360, 1}, {1, 1, 0, 4800, 1}}));
}

TEST(ReadMusicXml, KeepsDivisionsFromMeasureToMeasure) {
  const Score score =
      ReadMusicXml(Partwise(Measure("<attributes><divisions>2</divisions></attributes>") + Measure(Note() + Note())));
  EXPECT_EQ(EntriesOf(score), (Entries{{1, 2, 0, 0, 1}, {1, 2, 0, 5040, 1}}));
}

TEST(ReadMusicXml, TakesDecimalDurations) {
  EXPECT_EQ(EntriesOf(ScoreOf("<note><duration> 0.5 </duration></note>" + Note())),
            (Entries{{1, 1, 0, 0, 1}, {1, 1, 0, 5040, 1}}));
}

TEST(ReadMusicXml, DoesNotAddUpRoundingErrors) {
  std::string notes = "<attributes><divisions>11</divisions></attributes>";
  for (int i = 0; i < 111; ++i) notes += Note();
  EXPECT_EQ(EntriesOf(ScoreOf(notes)).back().position, 100800) << "110 elevenths of a quarter are 10 quarters";
}

TEST(ReadMusicXml, TakesOnlyTheChildrenOfANoteForItsOwn) {
  const std::string notes =
      "<note><notations><voice>9</voice><staff>3</staff><duration>8</duration></notations>"
      "<duration>1</duration></note>" +
      Note();
  EXPECT_EQ(EntriesOf(ScoreOf(notes)), (Entries{{1, 1, 0, 0, 1}, {1, 1, 0, 10080, 1}}));
}

TEST(ReadMusicXml, ReadsNoNotesOutsideOfMeasures) {
  const std::string clock =
      "<attributes><divisions>8</divisions><staves>5</staves></attributes>"
      "<forward><duration>4</duration></forward>" +
      Note("<staff>7</staff>");
  const Score score =
      ReadMusicXml("<score-partwise><defaults><a>" + clock + "</a>" + clock + "</defaults><part id='A'><x>" + clock +
                   "</x>" + clock + Measure("<x>" + clock + "</x>" + Note() + Note()) + clock +
                   "</part><credit><measure>" + clock + "</measure></credit></score-partwise>");
  EXPECT_EQ(EntriesOf(score), (Entries{{1, 1, 0, 0, 1}, {1, 1, 0, 10080, 1}}));
  EXPECT_EQ(score.notes.size(), 2u);
  EXPECT_EQ(score.staves, 1);
  EXPECT_EQ(score.measures, 1);
}

TEST(ReadMusicXml, ReadsNoNotesOfATimewiseScoreOutsideOfParts) {
  const Score score =
      ReadMusicXml("<score-timewise><part><measure>" + Note() + "</measure></part><measure><measure>" + Note() +
                   "</measure><part id='A'>" + Note("<chord/>") + "</part></measure></score-timewise>");
  EXPECT_EQ(EntriesOf(score), (Entries{{1, 1, 0, 0, 1}}));
  EXPECT_EQ(score.parts.size(), 1u);
}

TEST(ReadMusicXml, TakesTheWholeTextOfAnElementThatHasOthersInIt) {
  const std::string attributes =
      "<attributes><divisions><x/>2</divisions><staves><staff>9</staff>3</staves></attributes>";
  const std::string note =
      "<note><duration><voice/>1</duration><voice><chord/><rest/>b</voice>"
      "<staff><duration/>2</staff></note>";
  const Score score = ScoreOf(attributes + note + Note("<staff>2</staff><voice>b</voice>"));
  EXPECT_EQ(EntriesOf(score), (Entries{{2, 1, 0, 0, 1}, {2, 1, 0, 5040, 1}}));
  EXPECT_FALSE(score.entries[0].isRest);
}

TEST(ReadMusicXml, NamesPartsByThePartListAlone) {
  const std::string name = "<part-name>other</part-name><part-abbreviation>o.</part-abbreviation>";
  const std::string part = "<score-part id='A'>" + name + "<score-instrument id='I'/></score-part>";
  const Score score =
      ReadMusicXml("<score-partwise><defaults>" + part + "</defaults><part-list><x>" + part +
                   "</x><score-part id='A'><part-name>Oboe</part-name><part-abbreviation>Ob.</part-abbreviation><x>" +
                   name + "</x></score-part><part-group number='1' type='start'>" + name +
                   "<score-instrument id='I'/></part-group></part-list><credit>" + part +
                   "</credit><part id='A'><measure>" + part + "</measure></part></score-partwise>");
  ASSERT_EQ(score.parts.size(), 1u);
  EXPECT_EQ(score.parts[0].names.name, "Oboe");
  EXPECT_EQ(score.parts[0].names.abbreviation, "Ob.");
  EXPECT_EQ(score.parts[0].instruments, 0);
}

TEST(ReadMusicXml, HidesAnEntryEachOfWhoseNotesHasNoForItsLedgerLines) {
  const auto hidden = [](const std::string& notes) { return ScoreOf(notes).entries.at(0).hidden; };
  EXPECT_FALSE(hidden(Note()));
  EXPECT_TRUE(hidden(Note("", " print-leger='no'")));
  EXPECT_FALSE(hidden(Note("", " print-object='no'"))) << "an invisible note has no lines to hide";
  EXPECT_FALSE(hidden(Note("", " print-object='no' print-leger='yes'")));
  EXPECT_TRUE(hidden(Note("", " print-leger='&#110;o'"))) << "a reference in the value";
  EXPECT_FALSE(hidden(Note("", " print-leger='no'") + Note("<chord/>")));
  EXPECT_TRUE(hidden(Note("", " print-leger='no'") + Note("<chord/>", " print-leger='no'")));
  EXPECT_FALSE(hidden(Note("", " print-leger='no'") + Note("<chord/>", " print-object='no'")));
  EXPECT_TRUE(hidden(Note("<rest/>", " print-leger='no'")));
}

TEST(ReadMusicXml, TakesForTheLengthOfAMeasureHowFarAnyPartsClockGets) {
  const std::string back = "<backup><duration>2</duration></backup>";
  const std::string forward = "<forward><duration>3</duration></forward>";
  EXPECT_EQ(ScoreOf(Note() + Note() + back + Note()).measureLengths, Lengths{20160});
  EXPECT_EQ(ScoreOf(Note() + Note() + back + forward).measureLengths, Lengths{30240});
  EXPECT_EQ(ScoreOf(Note() + Note("<chord/>") + "<note><grace/></note>").measureLengths, Lengths{10080});
  EXPECT_EQ(ScoreOf("").measureLengths, Lengths{0});
  EXPECT_EQ(ScoreOf("<note><duration>900000000</duration></note>").measureLengths, Lengths{INT32_MAX});
  const std::string timewise = "<score-timewise><measure><part id='A'/><part id='B'>" + Note() +
                               "</part></measure><measure><part id='A'>" + forward + "</part><part id='B'>" + Note() +
                               "</part></measure></score-timewise>";
  EXPECT_EQ(ReadMusicXml(timewise).measureLengths, (Lengths{10080, 30240}));
}

TEST(ReadMusicXml, WarnsOnceOfAllMixedChordsAtTheFirstOfTheDocument) {
  const std::string hidden = Note("<voice>2</voice>", " print-leger='no'");
  const Score score = ScoreOf("\n" + Note("<voice>1</voice>") + hidden + "\n  " + Note("<voice>2</voice>") +
                              Note("<chord/>", " print-leger='no'") + "<backup><duration>9</duration></backup>" +
                              hidden + Note("<chord/>"));
  ASSERT_EQ(score.warnings.size(), 2u);
  EXPECT_EQ(score.warnings[0].line, 3u);
  EXPECT_EQ(score.warnings[0].column, 3u);
  EXPECT_EQ(score.warnings[0].text.find("chords of which only some notes have print-leger=\"no\": 2, "), 0u);
}

TEST(ReadMusicXml, WarnsOfNoChordWhoseNotesAreAlikeOnEachStaff) {
  const std::string no = " print-leger='no'";
  EXPECT_TRUE(ScoreOf(Note("", no) + Note("<chord/>", no) + Note() + Note("<chord/>")).warnings.empty());
  EXPECT_TRUE(ScoreOf(Note("", no) + Note("<chord/><staff>2</staff>")).warnings.empty());
  EXPECT_TRUE(ScoreOf(Note("", " print-leger='yes'") + Note("<chord/>")).warnings.empty());
}

TEST(ReadMusicXml, KnowsRests) {
  const Score score = ScoreOf(Note("<rest/>") + Note());
  EXPECT_TRUE(score.entries[0].isRest);
  EXPECT_FALSE(score.entries[1].isRest);
}

TEST(ReadMusicXml, TakesAKeyThatIsNoWholeNumberOfMusicForNone) {
  for (const char* const fifths : {"x", "", "1.5", "1001", "-1001"}) {
    const Score score = ScoreOf("<attributes><key><fifths>" + std::string(fifths) + "</fifths></key></attributes>");
    EXPECT_EQ(score.parts[0].details.measures.at(0).key.sharps, 0) << fifths;
    EXPECT_TRUE(score.parts[0].details.statesKey);
  }
  const Score score = ScoreOf("<attributes><key><fifths>-1000</fifths></key></attributes>");
  EXPECT_EQ(score.parts[0].details.measures.at(0).key.sharps, -1000);
}

TEST(ReadMusicXml, WarnsOfABackupBeforeTheBarlineAndGoesToIt) {
  const Score score = ScoreOf(Note() + "\n<backup><duration>5</duration></backup>" + Note("<voice>2</voice>"));
  EXPECT_EQ(EntriesOf(score), (Entries{{1, 1, 0, 0, 1}, {1, 1, 1, 0, 1}}));
  ASSERT_EQ(score.warnings.size(), 1u);
  EXPECT_EQ(score.warnings[0].line, 2u);
}

TEST(ReadMusicXml, WarnsOfNoBackupToTheBarline) {
  const Score score = ScoreOf(Note() + "<backup><duration>1</duration></backup>" + Note("<voice>2</voice>"));
  EXPECT_EQ(EntriesOf(score), (Entries{{1, 1, 0, 0, 1}, {1, 1, 1, 0, 1}}));
  EXPECT_TRUE(score.warnings.empty());
}

TEST(ReadMusicXml, ReadsEveryEncodingThatTheDeclarationNames) {
  const auto nameIn = [](const std::string& document) { return ReadMusicXml(document).parts.at(0).names.name; };
  const auto scoreIn = [](const std::string& encoding, const std::string& name) {
    return "<?xml version='1.0' encoding='" + encoding +
           "'?><score-partwise><part-list><score-part id='P'><part-name>" + name +
           "</part-name></score-part></part-list><part id='P'/></score-partwise>";
  };
  EXPECT_EQ(nameIn(scoreIn("ISO-8859-1", "Fl\xFBte")), "Fl\u00FBte");
  EXPECT_EQ(nameIn(scoreIn("windows-1252", "B\x80")), "B\u20AC");
  EXPECT_EQ(nameIn(scoreIn("Shift_JIS",
                           "\x83s\x83"
                           "A\x83m")),
            "\u30D4\u30A2\u30CE");
  EXPECT_EQ(nameIn(scoreIn("EUC-JP", "\xA5\xD4\xA5\xA2\xA5\xCE")), "\u30D4\u30A2\u30CE");
  EXPECT_EQ(nameIn(scoreIn("EUC-JP", "\x8F\xB0\xA1\xA5\xA2")), "\u4E02\u30A2") << "three bytes and two";
  std::string wide("\xFF\xFE");
  for (const char character : scoreIn("UTF-16", "Oboe")) wide.append(1, character).append(1, '\0');
  EXPECT_EQ(nameIn(wide), "Oboe");
}

std::string WithZeros(const std::string& text, std::size_t before, std::size_t after) {
  std::string wide;
  for (const char character : text) wide.append(before, '\0').append(1, character).append(after, '\0');
  return wide;
}

struct BadScore {
  std::string document;
  std::string message;
  std::uint64_t line;
};

void PrintTo(const BadScore& score, std::ostream* out) { *out << score.document.substr(0, 120); }

class ReadMusicXmlRefuses : public testing::TestWithParam<BadScore> {};

TEST_P(ReadMusicXmlRefuses, WhatIsWrongAndReportsWhere) {
  try {
    ReadMusicXml(GetParam().document);
    FAIL() << "it was read";
  } catch (const InputError& error) {
    EXPECT_NE(std::string(error.what()).find(GetParam().message), std::string::npos) << error.what();
    EXPECT_EQ(error.place.line, GetParam().line);
  }
}

std::string InMeasure(const std::string& content) { return Partwise(Measure("\n" + content)); }

std::string OnStaff(int staff) { return "<note><staff>" + std::to_string(staff) + "</staff></note>"; }
std::string StaffOf(int staff) { return Measure(OnStaff(staff)); }
std::string TwoParts(const std::string& first, const std::string& second) {
  return "<score-partwise><part id='A'>" + first + "</part><part id='B'>" + second + "</part></score-partwise>";
}

std::string Measures(int count) {
  std::string measures;
  for (int i = 0; i < count; ++i) measures += "<measure/>\n";
  return measures;
}

INSTANTIATE_TEST_SUITE_P(
    BadInput, ReadMusicXmlRefuses,
    testing::Values(
        BadScore{"hello", "not well-formed XML", 1}, BadScore{"<score-partwise>\n<b></a>", "an end tag of another", 2},
        BadScore{"<score-partwise>\n<part id='P1'>", "ends too early", 2}, BadScore{"", "ends too early", 1},
        BadScore{"\n<opus/>", "root element is <opus>", 2}, BadScore{"<html/>", "root element is <html>", 1},
        BadScore{InMeasure("<attributes><divisions>0</divisions></attributes>"), "divisions is \"0\"", 2},
        BadScore{InMeasure("<attributes><divisions>-4</divisions></attributes>"), "divisions is \"-4\"", 2},
        BadScore{InMeasure("<attributes><divisions>many</divisions></attributes>"), "divisions is \"many\"", 2},
        BadScore{InMeasure("<attributes><staves>40000</staves></attributes>"), "more than 32767 staves", 2},
        BadScore{InMeasure("<note><duration>-1</duration></note>"), "a duration is \"-1\"", 2},
        BadScore{InMeasure("<note><duration>99999999999999999999</duration></note>"), "a duration is \"9999", 2},
        BadScore{InMeasure("<note><staff>0</staff></note>"), "a staff is \"0\"", 2},
        BadScore{InMeasure("<note><staff>1.5</staff></note>"), "a staff is \"1.5\"", 2},
        BadScore{InMeasure("<note><staff>32768</staff></note>"), "more than 32767 staves", 2},
        BadScore{InMeasure("<note><duration>900000000</duration></note>\n<note/>"), "too large a number", 3},
        BadScore{Partwise(Measures(32768)), "more than 32767 measures", 32768},
        BadScore{TwoParts(StaffOf(32767) + "\n", StaffOf(1)), "more than 32767 staves", 2},
        BadScore{TwoParts(StaffOf(20000), "\n" + StaffOf(12768)), "more than 32767 staves", 2},
        BadScore{TwoParts(StaffOf(20000), "\n<measure><attributes><staves>12768</staves></attributes></measure>"),
                 "more than 32767 staves", 2},
        BadScore{"<score-timewise><measure><part id='A'>" + OnStaff(20000) + "</part>\n<part id='B'>" + OnStaff(12768) +
                     "</part></measure></score-timewise>",
                 "more than 32767 staves", 2},
        BadScore{"<?xml version='1.0' encoding='UTF-32'?><score-partwise/>", "encoding", 1},
        BadScore{WithZeros("<score-partwise/>", 0, 3), "in UTF-32 cannot be read", 1},
        BadScore{WithZeros("<score-partwise/>", 3, 0), "in UTF-32 cannot be read", 1},
        BadScore{"\xFF\xFE" + std::string(2, '\0') + WithZeros("<score-partwise/>", 0, 3), "in UTF-32 cannot be read",
                 1},
        BadScore{std::string(2, '\0') + "\xFE\xFF" + WithZeros("<score-partwise/>", 3, 0), "in UTF-32 cannot be read",
                 1},
        BadScore{"\x4C\x6F\xA7\x94\x93\x40\x4C", "in EBCDIC cannot be read", 1},
        BadScore{"+ADw-score-partwise/+AD4-", "in UTF-7 cannot be read", 1},
        BadScore{"+/v8-+ADw-score-partwise/+AD4-", "in UTF-7 cannot be read", 1},
        // The start of a name in UTF-16, which has a character that ends with a zero byte.
        BadScore{std::string("<\0\0\x78", 4), "ends too early", 1},
        BadScore{"<?xml version='1.0' encoding='UTF-7'?><score-partwise/>", "an encoding that is not known", 1},
        BadScore{WithZeros("<?xml version='1.0' encoding='UTF-8'?><score-partwise/>", 0, 1),
                 "an encoding that the document is not in", 1},
        BadScore{WithZeros("<?xml version='1.0' encoding='UTF-16BE'?><score-partwise/>", 0, 1),
                 "an encoding that the document is not in", 1},
        BadScore{"<?xml version='1.0' encoding='UTF-16'?><score-partwise/>", "an encoding that the document is not in",
                 1},
        // Characters of two bytes and of four start alike.
        BadScore{"<?xml version='1.0' encoding='GB18030'?><score-partwise/>", "an encoding that is not known", 1},
        // "~" switches to other characters.
        BadScore{"<?xml version='1.0' encoding='HZ-GB-2312'?><score-partwise/>", "an encoding that is not known", 1}));

TEST(ReadMusicXml, TakesThirtyTwoThousandSevenHundredAndSixtySevenMeasures) {
  EXPECT_EQ(ReadMusicXml(Partwise(Measures(32767))).measures, 32767);
}

TEST(ReadMusicXml, TakesThirtyTwoThousandSevenHundredAndSixtySevenStavesOfAllParts) {
  const Score score = ReadMusicXml(TwoParts(StaffOf(20000), StaffOf(12767)));
  EXPECT_EQ(score.staves, 32767);
  EXPECT_EQ(EntriesOf(score), (Entries{{20000, 1, 0, 0, 1}, {32767, 1, 0, 0, 1}}));
}

std::string Voices(int count) {
  std::string notes;
  for (int i = 0; i < count; ++i) notes += "<note><voice>" + std::to_string(i) + "</voice></note>";
  return notes;
}

TEST(ReadMusicXml, TakesThirtyTwoThousandSevenHundredAndSixtySevenVoicesOfAStaff) {
  EXPECT_EQ(ScoreOf(Voices(32767)).layers, 32767);
  EXPECT_THROW(ScoreOf(Voices(32768)), InputError);
}

TEST(ReadMusicXml, TakesThirtyTwoThousandSevenHundredAndSixtySevenNotesOfAVoiceInAMeasure) {
  std::string notes;
  for (int i = 0; i < 32767; ++i) notes += "<note/>";
  const Score score = ScoreOf(notes);
  ASSERT_EQ(score.frames.size(), 1u);
  EXPECT_EQ(score.frames[0].entryCount, 32767u);
  EXPECT_THROW(ScoreOf(notes + "<note/>"), InputError);
}

// A list names each part once. If a name were copied to each part with its id, a small document would fill the memory.
TEST(ReadMusicXml, NamesTheFirstPartOfAnId) {
  const Score score = ReadMusicXml(
      "<score-partwise><part-list><score-part id='A'><part-name>Oboe</part-name>"
      "<score-instrument id='I'/></score-part></part-list><part id='A'/><part id='A'/></score-partwise>");
  ASSERT_EQ(score.parts.size(), 2u);
  EXPECT_EQ(score.parts[0].names.name, "Oboe");
  EXPECT_EQ(score.parts[1].names.name, "");
  EXPECT_EQ(score.parts[0].instruments, 1);
  EXPECT_EQ(score.parts[1].instruments, 1);
}

TEST(ReadMusicXml, RefusesEntitiesThatGrowWithoutLimit) {
  std::string document = "<!DOCTYPE score-partwise [<!ENTITY a0 'aaaaaaaaaaaaaaaaaaaa'>";
  for (int i = 1; i < 9; ++i) {
    const std::string inner = "&a" + std::to_string(i - 1) + ";";
    document += "<!ENTITY a" + std::to_string(i) + " '";
    for (int j = 0; j < 20; ++j) document += inner;
    document += "'>";
  }
  EXPECT_THROW(ReadMusicXml(document + "]><score-partwise>&a8;</score-partwise>"), InputError);
}

}  // namespace
}  // namespace brvhost
