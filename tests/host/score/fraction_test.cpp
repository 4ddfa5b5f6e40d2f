#include "host/score/fraction.h"

#include <gtest/gtest.h>

namespace brvhost {
namespace {

std::optional<std::int32_t> TicksOf(const char* text) {
  const auto number = ParseFraction(text);
  return number ? number->Rounded(10080) : std::nullopt;
}

TEST(ParseFraction, ReadsWholeAndDecimalNumbersAndFractions) {
  EXPECT_EQ(TicksOf("2"), 20160);
  EXPECT_EQ(TicksOf("2.5"), 25200);
  EXPECT_EQ(TicksOf("5/2"), 25200);
  EXPECT_EQ(TicksOf(" +0.25\n"), 2520);
  EXPECT_EQ(TicksOf("-1"), -10080);
  EXPECT_EQ(TicksOf(".5"), 5040);
  EXPECT_EQ(TicksOf("3."), 30240);
}

TEST(ParseFraction, RefusesWhatIsNotANumber) {
  for (const char* text : {"", " ", ".", "-", "x", "1e3", "1,5", "1 2", "1/0", "1/-2", "1/2/3", "1.5/2", "1/2.5", "x/2",
                           "1/x", "0x10", "--1"}) {
    EXPECT_FALSE(ParseFraction(text)) << text;
  }
}

TEST(ParseDecimal, RefusesMoreDigitsThanItCanHold) {
  EXPECT_TRUE(ParseDecimal("999999999999999999"));
  EXPECT_FALSE(ParseDecimal("1000000000000000000"));
  EXPECT_FALSE(ParseDecimal("0.1234567890123456789"));
}

TEST(TextOf, IsInLowestTerms) {
  EXPECT_EQ(TextOf({0, 10080}), "0");
  EXPECT_EQ(TextOf({20160, 10080}), "2");
  EXPECT_EQ(TextOf({25200, 10080}), "5/2");
  EXPECT_EQ(TextOf({-3360, 10080}), "-1/3");
}

TEST(Fraction, AddsExactlyAcrossDenominators) {
  Fraction sum;
  for (int i = 0; i < 7; ++i) sum = *sum.Plus({1, 7});
  for (int i = 0; i < 11; ++i) sum = *sum.Plus({1, 11});
  EXPECT_EQ(sum.Rounded(1), 2);
  EXPECT_EQ(sum.numerator, 2 * sum.denominator);
}

TEST(Fraction, RoundsToTheNearestUnit) {
  EXPECT_EQ((Fraction{1, 3}).Rounded(10), 3);
  EXPECT_EQ((Fraction{2, 3}).Rounded(10), 7);
  EXPECT_EQ((Fraction{1, 4}).Rounded(10), 3) << "halves go up";
  EXPECT_EQ((Fraction{-1, 3}).Rounded(10), -3);
}

TEST(Fraction, HoldsAllNumbersOf64BitsAndNoOthers) {
  EXPECT_EQ(Fraction::Of(Wide{INT64_MAX}, 1)->numerator, INT64_MAX);
  EXPECT_FALSE(Fraction::Of(Wide{INT64_MAX} + 1, 1));
  EXPECT_EQ(Fraction::Of(Wide{INT64_MIN}, 1)->numerator, INT64_MIN);
  EXPECT_FALSE(Fraction::Of(Wide{INT64_MIN} - 1, 1));
  EXPECT_EQ(Fraction::Of(1, Wide{INT64_MAX})->denominator, INT64_MAX);
  EXPECT_FALSE(Fraction::Of(1, Wide{INT64_MAX} + 1));
  EXPECT_EQ(Fraction::Of(Wide{INT64_MIN} * 6, 6)->numerator, INT64_MIN) << "in lowest terms";
}

TEST(Fraction, RoundsToAllNumbersOf32BitsAndNoOthers) {
  EXPECT_EQ((Fraction{INT32_MAX, 1}).Rounded(1), INT32_MAX);
  EXPECT_FALSE((Fraction{std::int64_t{INT32_MAX} + 1, 1}).Rounded(1));
  EXPECT_EQ((Fraction{INT32_MIN, 1}).Rounded(1), INT32_MIN);
  EXPECT_FALSE((Fraction{std::int64_t{INT32_MIN} - 1, 1}).Rounded(1));
  EXPECT_EQ((Fraction{-2, 1}).Rounded(1), -2);
  EXPECT_EQ((Fraction{-1, 2}).Rounded(1), 0) << "halves go up";
}

TEST(Fraction, IsNullWhenANumberDoesNotFit) {
  EXPECT_FALSE((Fraction{INT64_MAX, 1}).Plus({1, 1}));
  EXPECT_FALSE((Fraction{1, INT64_MAX}).Plus({1, INT64_MAX - 1}));
  EXPECT_FALSE((Fraction{INT64_MAX, 1}).Rounded(10080));
}

}  // namespace
}  // namespace brvhost
