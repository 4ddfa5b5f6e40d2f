#include "host/batch/channel.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <thread>
#include <variant>
#include <vector>

#include "host/process/interrupt.h"

namespace brvhost {
namespace {

// What a message holds, in one line.
struct Describe {
  std::string operator()(const AlertMessage& message) const { return "alert " + message.text; }
  std::string operator()(const QuestionMessage& message) const { return "question " + message.text; }
  std::string operator()(const ProgressMessage& message) const {
    return "progress " + std::to_string(message.done) + " of " + std::to_string(message.total);
  }
  std::string operator()(const ProgressEndMessage&) const { return "end of progress"; }
  std::string operator()(const AnswerMessage& message) const { return "answer " + std::to_string(message.yes); }
  std::string operator()(const DocumentMessage& message) const { return "document " + message.text; }
  std::string operator()(const ResultMessage& message) const { return "result " + message.text; }
  std::string operator()(const WarningMessage& message) const { return "warning " + message.text; }
  std::string operator()(const BadInputMessage& message) const { return "bad input " + message.text; }
  std::string operator()(const FailureMessage& message) const { return "failure " + message.text; }
  std::string operator()(const DoneMessage& message) const {
    return fmt::format("done {} of {} {} {}, hidden {}, written {}", message.changedEntries, message.notes,
                       message.chords, message.rests, message.hiddenEntries, message.filesWritten);
  }
  std::string operator()(const LostMessage&) const { return "lost"; }
  std::string operator()(const JobMessage& message) const { return "job " + std::to_string(message.job); }
  std::string operator()(const WorkerEndedMessage&) const { return "worker ended"; }
  std::string operator()(const HandedOutMessage&) const { return "handed out"; }
  std::string operator()(const HandedBackMessage&) const { return "handed back"; }
  std::string operator()(const OfferMessage& message) const { return "offer " + message.text; }
  std::string operator()(const BadBundleMessage& message) const { return "bad bundle " + message.text; }
  std::string operator()(const EndedMessage& message) const {
    return "ended " + std::to_string(message.job) + " with " + std::to_string(message.status);
  }
  std::string operator()(const StartMessage& message) const {
    return "start " + std::to_string(message.job) + " in " + std::to_string(message.slot);
  }
  std::string operator()(const InterruptMessage&) const { return "interrupt"; }
  std::string operator()(const EndMessage& message) const {
    return "end " + std::to_string(message.job) + (message.atOnce != 0 ? " at once" : "");
  }
  std::string operator()(const NoMemoryMessage&) const { return "no memory"; }
  std::string operator()(const MemberMessage& message) const { return "member " + message.text; }
  std::string operator()(const ChangesMessage& message) const { return "changes " + message.text; }
  std::string operator()(const MoreMessage&) const { return "more"; }
  std::string operator()(const RegionMessage& message) const { return "region " + message.text; }
  std::string operator()(const PassingFailureMessage& message) const { return "passing failure " + message.text; }
  std::string operator()(const LoadMessage&) const { return "load"; }
  std::string operator()(const LabelMessage& message) const { return "label " + message.text; }
};

// One of each kind, in their order.
std::vector<Message> AllMessages() {
  return {AlertMessage{std::string("No \0 ledger lines\n", 18)},
          QuestionMessage{""},
          ProgressMessage{-1, INT64_MAX},
          ProgressEndMessage{},
          AnswerMessage{1},
          DocumentMessage{"image"},
          ResultMessage{"bits"},
          WarningMessage{"a.xml:2:1: warning"},
          BadInputMessage{"a.xml: is empty"},
          FailureMessage{"a.xml: cannot write"},
          DoneMessage{7, UINT64_MAX, 4, 3, 2, 1},
          LostMessage{},
          JobMessage{3},
          WorkerEndedMessage{},
          HandedOutMessage{},
          HandedBackMessage{},
          OfferMessage{"1"},
          BadBundleMessage{"a.bundle: is none"},
          EndedMessage{3, -1},
          StartMessage{4, 2},
          InterruptMessage{},
          EndMessage{5, 1},
          NoMemoryMessage{},
          MemberMessage{"score.xml"},
          ChangesMessage{"bytes"},
          MoreMessage{},
          RegionMessage{"[]"},
          PassingFailureMessage{"a.xml: cannot write"},
          LoadMessage{},
          LabelMessage{"a.xml: "}};
}

const std::vector<std::string> kDescriptions = {std::string("alert No \0 ledger lines\n", 24),
                                                "question ",
                                                "progress -1 of 9223372036854775807",
                                                "end of progress",
                                                "answer 1",
                                                "document image",
                                                "result bits",
                                                "warning a.xml:2:1: warning",
                                                "bad input a.xml: is empty",
                                                "failure a.xml: cannot write",
                                                "done 7 of 18446744073709551615 4 3, hidden 2, written 1",
                                                "lost",
                                                "job 3",
                                                "worker ended",
                                                "handed out",
                                                "handed back",
                                                "offer 1",
                                                "bad bundle a.bundle: is none",
                                                "ended 3 with -1",
                                                "start 4 in 2",
                                                "interrupt",
                                                "end 5 at once",
                                                "no memory",
                                                "member score.xml",
                                                "changes bytes",
                                                "more",
                                                "region []",
                                                "passing failure a.xml: cannot write",
                                                "load",
                                                "label a.xml: "};

TEST(Messages, AreAllOfTheseKinds) {
  const auto messages = AllMessages();
  ASSERT_EQ(messages.size(), std::variant_size_v<Message>);
  for (std::size_t i = 0; i < messages.size(); ++i) EXPECT_EQ(messages[i].index(), i);
}

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
  const std::string text(200'000, 'x');
  std::thread sender([&text, &channel = there] { EXPECT_TRUE(channel.Send(AlertMessage{text})); });
  const auto message = here.Receive();
  sender.join();
  ASSERT_TRUE(message);
  EXPECT_EQ(std::get<AlertMessage>(*message).text, text);
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

TEST(Channel, PassesDescriptorsOn) {
  auto [here, there] = ConnectedChannels();
  auto [near, far] = ConnectedChannels();
  ASSERT_TRUE(there.Send(JobMessage{1}, {far.Get()}));
  far = {};
  ASSERT_TRUE(here.Receive());
  const Channel passed(here.TakeDescriptor());
  ASSERT_TRUE(passed.Send(LostMessage{}));
  EXPECT_TRUE(near.Receive());
  EXPECT_FALSE(here.TakeDescriptor());
}

TEST(Channel, HasNothingToReceiveAtTheEnd) {
  auto [here, there] = ConnectedChannels();
  EXPECT_FALSE(here.HasMore());
  there = {};
  EXPECT_TRUE(here.HasMore());
  EXPECT_FALSE(here.Receive());
  EXPECT_FALSE(here.Send(LostMessage{}));
}

TEST(Channel, SendsNothingToAnotherFileOfItsNumber) {
  auto [here, there] = ConnectedChannels();
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const Descriptor reader(ends[0]);
  const Descriptor writer(ends[1]);
  ASSERT_EQ(dup2(writer.Get(), there.Get()), there.Get());
  EXPECT_FALSE(there.Send(LostMessage{}));
  pollfd waiting = {reader.Get(), POLLIN, 0};
  EXPECT_EQ(poll(&waiting, 1, 0), 0);
}

TEST(Channel, TakesNeitherDescriptorsNorTooLongMessagesFromWhomItDistrusts) {
  auto [here, there] = ConnectedChannels();
  here.Distrust(100);
  ASSERT_TRUE(there.Send(AlertMessage{"text"}, {STDIN_FILENO}));
  ASSERT_TRUE(here.Receive());
  EXPECT_FALSE(here.TakeDescriptor());
  std::thread sender([&channel = there] {
    while (channel.Send(AlertMessage{std::string(1'000'000, 'x')})) continue;
  });
  EXPECT_FALSE(here.Receive());
  here = {};
  sender.join();
}

// Until nothing more can be sent.
void FillUp(const Channel& channel) {
  const std::string bytes(65536, 'x');
  while (send(channel.Get(), bytes.data(), bytes.size(), MSG_DONTWAIT) > 0) continue;
}

void TakeAllFrom(const Channel& channel) {
  char bytes[65536];
  while (recv(channel.Get(), bytes, sizeof(bytes), MSG_DONTWAIT) > 0) continue;
}

// Whether the other end takes what was sent, in ten seconds.
bool IsTaken(const Channel& channel) {
  for (int tries = 0; tries < 10'000; ++tries) {
    int left = 0;
    if (ioctl(channel.Get(), TIOCOUTQ, &left) == 0 && left == 0) return true;
    usleep(1000);
  }
  return false;
}

TEST(Channel, TakesInWhatArrivesUntilItCanSend) {
  auto [here, there] = ConnectedChannels();
  FillUp(here);
  bool isTaken = false;
  std::thread other([&isTaken, &channel = there] {
    channel.Send(AlertMessage{"text"});
    isTaken = IsTaken(channel);
    TakeAllFrom(channel);
  });
  EXPECT_TRUE(here.FillUntilWritable(0));
  other.join();
  EXPECT_TRUE(isTaken);
  const auto message = here.Next();
  ASSERT_TRUE(message);
  EXPECT_EQ(std::visit(Describe(), *message), "alert text");
}

TEST(Channel, CannotSendWhereAnInterruptComesFirst) {
  auto [here, there] = ConnectedChannels();
  FillUp(here);
  CountInterrupts();
  std::atomic<bool> isOver = false;
  std::thread user([&isOver] {
    while (!isOver) {
      kill(getpid(), SIGINT);
      usleep(1000);
    }
  });
  EXPECT_FALSE(here.FillUntilWritable(0));
  isOver = true;
  user.join();
}

TEST(Channel, FindsTheEndWhereItCannotSendAnyMore) {
  auto [here, there] = ConnectedChannels();
  FillUp(here);
  there = {};
  EXPECT_TRUE(here.FillUntilWritable(0));
  EXPECT_FALSE(here.Send(LoadMessage{}));
}

TEST(Messages, AreWholeOnceTheirLastByteIsThere) {
  for (const Message& message : AllMessages()) {
    const std::string bytes = Encode(message);
    for (std::size_t size = 0; size < bytes.size(); ++size) {
      const auto known = EncodedSize(std::string_view(bytes).substr(0, size));
      EXPECT_TRUE(!known || *known == bytes.size()) << size;
    }
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
