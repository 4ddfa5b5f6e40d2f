// Memory that runs out in one thread of a program, to be loaded before the program.
//
//   FAILING_THREAD  names the thread. The program's process is "0"; the children of a process have its name and then
//                   their number, as in "0.1"; and all threads of a process but the first have its name and "t".
//   FAILING_FROM    the numbers of the first allocation of that thread that fails, from 1, and of the last
//   FAILING_TO
//   COUNTED_IN      names a file of 8 bytes, in which that thread's allocations are counted
#include <fcntl.h>
#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// The C library's own, whoever takes their names.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {

constexpr std::size_t kNameSize = 64;

char processName[kNameSize] = "0";
int children = 0;

const char* failingThread = nullptr;  // until all is set
long failingFrom = 0;
long failingTo = 0;
std::atomic<long>* counted = nullptr;

// The model needs no memory of its own.
__attribute__((tls_model("initial-exec"))) thread_local long allocations = 0;

long NumberFrom(const char* name) {
  const char* const text = std::getenv(name);
  return text == nullptr ? 0 : std::atol(text);
}

void CountChild() { ++children; }

void BecomeChild() {
  const std::size_t length = std::strlen(processName);
  std::snprintf(processName + length, kNameSize - length, ".%d", children);
  children = 0;
  allocations = 0;
}

std::atomic<long>* CounterIn(const char* path) {
  const int file = open(path, O_RDWR | O_CLOEXEC);
  void* const memory = mmap(nullptr, sizeof(long), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  close(file);
  return memory == MAP_FAILED ? nullptr : static_cast<std::atomic<long>*>(memory);
}

__attribute__((constructor)) void Prepare() {
  pthread_atfork(CountChild, nullptr, BecomeChild);
  failingFrom = NumberFrom("FAILING_FROM");
  failingTo = NumberFrom("FAILING_TO");
  counted = CounterIn(std::getenv("COUNTED_IN"));
  allocations = 0;
  failingThread = std::getenv("FAILING_THREAD");
}

bool IsFailingThread() {
  const std::size_t length = std::strlen(processName);
  return std::strncmp(failingThread, processName, length) == 0 &&
         std::strcmp(failingThread + length, gettid() == getpid() ? "" : "t") == 0;
}

bool Fails() {
  if (failingThread == nullptr || !IsFailingThread()) return false;
  *counted = ++allocations;
  if (allocations < failingFrom || allocations > failingTo) return false;
  errno = ENOMEM;
  return true;
}

}  // namespace

#define EXPORTED __attribute__((visibility("default")))

// The system's own declarations name the parameters with underscores.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

EXPORTED void* malloc(std::size_t size) { return Fails() ? nullptr : __libc_malloc(size); }

EXPORTED void* calloc(std::size_t count, std::size_t size) { return Fails() ? nullptr : __libc_calloc(count, size); }

EXPORTED void* realloc(void* memory, std::size_t size) { return Fails() ? nullptr : __libc_realloc(memory, size); }

EXPORTED void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return Fails() ? nullptr : __libc_memalign(alignment, size);
}

EXPORTED int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
  if (Fails()) return ENOMEM;
  *memory = __libc_memalign(alignment, size);
  return *memory == nullptr ? ENOMEM : 0;
}

}  // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
