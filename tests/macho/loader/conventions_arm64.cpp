#include "conventions.h"

#include <CoreFoundation/CoreFoundation.h>
#include <brevixpdk.h>

#include <cstdio>
#include <cstring>
#include <tuple>

#include "calls_arm64.h"
#include "longcalls.h"
#include "variablearguments_arm64.h"

// An adapter begins with what the image calls: it names its handler to callHandler. A handler is a function of the
// values of the argument registers, and of the address of the arguments on the stack.
#define BRV_ADAPTER(name)                                                                                          \
  extern "C" __attribute__((visibility("hidden"))) const char adapter_##name[];                                    \
  extern "C" std::uint64_t handle_##name(const std::uint64_t*, const char*);                                       \
  __asm__(".pushsection .text\n.p2align 2\n.globl adapter_" #name "\nadapter_" #name ":\n adrp x16, handle_" #name \
          "\n add x16, x16, :lo12:handle_" #name "\n b callHandler\n.popsection\n");

__asm__(R"(
    .pushsection .text
    .p2align 2
callHandler:
    stp x29, x30, [sp, #-80]!
    mov x29, sp
    stp x0, x1, [sp, #16]
    stp x2, x3, [sp, #32]
    stp x4, x5, [sp, #48]
    stp x6, x7, [sp, #64]
    add x0, sp, #16
    add x1, sp, #80
    blr x16
    ldp x29, x30, [sp], #80
    ret
    .popsection
)");

using macho::ArgumentsHandedOn;
using macho::ArgumentsOnStack;
using macho::CallByImage;

namespace {

// The function of Linux that an adapter belongs to.
void* FunctionOf(const char* name);

template <class Signature>
struct Forward;

template <class Result, class... Arguments>
struct Forward<Result(Arguments...)> {
  static std::uint64_t Call(const char* name, CallByImage call) {
    const auto function = reinterpret_cast<Result (*)(Arguments...)>(FunctionOf(name));
    return static_cast<std::uint64_t>(std::apply(function, call.Arguments<Arguments...>()));
  }
};

template <class Pointer>
std::uint64_t Word(Pointer* pointer) {
  return reinterpret_cast<std::uint64_t>(pointer);
}

}  // namespace

BRV_ADAPTER(CFStringCreateWithFormat)
std::uint64_t handle_CFStringCreateWithFormat(const std::uint64_t* registers, const char* stack) {
  const auto [allocator, options, format] =
      CallByImage(registers, stack).Arguments<CFAllocatorRef, CFDictionaryRef, CFStringRef>();
  return Word(CFStringCreateWithFormatAndArguments(allocator, options, format, ArgumentsOnStack(stack)));
}

BRV_ADAPTER(CFStringCreateWithFormatAndArguments)
std::uint64_t handle_CFStringCreateWithFormatAndArguments(const std::uint64_t* registers, const char* stack) {
  const auto [allocator, options, format, list] =
      CallByImage(registers, stack).Arguments<CFAllocatorRef, CFDictionaryRef, CFStringRef, const void*>();
  return Word(CFStringCreateWithFormatAndArguments(allocator, options, format, ArgumentsHandedOn(list)));
}

BRV_ADAPTER(snprintf)
std::uint64_t handle_snprintf(const std::uint64_t* registers, const char* stack) {
  const auto [text, size, format] = CallByImage(registers, stack).Arguments<char*, std::size_t, const char*>();
  return static_cast<std::uint64_t>(std::vsnprintf(text, size, format, ArgumentsOnStack(stack)));
}

BRV_ADAPTER(vsnprintf)
std::uint64_t handle_vsnprintf(const std::uint64_t* registers, const char* stack) {
  const auto [text, size, format, list] =
      CallByImage(registers, stack).Arguments<char*, std::size_t, const char*, const void*>();
  return static_cast<std::uint64_t>(std::vsnprintf(text, size, format, ArgumentsHandedOn(list)));
}

// What the image finds in a bundle of Linux it calls as on macOS.
BRV_ADAPTER(CFBundleGetFunctionPointerForName)
std::uint64_t handle_CFBundleGetFunctionPointerForName(const std::uint64_t* registers, const char* stack) {
  const auto [bundle, name] = CallByImage(registers, stack).Arguments<CFBundleRef, CFStringRef>();
  using Find = decltype(CFBundleGetFunctionPointerForName);
  void* const function = reinterpret_cast<Find*>(FunctionOf("CFBundleGetFunctionPointerForName"))(bundle, name);
  char text[256];
  if (function == nullptr || !CFStringGetCString(name, text, sizeof(text), kCFStringEncodingUTF8))
    return Word(function);
  return Word(macho::ForImage(text, function));
}

#define BRV_LONG_CALL(name)                                                        \
  BRV_ADAPTER(name)                                                                \
  std::uint64_t handle_##name(const std::uint64_t* registers, const char* stack) { \
    return Forward<decltype(::name)>::Call(#name, CallByImage(registers, stack));  \
  }
BRV_LONG_CALLS(BRV_LONG_CALL)

namespace {

struct Adapter {
  const char* name;
  const char* start;
  void* function;
};

#define BRV_ENTRY(name) {#name, adapter_##name, nullptr},
// Needs no memory, which some tests let run out, and is there when the image is loaded, before variables are
// initialised.
constinit Adapter adapters[] = {BRV_ENTRY(CFStringCreateWithFormat) BRV_ENTRY(CFStringCreateWithFormatAndArguments)  //
                                BRV_ENTRY(snprintf) BRV_ENTRY(vsnprintf)
                                    BRV_ENTRY(CFBundleGetFunctionPointerForName)  //
                                BRV_LONG_CALLS(BRV_ENTRY)};

Adapter* AdapterOf(const char* name) {
  for (Adapter& adapter : adapters) {
    if (std::strcmp(adapter.name, name) == 0) return &adapter;
  }
  return nullptr;
}

void* FunctionOf(const char* name) { return AdapterOf(name)->function; }

}  // namespace

namespace macho {

void* ForImage(const char* name, void* function) {
  Adapter* const adapter = AdapterOf(name);
  if (adapter == nullptr) return function;
  adapter->function = function;
  return const_cast<char*>(adapter->start);
}

}  // namespace macho
