// Who hears of an extension's calls. This program is the host, and looks functions up as an extension does.
#include "host/calls/interception.h"

#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "BrvEDK/Source/brevixpdk.h"
#include "host/services/session.h"
#include "tests/host/scores.h"

namespace brvhost {
namespace {

void* FoundBy(CFStringRef name) { return CFBundleGetFunctionPointerForName(CFBundleGetMainBundle(), name); }

template <class Function>
Function* Found(CFStringRef name) {
  return reinterpret_cast<Function*>(FoundBy(name));
}

class Listener : public Interceptor {
 public:
  explicit Listener(std::string name = "", std::vector<std::string>* log = nullptr)
      : heard(log == nullptr ? own_ : *log), name_(std::move(name)) {}

  bool Offers(const HostFunction&) override { return offersAll; }
  void Miss(const HostFunction& function) override { heard.push_back(name_ + "misses " + function.name); }
  std::optional<Register> Before(const InterceptedCall& call) override {
    std::string text = name_ + call.function.name;
    for (std::size_t i = 0; i < call.arguments.size(); ++i) text += " " + std::to_string(call.Number(i));
    heard.push_back(text);
    if (throws) throw std::bad_alloc();
    return answer;
  }
  void After(const InterceptedCall& call, Register& result) override {
    heard.push_back(name_ + call.function.name + " = " + std::to_string(NumberIn(result, call.function.result)));
    if (replacement) result = *replacement;
  }

 private:
  std::vector<std::string> own_;

 public:
  std::vector<std::string>& heard;
  bool offersAll = false;
  bool throws = false;
  std::optional<Register> answer;
  std::optional<Register> replacement;

 private:
  std::string name_;
};

using Texts = std::vector<std::string>;

TEST(WithoutAnInterceptor, ExtensionsFindTheFunctionItself) {
  {
    Listener listener;
    const Interception interception(listener);
  }
  EXPECT_EQ(FoundBy(CFSTR("BX_GetShowLayer")), reinterpret_cast<void*>(&BX_GetShowLayer));
  EXPECT_EQ(FoundBy(CFSTR("BX_Dialog")), nullptr);
}

TEST(AnInterceptor, HearsOfACallAndItsResult) {
  Listener listener;
  const Interception interception(listener);
  const auto maxLayers = Found<decltype(BX_GetMaxLayers)>(CFSTR("BX_GetMaxLayers"));
  EXPECT_NE(maxLayers, &BX_GetMaxLayers);
  EXPECT_EQ(maxLayers(kBrvVersion), 4);
  EXPECT_EQ(listener.heard, (Texts{"BX_GetMaxLayers", "BX_GetMaxLayers = 4"}));
}

TEST(AnInterceptor, ReadsArgumentsByTheirClasses) {
  Listener listener;
  const Interception interception(listener);
  Found<decltype(BX_LoadTGF)>(CFSTR("BX_LoadTGF"))(0x7FFFF, 0x18000, 2, -3, 1, kBrvVersion);
  EXPECT_EQ(listener.heard, (Texts{"BX_LoadTGF 65535 -32768 2 -3 1", "BX_LoadTGF = 0"}));
}

TEST(AnInterceptor, AnswersInThePlaceOfTheHost) {
  Listener listener;
  const Interception interception(listener);
  listener.answer = 7;
  EXPECT_EQ(Found<decltype(BX_GetMaxLayers)>(CFSTR("BX_GetMaxLayers"))(kBrvVersion), 7);
}

TEST(AnInterceptor, ChangesAResult) {
  Listener listener;
  const Interception interception(listener);
  listener.replacement = 5;
  EXPECT_EQ(Found<decltype(BX_GetMaxLayers)>(CFSTR("BX_GetMaxLayers"))(kBrvVersion), 5);
  EXPECT_EQ(listener.heard.back(), "BX_GetMaxLayers = 4");
}

TEST(AnInterceptor, HearsOfAFunctionThatIsMissing) {
  Listener listener;
  const Interception interception(listener);
  EXPECT_EQ(FoundBy(CFSTR("BX_Dialog")), nullptr);
  EXPECT_EQ(FoundBy(CFSTR("BX_NoSuchFunction")), nullptr);
  EXPECT_EQ(listener.heard, Texts{"misses BX_Dialog"});
}

TEST(AnInterceptor, OffersWhatTheHostDoesNotHave) {
  Listener listener;
  listener.offersAll = true;
  const Interception interception(listener);
  const auto countParts = Found<decltype(BX_CountParts)>(CFSTR("BX_CountParts"));
  ASSERT_NE(countParts, nullptr);
  EXPECT_EQ(countParts(kBrvVersion), -1) << "its default";
  listener.answer = 3;
  EXPECT_EQ(countParts(kBrvVersion), 3);
}

TEST(AnInterceptor, IsNotHeardAfterItsEnd) {
  Listener listener;
  decltype(&BX_GetMaxLayers) maxLayers = nullptr;
  {
    const Interception interception(listener);
    maxLayers = Found<decltype(BX_GetMaxLayers)>(CFSTR("BX_GetMaxLayers"));
  }
  EXPECT_EQ(maxLayers(kBrvVersion), 4);
  EXPECT_EQ(listener.heard, Texts());
}

TEST(SeveralInterceptors, HearOfACallInTheirOrderAndOfItsResultInTheReverse) {
  Texts heard;
  Listener first("1:", &heard);
  Listener second("2:", &heard);
  const Interception one(first);
  const Interception two(second);
  second.answer = 2;
  const auto maxLayers = Found<decltype(BX_GetMaxLayers)>(CFSTR("BX_GetMaxLayers"));
  EXPECT_EQ(maxLayers(kBrvVersion), 2);
  EXPECT_EQ(heard, (Texts{"1:BX_GetMaxLayers", "2:BX_GetMaxLayers", "2:BX_GetMaxLayers = 2", "1:BX_GetMaxLayers = 2"}));
  first.answer = 1;
  EXPECT_EQ(maxLayers(kBrvVersion), 1) << "the first answer counts";
}

// Nobody sees or hears anything.
class NoUser : public User {
 public:
  void Show(const std::string&) override {}
  bool Ask(const std::string&) override { return false; }
  void ShowProgress(std::int64_t, std::int64_t) override {}
  void EndProgress() override {}
};

TEST(AnInterceptorThatThrows, FailsTheSessionAndNotTheExtension) {
  const Extension extension(BRV_BINARY_DIR "/LegerLines.bundle");
  NoUser user;
  Score score = ScoreOf(Note());
  OpenDocument document(score);
  Session session(extension, document, user);
  Listener listener;
  const Interception interception(listener);
  listener.throws = true;
  EXPECT_EQ(Found<decltype(BX_GetMaxLayers)>(CFSTR("BX_GetMaxLayers"))(kBrvVersion), 4) << "the host still answers";
  EXPECT_THROW(session.RethrowFailure(), std::bad_alloc);
}

TEST(Wrappers, PassAllArgumentsOnInTheirOrder) {
  Listener listener;
  const Interception interception(listener);
  EDataKey key{1, 2};
  std::int32_t size = 0;
  const auto load = Found<decltype(BX_LoadEData)>(CFSTR("BX_LoadEData"));
  EXPECT_EQ(load(0x54455354, &key, nullptr, &size, kBrvVersion), 0);
  EXPECT_EQ(listener.heard.front(), "BX_LoadEData 1413829460 " + std::to_string(reinterpret_cast<std::intptr_t>(&key)) +
                                        " 0 " + std::to_string(reinterpret_cast<std::intptr_t>(&size)));
}

}  // namespace
}  // namespace brvhost
