// What a tracer changes of a call of the system: each processor has its number and its result elsewhere.
#pragma once

#include <elf.h>
#include <sys/ptrace.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <sys/user.h>

#include <cstddef>

#if defined(__x86_64__)

// While the process is about to make a call: it makes none.
inline void SkipCall(pid_t process) { ptrace(PTRACE_POKEUSER, process, offsetof(user_regs_struct, orig_rax), -1); }

// When a call has ended.
inline void SetResult(pid_t process, long result) {
  ptrace(PTRACE_POKEUSER, process, offsetof(user_regs_struct, rax), result);
}

#elif defined(__aarch64__)

// While the process is about to make a call: it makes none.
inline void SkipCall(pid_t process) {
  int none = -1;
  iovec place = {&none, sizeof(none)};
  ptrace(PTRACE_SETREGSET, process, NT_ARM_SYSTEM_CALL, &place);
}

// When a call has ended.
inline void SetResult(pid_t process, long result) {
  user_regs_struct registers;
  iovec place = {&registers, sizeof(registers)};
  if (ptrace(PTRACE_GETREGSET, process, NT_PRSTATUS, &place) != 0) return;
  registers.regs[0] = static_cast<unsigned long long>(result);
  ptrace(PTRACE_SETREGSET, process, NT_PRSTATUS, &place);
}

#else
#error "the registers of a call are not known for this processor"
#endif
