#include "host/bundle/extension.h"

#include <dlfcn.h>
#include <fmt/format.h>

#include <filesystem>
#include <new>

#include "BrvEDK/Source/hostbundle.h"
#include "host/text/cfowner.h"
#include "host/text/utf8.h"

namespace brvhost {
namespace {

constexpr int kMostItems = 1000;

CFBundleRef OpenBundle(const std::string& path) {
  std::error_code error;
  const std::string absolute = std::filesystem::absolute(path, error).lexically_normal().string();
  if (error || !std::filesystem::is_directory(absolute, error)) throw BundleError(path + ": there is no such bundle");
  const Owned<CFURLRef> url(CFURLCreateFromFileSystemRepresentation(
      nullptr, reinterpret_cast<const UInt8*>(absolute.data()), static_cast<CFIndex>(absolute.size()), true));
  const CFBundleRef bundle = url ? CFBundleCreate(nullptr, url.Get()) : nullptr;
  if (bundle == nullptr) throw BundleError(path + ": is not a bundle");
  return bundle;
}

// An extension that writes a little too far spoils nothing of the host's.
struct TextsWithRoom {
  MenuItemTexts texts;
  std::uint8_t room[256];
};

// 16-bit results may have anything above.
int Answer(int result) { return static_cast<std::int16_t>(result); }

}  // namespace

LoadedBundle::LoadedBundle(const std::string& path) : path_(path), bundle_(OpenBundle(path)) {
  dlerror();
  Find("main");  // loads the code
  if (CFBundleIsExecutableLoaded(bundle_)) return;
  const char* const reason = dlerror();
  CFRelease(bundle_);
  throw BundleError(fmt::format("{}: its code does not load: {}", path,
                                reason != nullptr ? reason : "there is none for this system"));
}

LoadedBundle::~LoadedBundle() { CFRelease(bundle_); }

void* LoadedBundle::Find(const char* name) const {
  const Owned<CFStringRef> text(CFStringCreateWithCString(nullptr, name, kCFStringEncodingMacRoman));
  return CFBundleGetFunctionPointerForName(bundle_, text.Get());
}

Extension::Extension(const std::string& path) : bundle_(path) {
  const auto find = [this]<class Function>(const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(bundle_.Find(name));
    if (function == nullptr) throw BundleError(fmt::format("{}: has no {}", bundle_.Path(), name));
  };
  decltype(BrevixExtensionMain)* mainFunction = nullptr;
  find("main", mainFunction);
  find("BrevixExtensionVersion", entryPoints_.version);
  find("BrevixExtensionInit", entryPoints_.init);
  find("BrevixExtensionEnumerate_UTF16", entryPoints_.enumerate);
  find("BrevixExtensionInvoke", entryPoints_.invoke);
  find("BrevixExtensionTerminate", entryPoints_.terminate);
  find("BrevixExtensionGetMenuStatus", entryPoints_.menuStatus);

  const char* arguments[] = {path.c_str(), nullptr};
  if (mainFunction(1, static_cast<void*>(arguments)) == 0) throw BundleError(path + ": does not bind to this host");
  const std::uint32_t version = entryPoints_.version();
  if (version != kBrvVersion) {
    throw BundleError(fmt::format("{}: is for version 0x{:08X} of the host, not 0x{:08X}", path, version, kBrvVersion));
  }
  std::uint32_t word = 0;
  if (Answer(entryPoints_.init(nullptr, &word)) == 0) throw BundleError(path + ": does not initialise");
}

std::vector<MenuItem> Extension::Items() const {
  std::vector<MenuItem> items;
  for (int index = 0; index < kMostItems; ++index) {
    TextsWithRoom record{};
    const MenuItemTexts& texts = record.texts;
    if (Answer(entryPoints_.enumerate(nullptr, index, &record.texts)) == 0) return items;
    constexpr std::size_t kUnits = MenuItemTexts::kUnits;
    items.push_back(
        {Utf8FromUnits(texts.text1, kUnits), Utf8FromUnits(texts.text2, kUnits), Utf8FromUnits(texts.text3, kUnits)});
  }
  throw BundleError(fmt::format("{}: offers more than {} menu items", bundle_.Path(), kMostItems));
}

int Extension::MenuStatus() const { return Answer(entryPoints_.menuStatus()); }

int Extension::Invoke(int item, EREGION* region, EREGION* fallback) const {
  return Answer(entryPoints_.invoke(nullptr, item, region, fallback));
}

void Extension::Terminate() const { entryPoints_.terminate(); }

std::string Extension::LocalizedText(std::int32_t stringID) const {
  const int table = static_cast<std::int16_t>(static_cast<std::uint32_t>(stringID) >> 16);
  const int index = static_cast<std::int16_t>(stringID);
  const std::string name = table == 0 ? fmt::format("{}", index) : fmt::format("{},{}", table, index);
  const Owned<CFStringRef> key(CFStringCreateWithCString(nullptr, name.c_str(), kCFStringEncodingUTF8));
  if (!key) throw std::bad_alloc();
  const Owned<CFStringRef> text(CFBundleCopyLocalizedString(bundle_.Reference(), key.Get(), key.Get(), nullptr));
  if (!text) throw std::bad_alloc();
  return Utf8FromString(text.Get());
}

}  // namespace brvhost
