#include "host/services/scorerecords.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "BrvEDK/Source/documentrecords.h"
#include "host/services/textrecords.h"
#include "tests/host/scores.h"

namespace brvhost {
namespace {

class ScoreRecords : public testing::Test {
 protected:
  void Read(const std::string& document) { StoreScoreRecords(ReadMusicXml(document), records); }

  // The score of one part with these attributes in its measures.
  void ReadMeasures(const std::vector<std::string>& attributes) {
    std::string measures;
    for (const std::string& content : attributes) measures += Measure(content + Note());
    Read(Partwise(measures));
  }

  int Word(std::uint32_t tag, int number, std::size_t offset) const {
    const EDataStore::Bytes* const record = records.Find(tag, {static_cast<std::uint16_t>(number), 0});
    if (record == nullptr || record->size() < offset + 2) return -9999;
    std::int16_t word;
    std::memcpy(&word, record->data() + offset, 2);
    return word;
  }

  std::u16string RawText(int number) const {
    const EDataStore::Bytes* const record = records.Find(kRawTextTag, {static_cast<std::uint16_t>(number), 0});
    if (record == nullptr) return u"nothing";
    std::u16string text(record->size() / 2, u'\0');
    std::memcpy(text.data(), record->data(), record->size());
    return text;
  }

  EDataStore records;
};

std::string Attributes(const std::string& content) { return "<attributes>" + content + "</attributes>"; }
std::string Key(int fifths, const std::string& mode = "major") {
  return "<key><fifths>" + std::to_string(fifths) + "</fifths><mode>" + mode + "</mode></key>";
}

TEST_F(ScoreRecords, OfMeasuresHaveTheKeyAndTheMeterOfTheirBarline) {
  ReadMeasures({Attributes(Key(2) + "<time><beats>3</beats><beat-type>4</beat-type></time>"), "",
                Note() + Attributes(Key(-1, "minor")), ""});
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 2), 2);
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 8), 3);
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 10), 4);
  EXPECT_EQ(Word(kMeasureSpecTag, 2, 2), 2);
  EXPECT_EQ(Word(kMeasureSpecTag, 3, 2), 2) << "the key changes within the measure";
  EXPECT_EQ(Word(kMeasureSpecTag, 4, 2), 0x01FF);
  EXPECT_EQ(records.Find(kMeasureSpecTag, {5, 0}), nullptr);
}

TEST_F(ScoreRecords, OfMeasuresReadEachKeyAnew) {
  ReadMeasures({Attributes(Key(2, "minor")), Attributes("<key><fifths>-3</fifths></key>"),
                Attributes("<key><key-step>C</key-step><key-alter>-1</key-alter></key>"), Attributes(Key(4)),
                Attributes("<key><mode>minor</mode></key>")});
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 2), 0x0102);
  EXPECT_EQ(Word(kMeasureSpecTag, 2, 2), 0x00FD) << "major, where no mode is stated";
  EXPECT_EQ(Word(kMeasureSpecTag, 3, 2), 0x4000);
  EXPECT_EQ(Word(kMeasureSpecTag, 4, 2), 4);
  EXPECT_EQ(Word(kMeasureSpecTag, 5, 2), 0x0100) << "none of the last key's sharps";
}

TEST_F(ScoreRecords, OfMeasuresHaveTheKeyAsItSounds) {
  ReadMeasures({Attributes(Key(2) + "<transpose><diatonic>-1</diatonic><chromatic>-2</chromatic></transpose>")});
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 2), 0);
}

TEST_F(ScoreRecords, OfMeasuresHaveTheKeyAsItSoundsOnTheFirstStaff) {
  ReadMeasures(
      {Attributes(Key(2) + "<staves>2</staves>"
                           "<transpose number='1'><diatonic>-1</diatonic><chromatic>-2</chromatic></transpose>"
                           "<transpose number='2'><diatonic>-4</diatonic><chromatic>-7</chromatic></transpose>")});
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 2), 0);
}

TEST_F(ScoreRecords, OfMeasuresTakeKeyAndMeterOfTheFirstStaffWhereTheStavesDiffer) {
  const std::string time = "><beats>2</beats><beat-type>2</beat-type></time>";
  ReadMeasures(
      {Attributes("<key number='1'><fifths>3</fifths></key><key number='2'><fifths>-5</fifths></key>"
                  "<time number='1'" +
                  time + "<time number='2'><beats>6</beats><beat-type>8</beat-type></time>")});
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 2), 3);
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 8), 2);
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 10), 2);
}

TEST_F(ScoreRecords, OfMeasuresHaveKeysOfAtMostSevenSharpsOrFlats) {
  ReadMeasures({Attributes(Key(7)), Attributes(Key(-7)), Attributes(Key(8)), Attributes(Key(-8)), Attributes(Key(20))});
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 2), 7);
  EXPECT_EQ(Word(kMeasureSpecTag, 2, 2), -7 & 0xFF);
  EXPECT_EQ(Word(kMeasureSpecTag, 3, 2), -4 & 0xFF);
  EXPECT_EQ(Word(kMeasureSpecTag, 4, 2), 4);
  EXPECT_EQ(Word(kMeasureSpecTag, 5, 2), -4 & 0xFF);
}

TEST_F(ScoreRecords, OfMeasuresHaveAMeterThatChangesWithinOneFromTheNextOn) {
  ReadMeasures({Attributes("<time><beats>3</beats><beat-type>4</beat-type></time>"),
                Note() + Attributes("<time><beats>6</beats><beat-type>8</beat-type></time>"), ""});
  EXPECT_EQ(Word(kMeasureSpecTag, 2, 8), 3);
  EXPECT_EQ(Word(kMeasureSpecTag, 2, 10), 4);
  EXPECT_EQ(Word(kMeasureSpecTag, 3, 8), 6);
  EXPECT_EQ(Word(kMeasureSpecTag, 3, 10), 8);
}

TEST_F(ScoreRecords, OfMeasuresHaveNoMeterOfFewerBeatsThanNone) {
  ReadMeasures({Attributes("<time><beats>-3</beats><beat-type>4</beat-type></time>"),
                Attributes("<time><beats>3+-4</beats><beat-type>4</beat-type></time>")});
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 8), 0);
  EXPECT_EQ(Word(kMeasureSpecTag, 2, 8), 0);
}

TEST_F(ScoreRecords, OfMeasuresKnowKeysThatAreNotMadeOfFifths) {
  ReadMeasures({Attributes("<key><key-step>C</key-step><key-alter>-1</key-alter></key>")});
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 2), 0x4000);
}

TEST_F(ScoreRecords, OfMeasuresSumMeters) {
  const std::string three = "<beats>3+2</beats><beat-type>8</beat-type>";
  ReadMeasures(
      {Attributes("<time>" + three + "</time>"),
       Attributes("<time><beats>2</beats><beat-type>4</beat-type><beats>3</beats><beat-type>8</beat-type></time>"),
       Attributes("<time><senza-misura/></time>"),
       Attributes("<time>" + three +
                  "<interchangeable><beats>2</beats><beat-type>4</beat-type></interchangeable></time>")});
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 8), 5);
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 10), 8);
  EXPECT_EQ(Word(kMeasureSpecTag, 2, 8), 7);
  EXPECT_EQ(Word(kMeasureSpecTag, 2, 10), 8);
  EXPECT_EQ(Word(kMeasureSpecTag, 3, 8), 0);
  EXPECT_EQ(Word(kMeasureSpecTag, 4, 8), 5);
}

TEST_F(ScoreRecords, OfMeasuresHaveNoMeterThatIsTooLargeForOne) {
  std::string many = "1000";
  for (int i = 0; i < 3'000'000; ++i) many += "+1000";
  std::string tiny;
  for (const char* const unit : {"997", "991", "983", "977"}) {
    tiny.append("<beats>1</beats><beat-type>").append(unit).append("</beat-type>");
  }
  ReadMeasures({Attributes("<time><beats>" + many + "</beats><beat-type>4</beat-type></time>"),
                Attributes("<time>" + tiny + "</time>")});
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 8), 0);
  EXPECT_EQ(Word(kMeasureSpecTag, 2, 8), 0);
}

// "1000+1000+...", in all.
std::string BeatsInAll(int beats) {
  std::string text;
  for (; beats > 1000; beats -= 1000) text += "1000+";
  return "<beats>" + text + std::to_string(beats) + "</beats>";
}

TEST_F(ScoreRecords, OfMeasuresHaveMetersOfAsManyBeatsAsAWordHolds) {
  const std::string eighths = "<beat-type>8</beat-type>";
  ReadMeasures({Attributes("<time>" + BeatsInAll(32767) + eighths + "</time>"),
                Attributes("<time>" + BeatsInAll(32768) + eighths + "</time>"),
                Attributes("<time>" + BeatsInAll(32766) + eighths + BeatsInAll(1) + eighths + "</time>"),
                Attributes("<time>" + BeatsInAll(32766) + eighths + BeatsInAll(2) + eighths + "</time>")});
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 8), 32767);
  EXPECT_EQ(Word(kMeasureSpecTag, 2, 8), 0);
  EXPECT_EQ(Word(kMeasureSpecTag, 3, 8), 32767);
  EXPECT_EQ(Word(kMeasureSpecTag, 4, 8), 0);
}

TEST_F(ScoreRecords, OfMeasuresHaveBeatsAsSmallAsAWordHolds) {
  const auto time = [](const char* unit) {
    return Attributes("<time><beats>1</beats><beat-type>151</beat-type><beats>1</beats><beat-type>" +
                      std::string(unit) + "</beat-type></time>");
  };
  ReadMeasures({time("217"), time("218")});
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 8), 151 + 217);
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 10), 32767) << "151 times 217";
  EXPECT_EQ(Word(kMeasureSpecTag, 2, 8), 0);
  EXPECT_EQ(Word(kMeasureSpecTag, 2, 10), 0);
}

TEST_F(ScoreRecords, OfMeasuresHaveNoMeterWhoseBeatsAreZerothsOfANote) {
  const std::string zeroths = "<beats>3</beats><beat-type>0</beat-type>";
  ReadMeasures({Attributes("<time>" + zeroths + "</time>"),
                Attributes("<time>" + zeroths + "<beats>2</beats><beat-type>4</beat-type></time>")});
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 8), 0);
  EXPECT_EQ(Word(kMeasureSpecTag, 1, 10), 0);
  EXPECT_EQ(Word(kMeasureSpecTag, 2, 8), 2);
  EXPECT_EQ(Word(kMeasureSpecTag, 2, 10), 4);
}

TEST_F(ScoreRecords, OfStavesHaveTheTranspositionFromSoundToWriting) {
  ReadMeasures({Attributes("<transpose><diatonic>-1</diatonic><chromatic>-2</chromatic></transpose>")});
  EXPECT_EQ(Word(kStaffSpecTag, 1, 20), 0x0042) << "in B flat: a step and two fifths up";
}

TEST_F(ScoreRecords, OfStavesFollowTheStaffThatATranspositionNames) {
  ReadMeasures({Attributes("<staves>2</staves><transpose number='2'><chromatic>12</chromatic></transpose>")});
  EXPECT_EQ(Word(kStaffSpecTag, 1, 20), 0);
  EXPECT_EQ(Word(kStaffSpecTag, 2, 20), (-7 & 0x3F) << 6) << "the steps follow from the semitones";
}

TEST_F(ScoreRecords, OfStavesReadEachTranspositionAnew) {
  ReadMeasures(
      {Attributes("<staves>4</staves>"
                  "<transpose number='1'><diatonic>-1</diatonic><chromatic>-2</chromatic>"
                  "<octave-change>-1</octave-change></transpose>"
                  "<transpose number='2'><diatonic>-1</diatonic><chromatic>-2</chromatic></transpose>"
                  "<transpose number='3'><chromatic>-12</chromatic></transpose>"
                  "<transpose number='4'><octave-change>-2</octave-change></transpose>")});
  EXPECT_EQ(Word(kStaffSpecTag, 1, 20), 8 << 6 | 2) << "a ninth up";
  EXPECT_EQ(Word(kStaffSpecTag, 2, 20), 1 << 6 | 2) << "a second up";
  EXPECT_EQ(Word(kStaffSpecTag, 3, 20), 7 << 6) << "an octave up";
  EXPECT_EQ(Word(kStaffSpecTag, 4, 20), 14 << 6) << "two octaves up";
}

TEST_F(ScoreRecords, OfStavesHaveTheFirstTranspositionThatIsStated) {
  ReadMeasures({Attributes("<transpose><chromatic>12</chromatic></transpose>"),
                Attributes("<transpose><chromatic>-12</chromatic></transpose>")});
  EXPECT_EQ(Word(kStaffSpecTag, 1, 20), (-7 & 0x3F) << 6);
}

// 7 steps to 12 semitones, halves up: 6 semitones are 4 steps, 6 down are 3.
TEST_F(ScoreRecords, OfStavesHaveTheNearestStepsWhereNoneAreStated) {
  const std::vector<int> steps = {0, 1, 1, 2, 2, 3, 4, 4, 5, 5, 6, 6};
  for (int semitones = -12; semitones < 12; ++semitones) {
    const int octave = semitones < 0 ? -1 : 0;
    const int expected = steps[static_cast<std::size_t>(semitones - 12 * octave)] + 7 * octave;
    const int fifths = 7 * semitones - 12 * expected;
    ReadMeasures({Attributes("<transpose><chromatic>" + std::to_string(semitones) + "</chromatic></transpose>")});
    EXPECT_EQ(Word(kStaffSpecTag, 1, 20), (-expected & 0x3F) << 6 | (-fifths & 0x3F)) << semitones;
  }
}

TEST_F(ScoreRecords, OfStavesTakeTheDiatonicFormWhereSixBitsDoNotHoldTheOther) {
  const auto transposition = [this](int diatonic, int chromatic) {
    ReadMeasures({Attributes("<transpose><diatonic>" + std::to_string(diatonic) + "</diatonic><chromatic>" +
                             std::to_string(chromatic) + "</chromatic></transpose>")});
    return Word(kStaffSpecTag, 1, 20);
  };
  EXPECT_EQ(transposition(32, 55), (-32 & 0x3F) << 6 | (-1 & 0x3F)) << "four octaves and a fifth";
  EXPECT_EQ(transposition(33, 57), 0x2000 | (-33 & 0xFF)) << "and a sixth";
  EXPECT_EQ(transposition(-31, -53), 31 << 6 | (-1 & 0x3F));
  EXPECT_EQ(transposition(-32, -55), 0x2000 | 32);
  EXPECT_EQ(transposition(2, 8), (-2 & 0x3F) << 6 | (-32 & 0x3F)) << "32 fifths down";
  EXPECT_EQ(transposition(5, 4), 0x2000 | (-5 & 0xFF)) << "32 fifths up";
  EXPECT_EQ(transposition(0, 5), 0x2000) << "35 fifths";
}

TEST_F(ScoreRecords, OfStavesTakeTheDiatonicFormForMoreThanFourOctaves) {
  ReadMeasures({Attributes("<transpose><chromatic>0</chromatic><octave-change>5</octave-change></transpose>")});
  EXPECT_EQ(Word(kStaffSpecTag, 1, 20), 0x2000 | (-35 & 0xFF));
}

TEST_F(ScoreRecords, OfTextsHoldNamesWithTags) {
  Read(
      "<score-partwise><part-list><score-part id='A'><part-name font-family='Times (New)'>Clarinet\n in "
      "B\u266D</part-name>"
      "<part-abbreviation>^Cl.</part-abbreviation></score-part><score-part id='B'/></part-list>"
      "<part id='A'><measure/></part><part id='B'><measure/></part></score-partwise>");
  EXPECT_EQ(RawText(Word(kTextBlockTag, Word(kStaffSpecTag, 1, 30), 0)), u"^font(Times New)Clarinet in B^flat()");
  EXPECT_EQ(RawText(Word(kTextBlockTag, Word(kStaffSpecTag, 1, 32), 0)), u"\u02C6Cl.");
  EXPECT_EQ(Word(kStaffSpecTag, 2, 30), 0);
  EXPECT_EQ(Word(kStaffSpecTag, 2, 32), 0);
}

TEST_F(ScoreRecords, OfTextsHoldEveryTagOfALongName) {
  constexpr int kFlats = 500'000;
  std::string flats;
  std::u16string tags;
  for (int i = 0; i < kFlats; ++i) {
    flats += "\u266D";
    tags += u"^flat()";
  }
  const Score score = ReadMusicXml(
      "<score-partwise><part-list><score-part id='A'><part-name font-family='" + std::string(kFlats, '(') + "'>" +
      flats + "</part-name></score-part></part-list><part id='A'><measure/></part></score-partwise>");
  StoreScoreRecords(score, records);
  EXPECT_TRUE(RawText(1) == u"^font()" + tags);
}

TEST_F(ScoreRecords, OfTextsHaveNoCaretInTheNamesOfFonts) {
  Read(
      "<score-partwise><part-list><score-part id='A'><part-name font-family='Ti^mes'>Oboe</part-name></score-part>"
      "</part-list><part id='A'><measure/></part></score-partwise>");
  EXPECT_EQ(RawText(1), u"^font(Times)Oboe");
}

TEST_F(ScoreRecords, OfTextsAreNoMoreThanAKeyCanCount) {
  TextRecords texts(records);
  EXPECT_EQ(texts.Store(""), 0);
  for (int number = 1; number <= 65535; ++number) ASSERT_EQ(texts.Store("x"), number);
  EXPECT_EQ(texts.Store("y"), 0);
  EXPECT_EQ(RawText(65535), u"x");
}

TEST_F(ScoreRecords, OfPreferencesNamePitchesWithMiddleCAsC4) {
  Read(Partwise("<measure/>"));
  EXPECT_EQ(Word(kGeneralPrefsTag, 0, 38), 1);
  EXPECT_EQ(Word(kGeneralPrefsTag, 0, 40), 0);
}

TEST_F(ScoreRecords, OfGroupsHaveTheNumbersOfTheirSymbols) {
  std::string groups;
  for (const char* const symbol : {"brace", "bracket", "line", "square", "none", "Brace"}) {
    groups.append("<part-group number='1' type='start'><group-symbol>").append(symbol);
    groups.append("</group-symbol></part-group><score-part id='").append(symbol);
    groups.append("'/><part-group number='1' type='stop'/>");
  }
  std::string parts;
  for (int i = 0; i < 6; ++i) parts += "<part id='" + std::to_string(i) + "'><measure/></part>";
  Read("<score-partwise><part-list>" + groups + "</part-list>" + parts + "</score-partwise>");
  std::vector<int> symbols;
  for (int group = 1; group <= 6; ++group) symbols.push_back(Word(kGroupSpecTag, group, 6));
  EXPECT_EQ(symbols, (std::vector<int>{1, 2, 3, 4, 0, 0}));
}

TEST_F(ScoreRecords, OfGroupsHaveTheirStaves) {
  Read(
      "<score-partwise><part-list><score-part id='A'/>"
      "<part-group number='1' "
      "type='start'><group-name>Winds</group-name><group-symbol>bracket</group-symbol></part-group>"
      "<score-part id='B'/><part-group number='2' type='start'/><score-part id='C'/>"
      "<part-group number='2' type='stop'/><part-group number='1' type='stop'/></part-list>"
      "<part id='A'><measure/></part>"
      "<part id='B'><measure><attributes><staves>2</staves></attributes></measure></part>"
      "<part id='C'><measure/></part></score-partwise>");
  EXPECT_EQ(Word(kGroupSpecTag, 1, 0), 4);
  EXPECT_EQ(Word(kGroupSpecTag, 1, 2), 4);
  EXPECT_EQ(Word(kGroupSpecTag, 1, 4), 0);
  EXPECT_EQ(Word(kGroupSpecTag, 2, 0), 2);
  EXPECT_EQ(Word(kGroupSpecTag, 2, 2), 4);
  EXPECT_EQ(RawText(Word(kGroupSpecTag, 2, 4)), u"Winds");
  EXPECT_EQ(Word(kGroupSpecTag, 2, 6), 2);
}

TEST_F(ScoreRecords, OfGroupsEndWithTheirLastPart) {
  Read(
      "<score-partwise><part-list><part-group number='1' type='start'/><score-part id='A'/><score-part id='B'/>"
      "<part-group number='1' type='stop'/><score-part id='C'/><part-group number='1' type='stop'/>"
      "<part-group number='1' type='start'/><score-part id='D'/><part-group number='1' type='stop'/>"
      "<score-part id='E'/></part-list>"
      "<part id='A'><measure/></part>"
      "<part id='B'><measure><attributes><staves>2</staves></attributes></measure></part>"
      "<part id='C'><measure/></part><part id='D'><measure/></part><part id='E'><measure/></part></score-partwise>");
  EXPECT_EQ(Word(kGroupSpecTag, 1, 0), 1);
  EXPECT_EQ(Word(kGroupSpecTag, 1, 2), 3);
  EXPECT_EQ(Word(kGroupSpecTag, 2, 0), 5);
  EXPECT_EQ(Word(kGroupSpecTag, 2, 2), 5);
  EXPECT_EQ(records.Find(kGroupSpecTag, {3, 0}), nullptr);
}

TEST_F(ScoreRecords, OfGroupsEndWithTheLastPartThatIsThere) {
  Read(
      "<score-partwise><part-list><score-part id='A'/><part-group number='1' type='start'/><score-part id='B'/>"
      "<score-part id='C'/><part-group number='1' type='stop'/><part-group number='2' type='start'/>"
      "<score-part id='D'/><part-group number='2' type='stop'/></part-list>"
      "<part id='A'><measure/></part><part id='B'><measure/></part></score-partwise>");
  EXPECT_EQ(Word(kGroupSpecTag, 1, 0), 2);
  EXPECT_EQ(Word(kGroupSpecTag, 1, 2), 2);
  EXPECT_EQ(records.Find(kGroupSpecTag, {2, 0}), nullptr) << "none of its parts is there";
}

TEST_F(ScoreRecords, OfGroupsHaveTheirOwnNamesAlone) {
  const std::string other = "<group-name>Other</group-name><group-symbol>line</group-symbol>";
  Read(
      "<score-partwise><part-list><part-group number='1' type='start'><group-name>Winds</group-name></part-group>"
      "<part-group number='2' type='start'/><score-part id='A'>" +
      other + "</score-part><part-group number='2' type='stop'>" + other + "</part-group><part-group type='stop'>" +
      other + "</part-group><part-group number='1' type='stop'>" + other +
      "</part-group></part-list><part id='A'><measure/></part></score-partwise>");
  EXPECT_EQ(Word(kGroupSpecTag, 1, 4), 0);
  EXPECT_EQ(Word(kGroupSpecTag, 1, 6), 0);
  EXPECT_EQ(RawText(Word(kGroupSpecTag, 2, 4)), u"Winds");
  EXPECT_EQ(Word(kGroupSpecTag, 2, 6), 0);
  EXPECT_EQ(records.Find(kGroupSpecTag, {3, 0}), nullptr);
}

TEST_F(ScoreRecords, OfPagesAreThoseOfAllParts) {
  const std::string page = "<measure><print new-page='yes'/></measure>";
  Read("<score-partwise><part id='A'><measure/><measure/>" + page + "</part><part id='B'>" + page + page + page +
       "</part></score-partwise>");
  EXPECT_EQ(Word(kPageSpecTag, 1, 0), 1);
  EXPECT_EQ(Word(kPageSpecTag, 2, 0), 2);
  EXPECT_EQ(Word(kPageSpecTag, 3, 0), 3);
  EXPECT_EQ(records.Find(kPageSpecTag, {4, 0}), nullptr);
}

TEST_F(ScoreRecords, OfPagesHaveTheirFirstMeasure) {
  ReadMeasures({"", "<print new-page='yes'/>", "<print new-system='yes' new-page='no'/>", "<print new-page='yes'/>"});
  EXPECT_EQ(Word(kPageSpecTag, 1, 0), 1);
  EXPECT_EQ(Word(kPageSpecTag, 2, 0), 2);
  EXPECT_EQ(Word(kPageSpecTag, 3, 0), 4);
  EXPECT_EQ(records.Find(kPageSpecTag, {4, 0}), nullptr);
}

}  // namespace
}  // namespace brvhost
