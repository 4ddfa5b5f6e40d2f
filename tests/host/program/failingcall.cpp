// Runs a program, and lets one of its calls of the system fail, or kills the process that makes it.
//
//   failingcall LIST PROCESS CALL NUMBER ACTION PROGRAM [ARGUMENT...]
//
// The program's process is "0"; the children of a process have its name and then their number, as in "0.1"; and all
// threads of a process but the first have its name and "t". ACTION is the number of the error that PROCESS's NUMBERth
// CALL, from 1, fails with, without being made; or "before" or "after", when the process is killed. Calls count from
// the program's own first one, which asks whether it has a standard input: those before are the dynamic loader's. LIST
// names a file that gets a line for each call: its process, its name and its number.
//
// Ends when all processes have ended, with the program's exit status, or 128 and the signal that ended it; with 125
// where the system does not let it trace others.
#include <fcntl.h>
#include <seccomp.h>
#include <sys/ptrace.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "callregisters.h"

namespace {

constexpr int kNotPermitted = 125;
constexpr int kFirstArgument = 6;

struct Target {
  std::string process;
  std::string call;
  long number = 0;
  std::string action;
};

struct Tracee {
  std::string name;
  int children = 0;
  std::map<std::string, long> calls;  // how many of each so far
  int error = 0;                      // that the call it is in fails with
  bool isToBeKilled = false;          // after the call that it is in
};

class Tracer {
 public:
  Tracer(pid_t program, Target target, std::FILE* list) : program_(program), target_(std::move(target)), list_(list) {
    tracees_[program].name = "0";
  }

  // Returns the program's status as waitpid gives it.
  int Run() {
    int programStatus = 0;
    int status = 0;
    for (pid_t process; (process = waitpid(-1, &status, __WALL)) > 0;) {
      if (WIFSTOPPED(status)) {
        Handle(process, status);
        continue;
      }
      tracees_.erase(process);
      if (process == program_) programStatus = status;
    }
    return programStatus;
  }

 private:
  void Handle(pid_t process, int status) {
    const int signal = WSTOPSIG(status);
    const int event = status >> 16;
    if (!tracees_.contains(process)) {
      nameless_.insert(process);  // its parent's event comes later
      return;
    }
    if (signal == (SIGTRAP | 0x80)) {
      HandleCall(process);
      return GoOn(process, 0);
    }
    if (event == PTRACE_EVENT_FORK || event == PTRACE_EVENT_VFORK || event == PTRACE_EVENT_CLONE) {
      NameChild(process, event == PTRACE_EVENT_CLONE);
    }
    const bool isNew = starting_.erase(process) > 0;
    GoOn(process, event != 0 || isNew ? 0 : signal);
  }

  static void GoOn(pid_t process, int signal) {
    ptrace(PTRACE_SYSCALL, process, nullptr, static_cast<std::intptr_t>(signal));
  }

  void NameChild(pid_t parent, bool isThread) {
    unsigned long child = 0;
    ptrace(PTRACE_GETEVENTMSG, parent, nullptr, &child);
    Tracee& from = tracees_[parent];
    const auto process = static_cast<pid_t>(child);
    tracees_[process].name = isThread ? from.name + "t" : from.name + "." + std::to_string(++from.children);
    if (nameless_.erase(process) > 0) {
      GoOn(process, 0);
    } else {
      starting_.insert(process);
    }
  }

  void HandleCall(pid_t process) {
    __ptrace_syscall_info info = {};
    ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof(info), &info);
    Tracee& tracee = tracees_[process];
    if (info.op == PTRACE_SYSCALL_INFO_ENTRY) return Enter(process, tracee, info);
    if (tracee.isToBeKilled) kill(process, SIGKILL);
    if (const int error = std::exchange(tracee.error, 0)) SetResult(process, -error);
  }

  void Enter(pid_t process, Tracee& tracee, const __ptrace_syscall_info& info) {
    isCounting_ = isCounting_ || AsksForStandardInput(info);
    if (!isCounting_) return;
    const std::string name = NameOf(static_cast<int>(info.entry.nr));
    const long number = ++tracee.calls[name];
    std::fprintf(list_, "%s %s %ld\n", tracee.name.c_str(), name.c_str(), number);
    if (tracee.name != target_.process || name != target_.call || number != target_.number) return;
    if (target_.action == "before") {
      kill(process, SIGKILL);
    } else if (target_.action == "after") {
      tracee.isToBeKilled = true;
    } else {
      tracee.error = std::atoi(target_.action.c_str());
      SkipCall(process);
    }
  }

  static bool AsksForStandardInput(const __ptrace_syscall_info& info) {
    return NameOf(static_cast<int>(info.entry.nr)) == "fcntl" && info.entry.args[0] == STDIN_FILENO &&
           info.entry.args[1] == F_GETFD;
  }

  static std::string NameOf(int call) {
    const std::unique_ptr<char, decltype(&std::free)> name(seccomp_syscall_resolve_num_arch(SCMP_ARCH_NATIVE, call),
                                                           std::free);
    return name == nullptr ? std::to_string(call) : name.get();
  }

  const pid_t program_;
  const Target target_;
  std::FILE* const list_;
  std::map<pid_t, Tracee> tracees_;
  std::set<pid_t> nameless_;  // stopped
  std::set<pid_t> starting_;  // named, and not stopped yet
  bool isCounting_ = false;
};

pid_t Start(char** command) {
  const pid_t process = fork();
  if (process != 0) return process;
  if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(kNotPermitted);
  std::raise(SIGSTOP);
  execv(command[0], command);
  _exit(kNotPermitted);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc <= kFirstArgument) return kNotPermitted;
  const pid_t program = Start(argv + kFirstArgument);
  int status = 0;
  waitpid(program, &status, 0);
  constexpr long kOptions = PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL | PTRACE_O_TRACEFORK | PTRACE_O_TRACEVFORK |
                            PTRACE_O_TRACECLONE | PTRACE_O_TRACEEXEC;
  if (!WIFSTOPPED(status) || ptrace(PTRACE_SETOPTIONS, program, nullptr, kOptions) != 0) return kNotPermitted;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> list(std::fopen(argv[1], "w"), std::fclose);
  if (list == nullptr) return kNotPermitted;
  ptrace(PTRACE_SYSCALL, program, nullptr, nullptr);
  status = Tracer(program, {argv[2], argv[3], std::atol(argv[4]), argv[5]}, list.get()).Run();
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
