// The command itself, which the menu items call with 0 and 1 alone. The bundle does not export it, so that this program
// has it from its source; the host it reaches by the bundle's kit.
#include "commandfixture.h"
#include "legerlinescommand.h"

namespace {

using testing::ElementsAre;

class Variants : public Command {
 protected:
  // The flags of a clear and of a set entry after the command.
  std::vector<int> FlagsAfter(int variant) {
    score_.Put({1, 1, 0}, {Note(0, 0x8001), Note(10, 0xFFFF)});
    Select(1, 1, 1, 1);
    EXPECT_EQ(DoShowLegerLines(&region_, variant), 1) << variant;
    return Flags({1, 1, 0});
  }
};

TEST_F(Variants, ZeroSetsTheBit) { EXPECT_THAT(FlagsAfter(0), ElementsAre(0x8041, 0xFFFF)); }

TEST_F(Variants, EveryOtherOfSixteenBitsClearsTheBit) {
  for (const int variant : {1, 2, 3, 0x40, 0x100, 0x7FFF, 0x8000, 0xFFFF, -1, -2, -32768}) {
    EXPECT_THAT(FlagsAfter(variant), ElementsAre(0x8001, 0xFFBF)) << variant;
  }
}

TEST_F(Variants, AreReadFromTheLowSixteenBits) {
  for (const int variant : {0x10000, 0x7FFF0000, -0x10000}) {
    EXPECT_THAT(FlagsAfter(variant), ElementsAre(0x8041, 0xFFFF)) << variant;
    EXPECT_THAT(FlagsAfter(variant + 2), ElementsAre(0x8001, 0xFFBF)) << variant;
  }
}

}  // namespace
