// Calls of the system, to be loaded before the program: of a file system that lacks something, of a process that is
// killed in the middle of writing, and of one that another forestalls.
//
//   FILES_WITHOUT   names what is missing: "unnamed" files, renaming to "free" names
//                   alone, "links", "locks", "attributes", in any order
//   TAKEN_LAST      is the content of a file that takes each free name just before the program gives it to its own
//   CALLS_LISTED_IN names a file to which the calls' names are added, one to a line
//   KILLED_AT       the number of the call, from 1, at which a process is killed: before odd ones, after even ones
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/types.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

template <class Function>
Function* System(Function*, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool IsWithout(const char* what) {
  const char* const missing = std::getenv("FILES_WITHOUT");
  return missing != nullptr && std::strstr(missing, what) != nullptr;
}

int Refuse(int error) {
  errno = error;
  return -1;
}

void DieIfItIsTime() {
  static int count = 0;
  const char* const number = std::getenv("KILLED_AT");
  if (number != nullptr && ++count == std::atoi(number)) std::raise(SIGKILL);
}

// By the C library's own calls, which are not these.
void Append(const char* path, const char* text) {
  std::FILE* const file = std::fopen(path, "a");
  if (file == nullptr) return;
  std::fputs(text, file);
  std::fclose(file);
}

void TakeName(const char* path) {
  if (const char* const content = std::getenv("TAKEN_LAST")) Append(path, content);
}

void Record(const char* name) {
  const char* const list = std::getenv("CALLS_LISTED_IN");
  if (list == nullptr) return;
  Append(list, name);
  Append(list, "\n");
}

template <class Call>
auto Counted(const char* name, Call call) {
  Record(name);
  DieIfItIsTime();
  const auto result = call();
  DieIfItIsTime();
  return result;
}

}  // namespace

#define EXPORTED __attribute__((visibility("default")))
#define SYSTEM(name) System(&(name), #name)

// The system's own declarations name the parameters with underscores.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

EXPORTED int open(const char* path, int flags, ...) {
  std::va_list rest;
  va_start(rest, flags);
  const mode_t mode = va_arg(rest, mode_t);
  va_end(rest);
  const bool isUnnamed = (flags & O_TMPFILE) == O_TMPFILE;
  if (isUnnamed && IsWithout("unnamed")) return Refuse(EOPNOTSUPP);
  if (!isUnnamed && (flags & O_CREAT) == 0) return SYSTEM(open)(path, flags, mode);
  return Counted("open", [&] { return SYSTEM(open)(path, flags, mode); });
}

EXPORTED ssize_t write(int file, const void* bytes, size_t size) {
  return Counted("write", [&] { return SYSTEM(write)(file, bytes, size); });
}

EXPORTED int fsync(int file) {
  return Counted("fsync", [&] { return SYSTEM(fsync)(file); });
}

EXPORTED int rename(const char* from, const char* to) {
  return Counted("rename", [&] { return SYSTEM(rename)(from, to); });
}

EXPORTED int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
  if (IsWithout("free")) return Refuse(EINVAL);
  TakeName(to);
  return Counted("renameat2", [&] { return SYSTEM(renameat2)(fromFolder, from, toFolder, to, flags); });
}

EXPORTED int link(const char* from, const char* to) {
  if (IsWithout("links")) return Refuse(EPERM);
  TakeName(to);
  return Counted("link", [&] { return SYSTEM(link)(from, to); });
}

EXPORTED int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
  TakeName(to);
  return Counted("linkat", [&] { return SYSTEM(linkat)(fromFolder, from, toFolder, to, flags); });
}

EXPORTED int flock(int file, int operation) {
  return IsWithout("locks") ? Refuse(ENOLCK) : SYSTEM(flock)(file, operation);
}

EXPORTED int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) {
  return IsWithout("attributes") ? Refuse(ENOSPC) : SYSTEM(fsetxattr)(file, name, value, size, flags);
}

}  // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
