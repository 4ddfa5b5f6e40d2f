// Misbehaves as the environment wants it: in the way that BRV_TEST_WAY names, at the point that BRV_TEST_POINT names,
// or by the host call BRV_TEST_CALL.
#include <dlfcn.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "documentrecords.h"
#include "extension.h"
#include "hostbundle.h"
#include "recordtag.h"

namespace {

std::string Setting(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// Ways ---------------------------------------------------------------------------------------------------------------

[[noreturn]] void Hang() {
  for (;;) pause();
}

// What the compilers and sanitizers cannot see.
int* volatile nowhere = nullptr;
volatile int noEnd = 1;

__attribute__((no_sanitize("undefined", "address"))) void Crash() { *nowhere = 1; }

int Recurse(int depth) {
  volatile char frame[4096];
  frame[0] = static_cast<char>(depth);
  return noEnd == 0 ? 0 : Recurse(depth + 1) + frame[0];
}

void CloseDescriptors() {
  for (int descriptor = 0; descriptor < 1024; ++descriptor) close(descriptor);
}

void KillParent() {
  kill(getppid(), SIGKILL);
  Hang();  // which ends soon
}

void PrintForEver() {
  const std::string lines(65536, '\n');
  while (write(STDOUT_FILENO, lines.data(), lines.size()) > 0) continue;
}

constexpr struct {
  std::string_view name;
  void (*misbehave)();
} kWays[] = {
    {"crash", Crash},
    {"abort", [] { std::abort(); }},
    {"overflow the stack", [] { Recurse(0); }},
    {"exit", [] { std::exit(0); }},
    {"_exit", [] { _exit(7); }},
    {"throw", [] { throw std::runtime_error("there is no font"); }},
    {"throw a number", [] { throw 7; }},
    {"hang", [] { Hang(); }},
    {"stop", [] { std::raise(SIGSTOP); }},
    {"kill the parent", KillParent},
    {"close descriptors", CloseDescriptors},
    {"print", PrintForEver},
};

// Points -------------------------------------------------------------------------------------------------------------

void At(std::string_view point) {
  if (Setting("BRV_TEST_POINT") != point) return;
  const std::string chosen = Setting("BRV_TEST_WAY");
  for (const auto& way : kWays) {
    if (way.name == chosen) way.misbehave();
  }
}

[[gnu::constructor]] void Construct() {
  std::atexit([] { At("atexit"); });
  At("constructors");
}

[[gnu::destructor]] void Destruct() { At("destructors"); }

// Host calls ---------------------------------------------------------------------------------------------------------

constexpr std::size_t kBytes = 256;
alignas(8) unsigned char bytes[kBytes];

template <class T>
std::uintptr_t AddressOf(T* object) {
  return reinterpret_cast<std::uintptr_t>(object);
}

std::uintptr_t AddressOfKey(std::uint16_t recordNumber) {
  static EDataKey key;
  key = {recordNumber, 0};
  return AddressOf(&key);
}

std::uintptr_t AddressOfSize() {
  static std::int32_t size = kBytes;
  return AddressOf(&size);
}

// A loaded frame whose entries are somewhere else.
std::uintptr_t FrameWithEntriesAt(std::uintptr_t address) {
  EXTGF2005a* const frame = BX_LoadTGF(0, 1, 1, 0, kLoadFlag, kBrvVersion);
  frame->entries = reinterpret_cast<EXENTRY*>(address);
  return AddressOf(frame);
}

// What a word of BRV_TEST_CALL stands for: a pointer that is bad in some way or good, a tag, or a number.
std::uintptr_t Argument(const std::string& word) {
  constexpr std::string_view kFrame = "frame:";
  if (word.starts_with(kFrame)) return FrameWithEntriesAt(Argument(word.substr(kFrame.size())));
  if (word == "null") return 0;
  if (word == "wild") return 8;
  if (word == "odd") return AddressOf(bytes + 1);
  if (word == "bytes") return AddressOf(bytes);
  if (word == "size") return AddressOfSize();
  if (word == "before-first") return AddressOfKey(0);
  if (word == "first") return AddressOfKey(1);
  if (word == "after-first") return AddressOfKey(2);
  if (word == "SOMS") return kMeasureSpecTag;
  if (word == "mine") return RecordTag("mine");
  return static_cast<std::uintptr_t>(std::stol(word));
}

// Calls the host's own function, in the main program: that of the kit looks at some arguments first.
void CallHost(const std::string& call) {
  using Function =
      void (*)(std::uintptr_t, std::uintptr_t, std::uintptr_t, std::uintptr_t, std::uintptr_t, std::uintptr_t);
  std::istringstream words(call);
  std::string word;
  words >> word;
  void* const function = dlsym(dlopen(nullptr, RTLD_NOW), word.c_str());
  if (function == nullptr) throw std::runtime_error("the host has no " + word);
  std::uintptr_t arguments[6] = {};
  for (int i = 0; words >> word; ++i) arguments[i] = Argument(word);
  const auto& [first, second, third, fourth, fifth, sixth] = arguments;
  reinterpret_cast<Function>(function)(first, second, third, fourth, fifth, sixth);
}

}  // namespace

int BrevixExtensionMain(int, void*) {
  At("main");
  return InitializeGlobals() == 0 ? 1 : 0;
}

uint32 BrevixExtensionVersion() {
  At("BrevixExtensionVersion");
  return kBrvVersion;
}

int BrevixExtensionInit(void*, std::uint32_t* word) {
  At("BrevixExtensionInit");
  *word = 0;
  return 1;
}

int BrevixExtensionEnumerate_UTF16(void*, int index, MenuItemTexts* texts) {
  At("BrevixExtensionEnumerate_UTF16");
  if (index != 0) return 0;
  FillTexts(*texts);
  return 1;
}

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  At("BrevixExtensionInvoke");
  if (index != 0 || region == nullptr) return 0;
  if (const std::string call = Setting("BRV_TEST_CALL"); !call.empty()) CallHost(call);
  return HideFirstFrame(*region);
}

void BrevixExtensionTerminate() { At("BrevixExtensionTerminate"); }

int BrevixExtensionGetMenuStatus() {
  At("BrevixExtensionGetMenuStatus");
  return 1;
}
