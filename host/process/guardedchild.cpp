#include "host/process/guardedchild.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <initializer_list>
#include <utility>

#include "host/process/child.h"
#include "host/process/closeothers.h"
#include "host/process/kinship.h"
#include "host/process/socketpair.h"

namespace brvhost {
namespace {

// What the guard is asked for. The end of the connection asks for kKillAll, too.
constexpr char kKillAll = 'a';
constexpr char kKillOrphans = 'o';

constexpr std::initializer_list<int> kEndingSignals = {SIGINT, SIGHUP, SIGTERM, SIGQUIT, SIGPIPE, SIGXFSZ};

// A guard that was stopped goes on when it is asked to kill, and has that long to do it.
constexpr int kMaxKillingMs = 5000;

void ForEachEndingSignal(void (*action)(int)) {
  for (const int signal : kEndingSignals) std::signal(signal, action);
}

class Guard {
 public:
  Guard(Descriptor socket, const std::function<int()>& work) : socket_(std::move(socket)) {
    AdoptOrphans();
    ForEachEndingSignal(SIG_IGN);
    std::signal(SIGCHLD, [](int) {});
    sigset_t children;
    sigemptyset(&children);
    sigaddset(&children, SIGCHLD);
    sigprocmask(SIG_BLOCK, &children, &before_);
    const pid_t self = getpid();
    child_ = StartChild([&] { return Perform(work, self); });
    CloseOthers(socket_.Get());
    socket_ = Descriptor(fcntl(socket_.Get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));  // pselect takes small ones alone
  }

  int Watch() {
    while (!Reap()) {
      const char request = Request();
      if (request == kKillOrphans) KillOrphans();
      if (request == kKillAll) kill(child_, SIGKILL);
    }
    KillAll();
    // The other end may be gone.
    send(socket_.Get(), &status_, sizeof(status_), MSG_NOSIGNAL);
    return 0;
  }

 private:
  int Perform(const std::function<int()>& work, pid_t guard) {
    setsid();  // which takes the terminal away, too
    DieWithParent(guard);
    ForEachEndingSignal(SIG_DFL);
    std::signal(SIGCHLD, SIG_DFL);
    sigprocmask(SIG_SETMASK, &before_, nullptr);
    socket_ = {};
    return work();
  }

  // Reaps the children that have ended, and returns whether the child was among them.
  bool Reap() {
    int status = 0;
    for (pid_t ended; (ended = waitpid(-1, &status, WNOHANG)) > 0;) {
      if (ended != child_) continue;
      status_ = status;
      return true;
    }
    return false;
  }

  // Waits for a request, or for the end of a child, which is none.
  char Request() const {
    fd_set readable;
    FD_ZERO(&readable);
    FD_SET(socket_.Get(), &readable);
    if (pselect(socket_.Get() + 1, &readable, nullptr, nullptr, nullptr, &before_) <= 0) return 0;
    char request = 0;
    return read(socket_.Get(), &request, 1) == 1 ? request : kKillAll;
  }

  void KillOrphans() const {
    ForEachChild([this](pid_t orphan) {
      if (orphan != child_) kill(orphan, SIGKILL);
    });
  }

  // Whatever a killed process leaves becomes a child, until there is none.
  void KillAll() const {
    kill(-child_, SIGKILL);
    do {
      ForEachChild([](pid_t child) { kill(child, SIGKILL); });
    } while (waitpid(-1, nullptr, 0) > 0 || errno == EINTR);
  }

  Descriptor socket_;
  sigset_t before_;
  pid_t child_ = 0;
  int status_ = 0;
};

// Kills what a lost guard has left to this process. All of it is in other sessions than this process's own children.
void KillAdopted() {
  bool areLeft;
  do {
    areLeft = false;
    ForEachChild([&areLeft](pid_t child) {
      if (getsid(child) == getsid(0)) return;
      areLeft = true;  // what it leaves, for the next time
      kill(child, SIGKILL);
      WaitForChild(child);
    });
  } while (areLeft);
}

}  // namespace

GuardedChild::GuardedChild(const std::function<int()>& work) {
  AdoptOrphans();  // should the guard be killed
  auto [here, there] = SocketPair();
  guard_ = StartChild([&work, &ours = here, &theirs = there] {
    ours = {};
    return Guard(std::move(theirs), work).Watch();
  });
  socket_ = std::move(here);
}

GuardedChild::~GuardedChild() {
  if (socket_) KillAndWait();
}

bool GuardedChild::WaitForEnd(int milliseconds) const {
  pollfd waiting = {socket_.Get(), POLLIN, 0};
  return poll(&waiting, 1, milliseconds) > 0;
}

void GuardedChild::KillOrphans() const { send(socket_.Get(), &kKillOrphans, 1, MSG_NOSIGNAL); }

void GuardedChild::KillAll() const {
  kill(guard_, SIGCONT);  // an extension can stop it
  send(socket_.Get(), &kKillAll, 1, MSG_NOSIGNAL);
}

std::optional<int> GuardedChild::Wait() {
  int status = 0;
  ssize_t count;
  while ((count = read(socket_.Get(), &status, sizeof(status))) < 0 && errno == EINTR) continue;
  socket_ = {};
  WaitForChild(guard_);
  if (count == sizeof(status)) return status;
  KillAdopted();
  return std::nullopt;
}

std::optional<int> GuardedChild::KillAndWait() {
  KillAll();
  if (!WaitForEnd(kMaxKillingMs)) kill(guard_, SIGKILL);
  return Wait();
}

}  // namespace brvhost
