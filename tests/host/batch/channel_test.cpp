#include "host/batch/channel.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <variant>
#include <vector>

namespace brvhost {
namespace {

// What a message holds, in one line.
struct Describe {
  std::string operator()(const AlertMessage& message) const { return "alert " + message.text; }
  std::string operator()(const QuestionMessage& message) const { return "question " + message.text; }
  std::string operator()(const WarningMessage& message) const { return "warning " + message.text; }
  std::string operator()(const ProgressMessage& message) const {
    return "progress " + std::to_string(message.done) + " of " + std::to_string(message.total);
  }
  std::string operator()(const ProgressEndMessage&) const { return "end of progress"; }
  std::string operator()(const BadInputMessage& message) const { return "bad input " + message.text; }
  std::string operator()(const FailureMessage& message) const { return "failure " + message.text; }
  std::string operator()(const DoneMessage& message) const {
    return "done " + std::to_string(message.changedEntries) + " of " + std::to_string(message.entries) + ", written " +
           std::to_string(message.filesWritten);
  }
};

// One of each kind.
std::vector<Message> AllMessages() {
  return {AlertMessage{std::string("No \0 ledger lines\n", 18)},
          QuestionMessage{""},
          WarningMessage{"a.xml:2:1: warning"},
          ProgressMessage{-1, INT64_MAX},
          ProgressEndMessage{},
          BadInputMessage{"a.xml: is empty"},
          FailureMessage{"a.xml: cannot write"},
          DoneMessage{7, UINT64_MAX, 1}};
}

const std::vector<std::string> kDescriptions = {std::string("alert No \0 ledger lines\n", 24),
                                                "question ",
                                                "warning a.xml:2:1: warning",
                                                "progress -1 of 9223372036854775807",
                                                "end of progress",
                                                "bad input a.xml: is empty",
                                                "failure a.xml: cannot write",
                                                "done 7 of 18446744073709551615, written 1"};

TEST(Channel, PassesEveryMessageOnWhole) {
  auto [here, there] = ConnectedChannels();
  for (const Message& message : AllMessages()) there.Send(message);
  there = {};
  std::vector<std::string> received;
  while (here.Fill()) {
    while (const auto message = here.Next()) received.push_back(std::visit(Describe(), *message));
  }
  EXPECT_EQ(received, kDescriptions);
}

TEST(Channel, PassesATextOnThatIsLongerThanOneRead) {
  auto [here, there] = ConnectedChannels();
  const std::string text(20'000, 'x');
  there.Send(AlertMessage{text});
  there = {};
  std::vector<std::string> received;
  while (here.Fill()) {
    while (const auto message = here.Next()) received.push_back(std::get<AlertMessage>(*message).text);
  }
  EXPECT_EQ(received, std::vector<std::string>{text});
}

TEST(Channel, PassesOverWhatIsNoMessage) {
  auto [here, there] = ConnectedChannels();
  std::string unknown = Encode(AlertMessage{"lost"});
  unknown[0] = 99;
  ASSERT_EQ(write(there.Get(), unknown.data(), unknown.size()), std::ssize(unknown));
  there.Send(AlertMessage{"kept"});
  there = {};
  ASSERT_TRUE(here.Fill());
  const auto message = here.Next();
  ASSERT_TRUE(message);
  EXPECT_EQ(std::visit(Describe(), *message), "alert kept");
}

TEST(Channel, BringsTheAnswerBack) {
  for (const bool yes : {true, false}) {
    auto [here, there] = ConnectedChannels();
    here.SendAnswer(yes);
    EXPECT_EQ(there.ReceiveAnswer(), yes);
  }
}

TEST(Channel, TakesNoAnswerForNo) {
  auto [here, there] = ConnectedChannels();
  here = {};
  EXPECT_FALSE(there.ReceiveAnswer());
}

TEST(Messages, AreWholeOnceTheirLastByteIsThere) {
  for (const Message& message : AllMessages()) {
    const std::string bytes = Encode(message);
    for (std::size_t size = 0; size < bytes.size(); ++size) EXPECT_FALSE(EncodedSize(bytes.substr(0, size))) << size;
    EXPECT_EQ(EncodedSize(bytes), bytes.size());
    EXPECT_EQ(EncodedSize(bytes + bytes), bytes.size());
  }
}

TEST(Messages, OfNoKindOrAnotherSizeAreNone) {
  const std::string done = Encode(DoneMessage{});
  std::string unknown = done;
  unknown[0] = static_cast<char>(std::variant_size_v<Message>);
  EXPECT_FALSE(Decode(unknown));
  EXPECT_FALSE(Decode(done.substr(0, done.size() - 1)));
  EXPECT_FALSE(Decode(done + "x"));
  EXPECT_FALSE(Decode(Encode(ProgressEndMessage{}) + "x"));
}

}  // namespace
}  // namespace brvhost
