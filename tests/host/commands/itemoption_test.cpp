#include "host/commands/itemoption.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/commands/usageerror.h"

namespace brvhost {
namespace {

using enum NameMatch;

// The item that is chosen by name or number, or why there is none.
std::string Chosen(const std::string& value, const std::vector<NameMatch>& matches) {
  Options options;
  Offer offer;
  offer.matches = matches;
  for (std::size_t i = 0; i < matches.size(); ++i)
    offer.items.push_back({"Item " + std::string(1, char('A' + i)), "", ""});
  try {
    TakeItem("--item", value, options);
    return std::to_string(ChosenItem(offer, options));
  } catch (const UsageError& error) {
    return error.what();
  }
}

TEST(ChosenItem, IsTheOneThatFitsTheNameBest) {
  EXPECT_EQ(Chosen("x", {kNone, kContained}), "1");
  EXPECT_EQ(Chosen("x", {kContained, kStart, kContained}), "1");
  EXPECT_EQ(Chosen("x", {kStart, kStart, kContained, kWhole}), "3");
}

TEST(ChosenItem, IsRefusedWhereSeveralFitTheNameAsWell) {
  EXPECT_EQ(Chosen("x", {kStart, kNone, kStart, kContained}),
            "--item x: is in the names of 2 items: 0 Item A, 2 Item C");
}

TEST(ChosenItem, IsRefusedWhereNoneFitsTheName) {
  EXPECT_EQ(Chosen(" x ", {kNone, kNone}), "--item x: is in the name of no item: 0 Item A, 1 Item B");
  EXPECT_EQ(Chosen("-1", {}), "--item -1: is in the name of no item: there is none");
}

TEST(ChosenItem, IsTheNumberWhereTheValueHasDigitsOnly) {
  EXPECT_EQ(Chosen("0", {kNone, kWhole}), "0");
  EXPECT_EQ(Chosen("01", {kWhole, kNone}), "1");
  EXPECT_EQ(Chosen("2", {kWhole, kNone}), "--item 2: the extension has 2 items, from 0");
  EXPECT_EQ(Chosen("99999999999", {kWhole}), "--item 99999999999: is not a whole number from 0 on");
  EXPECT_EQ(Chosen("1st", {kNone, kNone, kWhole}), "2");
}

TEST(TakeItem, RefusesWhatIsEmpty) {
  for (const char* const value : {"", " "}) EXPECT_EQ(Chosen(value, {kWhole}), "--item: is empty");
}

}  // namespace
}  // namespace brvhost
