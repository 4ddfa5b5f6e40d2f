#include "host/batch/offer.h"

#include <gtest/gtest.h>

namespace brvhost {
namespace {

TEST(Offer, ComesBackFromItsBytes) {
  Offer offer;
  offer.items = {{"Hide", "hide", "Hides."}, {"", "", ""}};
  offer.matches = {NameMatch::kStart, NameMatch::kWhole};
  offer.isEnabled = false;
  const Offer decoded = DecodeOffer(EncodeOffer(offer));
  ASSERT_EQ(decoded.items.size(), 2u);
  EXPECT_EQ(decoded.items[0].name, "Hide");
  EXPECT_EQ(decoded.items[0].undoName, "hide");
  EXPECT_EQ(decoded.items[0].explanation, "Hides.");
  EXPECT_EQ(decoded.items[1].name, "");
  EXPECT_EQ(decoded.matches, offer.matches);
  EXPECT_FALSE(decoded.isEnabled);
}

TEST(Offer, FitsNoNameWhereNoneWasLookedFor) {
  const Offer decoded = DecodeOffer(EncodeOffer({{{"Hide", "hide", "Hides."}}, {}, true}));
  ASSERT_EQ(decoded.items.size(), 1u);
  EXPECT_EQ(decoded.matches, std::vector{NameMatch::kNone});
  EXPECT_TRUE(decoded.isEnabled);
}

}  // namespace
}  // namespace brvhost
