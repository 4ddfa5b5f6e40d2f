#include "shims.h"

#include <brvplatform.h>

#undef NDEBUG
#include <cassert>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>

namespace macho {
namespace {

// ---- libSystem

// Prints what a test expects of either image.
[[noreturn]] void AssertFailed(const char* function, const char* file, int line, const char* expression) {
  __assert_fail(expression, file, static_cast<unsigned>(line), function);
}

int* ErrorNumber() { return &errno; }

void Zero(void* memory, std::size_t size) { std::memset(memory, 0, size); }

template <std::size_t size>
void FillWithPattern(void* memory, const void* pattern, std::size_t length) {
  auto* at = static_cast<char*>(memory);
  for (; length >= size; length -= size, at += size) std::memcpy(at, pattern, size);
  std::memcpy(at, pattern, length);
}

int ToUpper(int character) { return std::toupper(character); }
int ToLower(int character) { return std::tolower(character); }

std::uintptr_t stackGuard = 0x00FF0A0D5AA55AA5;

[[noreturn]] void StackGuardFailed() {
  std::fputs("the stack guard was overwritten\n", stderr);
  std::abort();
}

[[noreturn]] void BindLater() {
  std::fputs("a symbol was left to be bound at its first call\n", stderr);
  std::abort();
}

// ---- libc++

std::int64_t SteadyClockNow() {
  return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

[[noreturn]] void MakeExceptionOfLength() {
  std::fputs("the image is about to throw, and no exception passes through its frames\n", stderr);
  std::abort();
}

// ---- The Objective-C runtime, as far as one class property goes

const char kEventClass[] = "NSEvent";
const char kModifierFlags[] = "modifierFlags";

const void* FindClass(const char* name) { return std::strcmp(name, kEventClass) == 0 ? kEventClass : nullptr; }

const void* RegisterSelector(const char* name) {
  return std::strcmp(name, kModifierFlags) == 0 ? kModifierFlags : nullptr;
}

unsigned long Send(const void* receiver, const void* selector) {
  if (receiver == nullptr) return 0;
  if (receiver == kEventClass && selector == kModifierFlags) return BrvPlatformModifierFlags();
  std::fputs("a message that nobody understands\n", stderr);
  std::abort();
}

using Shims = std::map<std::string, void*>;

template <class Function>
void* Address(Function* function) {
  return reinterpret_cast<void*>(function);
}

void* Find(const Shims& shims, const char* name) {
  const auto found = shims.find(name);
  return found == shims.end() ? nullptr : found->second;
}

}  // namespace

void* SystemShim(const char* name) {
  static const Shims shims = {
      {"__assert_rtn", Address(AssertFailed)},
      {"__error", Address(ErrorNumber)},
      {"__bzero", Address(Zero)},
      {"__toupper", Address(ToUpper)},
      {"__tolower", Address(ToLower)},
      {"memset_pattern4", Address(FillWithPattern<4>)},
      {"memset_pattern8", Address(FillWithPattern<8>)},
      {"memset_pattern16", Address(FillWithPattern<16>)},
      {"__stack_chk_guard", &stackGuard},
      {"__stack_chk_fail", Address(StackGuardFailed)},
      {"dyld_stub_binder", Address(BindLater)},
  };
  return Find(shims, name);
}

void* CxxShim(const char* name) {
  static const Shims shims = {
      {"_ZNSt3__16chrono12steady_clock3nowEv", Address(SteadyClockNow)},
      {"_ZNSt20bad_array_new_lengthC1Ev", Address(MakeExceptionOfLength)},
  };
  return Find(shims, name);
}

void* ObjectiveCShim(const char* name) {
  static const Shims shims = {
      {"objc_getClass", Address(FindClass)},
      {"sel_registerName", Address(RegisterSelector)},
      {"objc_msgSend", Address(Send)},
  };
  return Find(shims, name);
}

}  // namespace macho
