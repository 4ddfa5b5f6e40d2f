#include "host/process/guardedchild.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "host/process/child.h"
#include "host/process/descriptor.h"

namespace brvhost {
namespace {

constexpr int kLongMs = 20'000;

// A pipe whose writing end the processes hold that are watched: it ends with the last of them.
class Watch {
 public:
  Watch() {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    reader_ = Descriptor(ends[0]);
    writer_ = Descriptor(ends[1]);
  }

  bool IsEmptySoon() {
    writer_ = {};
    pollfd waiting = {reader_.Get(), POLLIN, 0};
    char byte;
    return poll(&waiting, 1, kLongMs) == 1 && read(reader_.Get(), &byte, 1) == 0;
  }

 private:
  Descriptor reader_;
  Descriptor writer_;
};

[[noreturn]] void Stay() {
  for (;;) pause();
}

// Starts a process that has left its group and its parent.
void StartDaemon() {
  if (fork() != 0) return;
  setsid();
  if (fork() == 0) Stay();
  _exit(0);
}

TEST(GuardedChild, HasTheStatusOfItsWork) {
  GuardedChild done([] { return 7; });
  ASSERT_TRUE(done.WaitForEnd(kLongMs));
  EXPECT_EQ(EndingOf(done.Wait().value()), "status 7");
  GuardedChild crashed([]() -> int { std::abort(); });
  EXPECT_EQ(EndingOf(crashed.Wait().value()), "signal 6 (Aborted)");
}

TEST(GuardedChild, LeavesNothingWhenItEnds) {
  Watch watch;
  GuardedChild child([] {
    StartDaemon();
    if (fork() == 0) Stay();
    return 0;
  });
  EXPECT_EQ(child.Wait(), 0);
  EXPECT_TRUE(watch.IsEmptySoon());
}

TEST(GuardedChild, IsKilledWithItsDescendantsWhateverItBlocks) {
  Watch watch;
  GuardedChild child([]() -> int {
    sigset_t all;
    sigfillset(&all);
    sigprocmask(SIG_BLOCK, &all, nullptr);
    StartDaemon();
    if (fork() == 0) raise(SIGSTOP);
    Stay();
  });
  EXPECT_FALSE(child.WaitForEnd(100));
  child.KillAll();
  EXPECT_EQ(EndingOf(child.Wait().value()), "signal 9 (Killed)");
  EXPECT_TRUE(watch.IsEmptySoon());
}

TEST(GuardedChild, IsKilledWithWhomItWasStartedBy) {
  Watch watch;
  const pid_t starter = StartChild([]() -> int {
    const GuardedChild child([]() -> int {
      StartDaemon();
      Stay();
    });
    Stay();
  });
  usleep(100'000);
  kill(starter, SIGKILL);
  WaitForChild(starter);
  EXPECT_TRUE(watch.IsEmptySoon());
}

TEST(GuardedChild, LosesOrphansAloneWhenAskedTo) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const Descriptor reader(ends[0]);
  Descriptor writer(ends[1]);
  GuardedChild child([&writer]() -> int {
    StartDaemon();
    writer = {};
    Stay();
  });
  writer = {};
  pollfd waiting = {reader.Get(), POLLIN, 0};
  while (poll(&waiting, 1, 10) == 0) child.KillOrphans();  // it may not be an orphan yet
  EXPECT_FALSE(child.WaitForEnd(100));
}

TEST(GuardedChild, HasTheDefaultActionsOfSignals) {
  std::signal(SIGINT, SIG_IGN);
  GuardedChild child([]() -> int {
    raise(SIGINT);
    return 0;
  });
  std::signal(SIGINT, SIG_DFL);
  EXPECT_EQ(EndingOf(child.Wait().value()), "signal 2 (Interrupt)");
}

}  // namespace
}  // namespace brvhost
