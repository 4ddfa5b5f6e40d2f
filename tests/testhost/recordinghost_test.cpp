// Who hears of the calls to the recording host.
#include "recordinghost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brevixpdk.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Host : public testing::Test {
 protected:
  Host() {
    host_.Before("BX_GetMaxLayers", [this](const HostCall&) { heard_.emplace_back("observer"); });
    host_.On("BX_GetMaxLayers", [this](const HostCall&) {
      heard_.emplace_back("handler");
      return 4;
    });
  }

  RecordingHost host_;
  std::vector<std::string> heard_;
};

TEST_F(Host, LetsAnObserverHearOfACallBeforeItIsAnswered) {
  EXPECT_EQ(BX_GetMaxLayers(kBrvVersion), 4);
  EXPECT_THAT(heard_, ElementsAre("observer", "handler"));
}

TEST_F(Host, LetsAnObserverHearOfACallThatNoHandlerAnswers) {
  std::vector<int> layers;
  host_.Before("BX_GetShowLayer", [&layers](const HostCall& call) { layers.push_back(call.Int(0)); });
  EXPECT_EQ(BX_GetShowLayer(3, kBrvVersion), 0);
  EXPECT_THAT(layers, ElementsAre(3));
}

TEST_F(Host, LetsNobodyHearOfACallThatFails) {
  host_.Fail({1, false});
  EXPECT_EQ(BX_GetMaxLayers(kBrvVersion), 0);
  EXPECT_THAT(heard_, IsEmpty());
}

TEST_F(Host, HasOneObserverOfAFunction) {
  int calls = 0;
  host_.Before("BX_GetMaxLayers", [&calls](const HostCall&) { ++calls; });
  BX_GetMaxLayers(kBrvVersion);
  EXPECT_EQ(calls, 1);
  EXPECT_THAT(heard_, ElementsAre("handler"));
}

}  // namespace
