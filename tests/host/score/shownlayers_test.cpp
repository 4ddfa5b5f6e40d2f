#include "host/score/shownlayers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/text/inputerror.h"
#include "tests/host/scores.h"

namespace brvhost {
namespace {

using Voices = std::vector<std::string>;
using Texts = std::vector<std::string>;

// "staves: layers" for each.
Texts TextsOf(const std::vector<ShownStaves>& shown) {
  Texts texts;
  for (const auto& [staves, layers] : shown) texts.push_back(TextOf({staves}) + ": " + TextOf(layers));
  return texts;
}

const Score& Piano() {
  static const Score score =
      WithVoicesOnStaves({{"1", "2", "3"}, {"5", "2", "1"}, {"1", "2"}, {"1", "2"}, {}, {"1", "2"}});
  return score;
}

TEST(WithVoices, ShowsTheLayersOfTheVoicesOnEachStaff) {
  EXPECT_EQ(TextsOf(WithVoices({"1"}, {{1, 2}}, Piano())), (Texts{"1: 1", "2: 3"}));
  EXPECT_EQ(TextsOf(WithVoices({"3", "1", "1"}, {{1, 1}}, Piano())), Texts{"1: 1, 3"});
}

TEST(WithVoices, LeavesStavesOutThatHaveNoneOfThem) {
  EXPECT_EQ(TextsOf(WithVoices({"5"}, {{1, 6}}, Piano())), Texts{"2: 1"});
}

TEST(WithVoices, KeepsStavesTogetherThatShowTheSameLayers) {
  EXPECT_EQ(TextsOf(WithVoices({"2"}, {{1, 6}}, Piano())), (Texts{"1-4: 2", "6: 2"}));
  EXPECT_EQ(TextsOf(WithVoices({"1"}, {{1, 1}, {3, 6}}, Piano())), (Texts{"1: 1", "3-4: 1", "6: 1"}));
}

TEST(WithVoices, RefusesAVoiceThatNoneOfTheStavesHas) {
  const auto wrongWith = [](const Voices& voices, const std::vector<NumberRun>& staves) -> std::string {
    try {
      WithVoices(voices, staves, Piano());
      return "";
    } catch (const InputError& error) {
      return error.what();
    }
  };
  EXPECT_EQ(wrongWith({"1", "5"}, {{3, 6}}), "the region is to show voice 5, but its staves have only 1, 2");
  EXPECT_EQ(wrongWith({"1"}, {{5, 5}}), "the region is to show voice 1, but its staves have none");
}

TEST(WithLayers, ShowsTheSameLayersOnAllStaves) {
  EXPECT_EQ(TextsOf(WithLayers({}, {{1, 2}, {4, 4}}, Score())), (Texts{"1-2: ", "4: "}));
  Score score;
  score.frames = {{.staff = 4, .measure = 1, .layer = 2}};
  EXPECT_EQ(TextsOf(WithLayers({{3, 9}, {1, 1}}, {{1, 2}, {4, 4}}, score)), (Texts{"1-2: 1, 3", "4: 1, 3"}));
}

}  // namespace
}  // namespace brvhost
