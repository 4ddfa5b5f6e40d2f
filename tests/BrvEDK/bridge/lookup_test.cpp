// A lookup that is disturbed on its way. The bridge is compiled into this program, which thus has its own
// gBrevixBundle.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "brevixpdk.h"
#include "hostbundle.h"
#include "lookupsteps.h"
#include "recordinghost.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Lookup : public testing::Test {
 protected:
  void SetUp() override {
    lookupSteps.makeName = [this](const std::string& name) { named_.push_back(name); };
    lookupSteps.findFunction = [this](const std::string& name) { found_.push_back(name); };
  }
  void TearDown() override { lookupSteps = {}; }

  RecordingHost host_;
  std::vector<std::string> named_;
  std::vector<std::string> found_;
};

TEST_F(Lookup, HappensAtTheFirstCallAlone) {
  host_.Answer("BX_GetWindowCount", 3);
  for (int call = 0; call < 3; ++call) EXPECT_EQ(BX_GetWindowCount(kBrvVersion), 3);
  EXPECT_THAT(named_, ElementsAre("BX_GetWindowCount"));
  EXPECT_THAT(found_, ElementsAre("BX_GetWindowCount"));
}

TEST_F(Lookup, FindsNothingInAHostThatIsUnboundWhileItIsAsked) {
  host_.Answer("BX_GetMaxLayers", 7);
  const CFBundleRef bundle = gBrevixBundle;
  lookupSteps.askWhetherLoaded = [] { gBrevixBundle = nullptr; };
  EXPECT_EQ(BX_GetMaxLayers(kBrvVersion), 4);
  EXPECT_THAT(named_, ElementsAre("BX_GetMaxLayers"));
  EXPECT_THAT(found_, IsEmpty());

  lookupSteps.askWhetherLoaded = nullptr;
  gBrevixBundle = bundle;
  EXPECT_EQ(BX_GetMaxLayers(kBrvVersion), 4) << "what was missing once is missing for good";
  EXPECT_THAT(named_, ElementsAre("BX_GetMaxLayers"));
  EXPECT_THAT(host_.Calls(), IsEmpty());
}

TEST_F(Lookup, FindsNothingWithoutMemoryForTheName) {
  host_.Answer("BX_GetCurrentPartID", 7);
  lookupSteps.namesCannotBeMade = true;
  EXPECT_EQ(BX_GetCurrentPartID(kBrvVersion), -1);
  EXPECT_THAT(found_, IsEmpty());
}

TEST_F(Lookup, ThatThrowsIsTriedAgain) {
  host_.Answer("BX_CountParts", 5);
  int throwsLeft = 2;
  lookupSteps.makeName = [&](const std::string& name) {
    named_.push_back(name);
    if (throwsLeft-- > 0) throw std::runtime_error("no name");
  };
  EXPECT_THROW(BX_CountParts(kBrvVersion), std::runtime_error);
  EXPECT_THROW(BX_CountParts(kBrvVersion), std::runtime_error);
  EXPECT_THAT(host_.Calls(), IsEmpty());
  EXPECT_EQ(BX_CountParts(kBrvVersion), 5);
  EXPECT_EQ(BX_CountParts(kBrvVersion), 5);
  EXPECT_THAT(named_, ElementsAre("BX_CountParts", "BX_CountParts", "BX_CountParts"));
  EXPECT_THAT(found_, ElementsAre("BX_CountParts"));
}

TEST_F(Lookup, ThatThrowsComesAfterWhatTheFunctionDoesFirst) {
  LoadedTGFCounter = 0;
  lookupSteps.makeName = [](const std::string&) { throw std::runtime_error("no name"); };
  EXPECT_THROW(BX_LoadTGF(0, 1, 1, 0, 1, kBrvVersion), std::runtime_error);
  EXPECT_THROW(BX_LoadTGF(0, 1, 1, 0, 1, kBrvVersion), std::runtime_error);
  EXPECT_EQ(LoadedTGFCounter, 2);
}

}  // namespace
