// The exported functions that Linux calls in another way than macOS does: those with variable arguments, with more
// arguments than registers, and with a narrow one. The image's own have "image." before their names.
#include <brevixpdk.h>
#include <bxstring.h>

#include "tests/macho/loader/calls_arm64.h"
#include "tests/macho/loader/longcalls.h"
#include "tests/macho/loader/variablearguments_arm64.h"

using macho::ArgumentsOnTheirWay;
using macho::CallOfImage;

#define BRV_IMAGE_FUNCTION(variable, name) extern "C" const char variable[] __asm__("image." name)

// ---- Variable arguments

BRV_IMAGE_FUNCTION(imageSprintf, "bx_sprintf");
int32 bx_sprintf(UniChar* dst, std::size_t dstSize, const UniChar* format, ...) {
  std::va_list list;
  va_start(list, format);
  const ArgumentsOnTheirWay arguments(list);
  CallOfImage call(dst, dstSize, format);
  call.AddVariable(&arguments);
  const auto result = static_cast<int32>(call.Call(imageSprintf));
  va_end(list);
  return result;
}

BRV_IMAGE_FUNCTION(imageDbgPrintF, "DbgPrintF");
void DbgPrintF(const char* format, ...) {
  std::va_list list;
  va_start(list, format);
  const ArgumentsOnTheirWay arguments(list);
  CallOfImage call(format);
  call.AddVariable(&arguments);
  call.Call(imageDbgPrintF);
  va_end(list);
}

// ---- More arguments than registers

namespace {

template <class Signature, const char* function>
struct Image;

template <class Result, class... Arguments, const char* function>
struct Image<Result(Arguments...), function> {
  static Result Call(Arguments... arguments) { return static_cast<Result>(CallOfImage(arguments...).Call(function)); }
};

}  // namespace

// A function of the same name as the host's, which hands its arguments on as they are.
#define BRV_LONG_CALL(name)                                                                                           \
  BRV_IMAGE_FUNCTION(image_##name, #name);                                                                            \
  extern "C" __attribute__((visibility("hidden"))) decltype(&::name) const call_##name =                              \
      &Image<decltype(::name), image_##name>::Call;                                                                   \
  __asm__(".pushsection .text\n.p2align 2\n.globl " #name "\n.type " #name ", %function\n" #name                      \
          ":\n adrp x16, call_" #name "\n ldr x16, [x16, :lo12:call_" #name "]\n br x16\n.size " #name ", . - " #name \
          "\n.popsection\n");
BRV_LONG_CALLS(BRV_LONG_CALL)

// ---- A narrow argument, which the caller extends on macOS

BRV_IMAGE_FUNCTION(imageKeyIsDown, "KbdUtilKeyIsDown");
// char has a sign on macOS.
extern "C" BRV_EXPORT int KbdUtilKeyIsDown(signed char keyCode);
int KbdUtilKeyIsDown(signed char keyCode) { return static_cast<int>(CallOfImage(keyCode).Call(imageKeyIsDown)); }
