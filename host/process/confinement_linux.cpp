#include "host/process/confinement.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <seccomp.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

namespace brvhost {
namespace {

using Filter = std::unique_ptr<void, decltype(&seccomp_release)>;

constexpr std::initializer_list<const char*> kDenied = {
    // files
    "creat", "mkdir", "mkdirat", "mknod", "mknodat", "rmdir", "unlink", "unlinkat", "rename", "renameat", "renameat2",
    "link", "linkat", "symlink", "symlinkat", "truncate", "truncate64", "chmod", "fchmod", "fchmodat", "fchmodat2",
    "chown", "chown32", "fchown", "fchown32", "lchown", "lchown32", "fchownat", "utime", "utimes", "futimesat",
    "utimensat", "utimensat_time64", "setxattr", "lsetxattr", "fsetxattr", "removexattr", "lremovexattr",
    "fremovexattr", "mount", "umount", "umount2", "move_mount", "open_tree", "fsopen", "fsmount", "pivot_root",
    "chroot", "mq_open",
    // the network
    "socket", "socketcall", "bind",
    // programs
    "execve", "execveat",
    // ways around this, and into other processes
    "io_uring_setup", "ptrace", "process_vm_writev", "pidfd_getfd", "bpf", "userfaultfd", "perf_event_open", "setns",
    "unshare", "open_by_handle_at", "flock", "mq_unlink", "shmget", "semget", "msgget", "add_key", "request_key",
    "keyctl", "setpriority"};

// Calls that are younger than what knows them by name: setxattrat, removexattrat, file_setattr. Their numbers are the
// same for all processors.
constexpr std::initializer_list<int> kDeniedNumbers = {463, 466, 469};

void Check(int error) {
  if (error != 0)
    throw std::runtime_error(std::string("this system cannot confine an extension: ") + std::strerror(-error));
}

// Calls that another processor has are passed over.
void DenyCall(const Filter& filter, int call, std::initializer_list<scmp_arg_cmp> conditions = {}) {
  if (call == __NR_SCMP_ERROR) return;
  const int error = seccomp_rule_add_array(filter.get(), SCMP_ACT_ERRNO(EACCES), call,
                                           static_cast<unsigned>(conditions.size()), std::data(conditions));
  if (error != -EDOM) Check(error);
}

void Deny(const Filter& filter, const char* name, std::initializer_list<scmp_arg_cmp> conditions = {}) {
  DenyCall(filter, seccomp_syscall_resolve_name(name), conditions);
}

// Where an argument has exactly these of the flags in the mask.
void DenyFlags(const Filter& filter, const char* name, unsigned argument, scmp_datum_t mask, scmp_datum_t flags) {
  Deny(filter, name, {{argument, SCMP_CMP_MASKED_EQ, mask, flags}});
}

void DenyWriting(const Filter& filter, const char* name, unsigned argument) {
  DenyFlags(filter, name, argument, O_ACCMODE, O_WRONLY);
  DenyFlags(filter, name, argument, O_ACCMODE, O_RDWR);
  DenyFlags(filter, name, argument, O_ACCMODE, O_ACCMODE);
  DenyFlags(filter, name, argument, O_CREAT, O_CREAT);
  DenyFlags(filter, name, argument, O_TRUNC, O_TRUNC);
}

}  // namespace

void Confine() {
  const Filter filter(seccomp_init(SCMP_ACT_ALLOW), seccomp_release);
  if (filter == nullptr) throw std::bad_alloc();
  for (const char* const name : kDenied) Deny(filter, name);
  for (const int number : kDeniedNumbers) DenyCall(filter, number);
  DenyWriting(filter, "open", 1);
  DenyWriting(filter, "openat", 2);
  // A datagram goes to any socket that has a name, without a connection.
  for (const int type : {SOCK_DGRAM, SOCK_RAW, SOCK_SEQPACKET}) DenyFlags(filter, "socketpair", 1, 0xF, type);
  // A terminal takes these for what is typed; a file takes the others for its attributes.
  for (const scmp_datum_t request :
       std::initializer_list<scmp_datum_t>{TIOCSTI, TIOCLINUX, FS_IOC_SETFLAGS, FS_IOC_FSSETXATTR}) {
    DenyFlags(filter, "ioctl", 1, 0xFFFFFFFF, request);
  }
  // The limits of another process.
  Deny(filter, "prlimit64", {{0, SCMP_CMP_NE, 0, 0}});
  // Its flags are in memory, where a filter does not see them: programs take it for a call that an older system lacks.
  Check(seccomp_rule_add(filter.get(), SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(openat2), 0));
  Check(seccomp_load(filter.get()));
}

}  // namespace brvhost
