#include "host/score/measurenumbers.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/text/inputerror.h"

namespace brvhost {
namespace {

using Texts = std::vector<std::string>;

// A number in parentheses is not printed.
Score Numbered(const Texts& numbers) {
  Score score;
  for (const std::string& number : numbers) {
    const bool isPrinted = !number.starts_with('(');
    score.measureNumbers.push_back({isPrinted ? number : number.substr(1, number.size() - 2), isPrinted});
  }
  score.measures = static_cast<int>(numbers.size());
  return score;
}

// "first-last", by order; an open end is nothing.
std::string Found(const char* range, const Score& score) {
  const NumberRange found = ByOrder(*ParsePrintedRange(range), score);
  return std::to_string(found.first) + "-" + (found.last ? std::to_string(*found.last) : "");
}

std::string WrongWith(const char* range, const Score& score) {
  try {
    return "found: " + Found(range, score);
  } catch (const InputError& error) {
    return error.what();
  }
}

const Score& PickUp() {
  static const Score score = Numbered({"(0)", "1", "2", "(X1)", "3"});
  return score;
}

const Score& TwoMovements() {
  static const Score score = Numbered({"1", "2", "(X1)", "3", "(1)", "1", "2", "(X1)"});
  return score;
}

TEST(ByOrder, IsWhereTheNumberIsPrinted) {
  EXPECT_EQ(Found("m1", PickUp()), "2-2");
  EXPECT_EQ(Found("m2-m3", PickUp()), "3-5");
  EXPECT_EQ(Found("m2-", PickUp()), "3-");
  EXPECT_EQ(Found("-m2", PickUp()), "1-3");
  EXPECT_EQ(Found("m3/1", PickUp()), "5-5");
}

TEST(ByOrder, IsThatOfANumberThatIsNotPrintedWhereNoneIs) {
  EXPECT_EQ(Found("m0", PickUp()), "1-1");
  EXPECT_EQ(Found("mX1", PickUp()), "4-4");
  EXPECT_EQ(Found("m0-m1", PickUp()), "1-2");
  EXPECT_EQ(Found("m1", Numbered({"(1)", "1", "2"})), "2-2");
  EXPECT_EQ(Found("m2", Numbered({"1", "2", "(2)"})), "2-2");
}

TEST(ByOrder, TakesTheMeasureThatIsPickedOfSeveral) {
  EXPECT_EQ(Found("m1/1", TwoMovements()), "1-1");
  EXPECT_EQ(Found("m1/2", TwoMovements()), "6-6") << "the second that is printed";
  EXPECT_EQ(Found("mX1/2", TwoMovements()), "8-8");
  EXPECT_EQ(Found("m2/1-m2/2", TwoMovements()), "2-7");
}

TEST(ByOrder, RefusesANumberOfSeveralMeasuresWithTheChoices) {
  EXPECT_EQ(WrongWith("m1", TwoMovements()),
            "the printed number 1 is that of 2 measures: m1/1 is measure 1, m1/2 is measure 6");
  EXPECT_EQ(WrongWith("mX1-", TwoMovements()),
            "the printed number X1 is that of 2 measures: mX1/1 is measure 3, mX1/2 is measure 8");
  EXPECT_EQ(WrongWith("m1/3", TwoMovements()),
            "the printed number 1 is that of only 2 measures: m1/1 is measure 1, m1/2 is measure 6");
  EXPECT_EQ(WrongWith("m3/2", TwoMovements()), "the printed number 3 is that of only 1 measure: m3/1 is measure 4");
  EXPECT_EQ(
      WrongWith("m4", Numbered(Texts(8, "4"))),
      "the printed number 4 is that of 8 measures: m4/1 is measure 1, m4/2 is measure 2, m4/3 is measure 3, m4/4 is "
      "measure 4, m4/5 is measure 5, m4/6 is measure 6 and 2 more");
  EXPECT_EQ(WrongWith("m1\\-2", Numbered({"1-2", "1-2"})),
            "the printed number 1-2 is that of 2 measures: m1\\-2/1 is measure 1, m1\\-2/2 is measure 2");
}

TEST(ByOrder, RefusesANumberOfNoMeasure) {
  EXPECT_EQ(WrongWith("m7", PickUp()),
            "the score has no measure with the printed number 7; those that it has are (0), 1-2, (X1), 3");
  EXPECT_EQ(WrongWith("m1", Numbered({})),
            "the score has no measure with the printed number 1; those that it has are none");
  EXPECT_EQ(WrongWith("m1", Numbered({"a", "b", "c", "d", "e", "f", "g", "h"})),
            "the score has no measure with the printed number 1; those that it has are a, b, c, d, e, f and 2 more");
}

TEST(ByOrder, CutsLongNumbersInMessages) {
  const std::string longNumber(100, '1');
  EXPECT_EQ(
      WrongWith(("m" + longNumber).c_str(), Numbered({"1"})),
      "the score has no measure with the printed number " + longNumber.substr(0, 60) + "...; those that it has are 1");
}

TEST(ByOrder, RefusesAReversedRange) {
  EXPECT_EQ(WrongWith("m3-m1", PickUp()), "m3-m1: starts after its end; these are the measures 5 and 2 by order");
  EXPECT_EQ(WrongWith("m2/2-m2/1", TwoMovements()),
            "m2/2-m2/1: starts after its end; these are the measures 7 and 2 by order");
}

TEST(ParsePrintedRange, TakesAnyCharactersInANumber) {
  const auto textOf = [](const char* range) { return ParsePrintedRange(range)->first->text; };
  EXPECT_EQ(textOf("m12a"), "12a");
  EXPECT_EQ(textOf("mm"), "m");
  EXPECT_EQ(textOf("m1 bis"), "1 bis");
  EXPECT_EQ(textOf("m12\\-13"), "12-13");
  EXPECT_EQ(textOf("m3\\,5"), "3,5");
  EXPECT_EQ(textOf("m3\\/5/2"), "3/5");
  EXPECT_EQ(textOf("m\\\\"), "\\");
  EXPECT_EQ(textOf("m\\x"), "\\x") << "a backslash before anything else is itself";
  EXPECT_EQ(textOf("m\\"), "\\");
  EXPECT_EQ(ParsePrintedRange("m1\\--m2")->last->text, "2");
}

TEST(ParsePrintedRange, RefusesWhatIsNotOne) {
  for (const char* text : {"", "-", "m", "m-", "m-m3", "12", "m12-20", "12-m20", "m1-m2-m3", "m12/", "m12/0", "m12/x",
                           "m12/1-2", "m/2", "M12", " m1"}) {
    EXPECT_FALSE(ParsePrintedRange(text)) << text;
  }
}

TEST(TextsOfPrintedList, AreWhatStandsBetweenTheCommasThatNoBackslashPrecedes) {
  EXPECT_EQ(TextsOfPrintedList("m1,m2-m3"), (Texts{"m1", "m2-m3"}));
  EXPECT_EQ(TextsOfPrintedList("m1\\,5,m2"), (Texts{"m1\\,5", "m2"}));
  EXPECT_EQ(TextsOfPrintedList(",m1,"), (Texts{"", "m1", ""}));
}

// "1-3: (0), 1-2" for each.
Texts Sequences(const Texts& numbers) {
  Texts texts;
  for (const NumberSequence& sequence : SequencesOf(Numbered(numbers).measureNumbers)) {
    std::string text = TextOf({sequence.measures}) + ":";
    for (const std::string& run : sequence.numbers) text += " " + run;
    texts.push_back(text);
  }
  return texts;
}

TEST(SequencesOf, PutNumbersTogetherThatFollowOneAnother) {
  EXPECT_EQ(Sequences({"(0)", "1", "2", "(X1)", "(X2)", "3", "5", "6"}), Texts{"1-8: (0) 1-2 (X1-X2) 3 5-6"});
  EXPECT_EQ(Sequences({"9", "10", "A9", "A10", "B11"}), Texts{"1-5: 9-10 A9-A10 B11"});
  EXPECT_EQ(Sequences({"1", "(2)", "3"}), Texts{"1-3: 1 (2) 3"});
  EXPECT_EQ(Sequences({"2147483648", "2147483649"}), Texts{"1-2: 2147483648 2147483649"});
}

TEST(SequencesOf, CountTheMeasuresOfOneNumber) {
  EXPECT_EQ(Sequences({"1", "1", "1", "2", "2", "(2)"}), Texts{"1-6: 3 times 1 2 times 2 (2)"});
  EXPECT_EQ(Sequences({"", "", "1"}), Texts{"1-3: 2 times no number 1"});
}

TEST(SequencesOf, EndWhereNumbersStartAgain) {
  EXPECT_EQ(Sequences({"1", "2", "(X1)", "(0)", "1", "X1", "2", "1"}),
            (Texts{"1-3: 1-2 (X1)", "4-7: (0) 1 X1 2", "8: 1"}));
  EXPECT_EQ(Sequences({}), Texts{});
}

}  // namespace
}  // namespace brvhost
