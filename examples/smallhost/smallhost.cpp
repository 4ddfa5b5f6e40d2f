// The smallest host there can be: it opens an extension's bundle, binds it, prints what it offers, and calls its first
// menu item on an empty selection.
//
//   smallhost BUNDLE
#include <BrvEDK/brevixpdk.h>
#include <BrvEDK/convention.h>
#include <BrvEDK/stringids.h>
#include <CoreFoundation/CoreFoundation.h>

#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace {

CFBundleRef extension = nullptr;

std::string Utf8(CFStringRef text) {
  std::string bytes(
      static_cast<std::size_t>(CFStringGetMaximumSizeForEncoding(CFStringGetLength(text), kCFStringEncodingUTF8)) + 1,
      '\0');
  if (!CFStringGetCString(text, bytes.data(), static_cast<CFIndex>(bytes.size()), kCFStringEncodingUTF8)) return {};
  return bytes.c_str();
}

std::string Utf8(const UniChar* units) {
  CFIndex count = 0;
  while (units[count] != 0) ++count;
  const CFStringRef text = CFStringCreateWithCharacters(kCFAllocatorDefault, units, count);
  std::string bytes = Utf8(text);
  CFRelease(text);
  return bytes;
}

std::string TextOfID(int stringID) {
  const CFStringRef key =
      CFStringCreateWithCString(kCFAllocatorDefault, StringKey(stringID).text, kCFStringEncodingUTF8);
  const CFStringRef text = CFBundleCopyLocalizedString(extension, key, key, nullptr);
  std::string bytes = Utf8(text);
  CFRelease(text);
  CFRelease(key);
  return bytes;
}

CFBundleRef OpenBundle(const std::string& path) {
  const CFURLRef url = CFURLCreateFromFileSystemRepresentation(
      kCFAllocatorDefault, reinterpret_cast<const UInt8*>(path.data()), static_cast<CFIndex>(path.size()), true);
  const CFBundleRef bundle = CFBundleCreate(kCFAllocatorDefault, url);
  CFRelease(url);
  if (bundle == nullptr) throw std::runtime_error(path + ": there is no such bundle");
  return bundle;
}

// An entry point of the extension.
template <class Function>
Function* Find(const char* name) {
  const CFStringRef text = CFStringCreateWithCString(kCFAllocatorDefault, name, kCFStringEncodingUTF8);
  void* const found = CFBundleGetFunctionPointerForName(extension, text);
  CFRelease(text);
  if (found == nullptr) throw std::runtime_error(std::string("the bundle does not load, or has no ") + name);
  return reinterpret_cast<Function*>(found);
}

void PrintItems() {
  const auto enumerate = Find<decltype(BrevixExtensionEnumerate_UTF16)>("BrevixExtensionEnumerate_UTF16");
  MenuItemTexts texts;
  for (int item = 0; enumerate(nullptr, item, &texts) != 0; ++item) {
    std::printf("item %d     %s\n", item, Utf8(texts.text1).c_str());
    std::printf("           Undo: %s\n", Utf8(texts.text2).c_str());
    std::printf("           %s\n", Utf8(texts.text3).c_str());
  }
}

void Run(const std::string& path) {
  extension = OpenBundle(path);
  char program[] = "smallhost";
  char* argv[] = {program, nullptr};
  if (Find<decltype(BrevixExtensionMain)>("main")(1, argv) == 0)
    throw std::runtime_error("the extension did not bind to its host");
  std::printf("version    0x%08X\n", Find<decltype(BrevixExtensionVersion)>("BrevixExtensionVersion")());
  std::uint32_t word;
  if (Find<decltype(BrevixExtensionInit)>("BrevixExtensionInit")(nullptr, &word) == 0)
    throw std::runtime_error("the extension is not ready");
  PrintItems();
  EREGION nothing = {};
  nothing.startStaff = 1;
  Find<decltype(BrevixExtensionInvoke)>("BrevixExtensionInvoke")(nullptr, 0, &nothing, &nothing);
  Find<decltype(BrevixExtensionTerminate)>("BrevixExtensionTerminate")();
  CFRelease(extension);
}

}  // namespace

// The one host function that this host has; the extension does without the others. What it throws must not reach the
// extension.
extern "C" short16 BX_AlertMessage(void*, ushort16 alertKind, int32 stringID, const void* text, BrvVersion) try {
  const std::string shown = text != nullptr ? static_cast<const char*>(text) : TextOfID(stringID);
  std::printf("alert %d   %s\n", alertKind, shown.c_str());
  return 0;
} catch (const std::exception&) {
  return 0;
}

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: smallhost BUNDLE\n");
    return 2;
  }
  try {
    Run(std::filesystem::absolute(argv[1]));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "smallhost: %s\n", error.what());
    return 3;
  }
  return 0;
}
