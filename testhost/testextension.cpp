#include <BrvEDK/testextension.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <map>
#include <stdexcept>

namespace {

constexpr int kMostItems = 1000;

CFBundleRef CreateBundle(const std::string& path) {
  const std::string absolute = std::filesystem::absolute(path);
  const CFURLRef url =
      CFURLCreateFromFileSystemRepresentation(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(absolute.data()),
                                              static_cast<CFIndex>(absolute.size()), true);
  const CFBundleRef bundle = CFBundleCreate(kCFAllocatorDefault, url);
  CFRelease(url);
  if (bundle == nullptr) throw std::runtime_error(path + ": there is no such bundle");
  return bundle;
}

// For the rest of the process's life: the extension keeps its bundle, too.
CFBundleRef OpenBundle(const std::string& path) {
  static auto& bundles = *new std::map<std::string, CFBundleRef>();
  const auto known = bundles.find(path);
  return known != bundles.end() ? known->second : bundles.emplace(path, CreateBundle(path)).first->second;
}

std::u16string TextOf(const UniChar (&units)[MenuItemTexts::kUnits]) {
  std::u16string text;
  for (const UniChar unit : units) {
    if (unit == 0) break;
    text.push_back(unit);
  }
  return text;
}

}  // namespace

TestExtension::TestExtension(const std::string& path) : path_(path), bundle_(OpenBundle(path)) {
  std::array<char, 5> program = {"test"};
  std::array<char*, 2> arguments = {program.data(), nullptr};
  if (Find<decltype(BrevixExtensionMain)>("main")(1, arguments.data()) == 0) {
    throw std::runtime_error(path + ": the extension does not bind to its host");
  }
  if (Find<decltype(BrevixExtensionVersion)>("BrevixExtensionVersion")() != kBrvVersion) {
    throw std::runtime_error(path + ": the extension is for another version of the host's interface");
  }
  std::uint32_t word = 0;
  if (Find<decltype(BrevixExtensionInit)>("BrevixExtensionInit")(nullptr, &word) == 0) {
    throw std::runtime_error(path + ": the extension cannot work");
  }
}

TestExtension::~TestExtension() { Find<decltype(BrevixExtensionTerminate)>("BrevixExtensionTerminate")(); }

std::vector<TestExtension::Item> TestExtension::Items() const {
  const auto enumerate = Find<decltype(BrevixExtensionEnumerate_UTF16)>("BrevixExtensionEnumerate_UTF16");
  std::vector<Item> items;
  MenuItemTexts texts = {};
  for (int index = 0; enumerate(nullptr, index, &texts) != 0; ++index) {
    if (index == kMostItems) throw std::runtime_error(path_ + ": the list of items does not end");
    items.push_back({TextOf(texts.text1), TextOf(texts.text2), TextOf(texts.text3)});
  }
  return items;
}

int TestExtension::Invoke(int item, EREGION* region, EREGION* fallback) const {
  return Find<decltype(BrevixExtensionInvoke)>("BrevixExtensionInvoke")(nullptr, item, region, fallback);
}

void* TestExtension::Address(const char* name) const {
  const CFStringRef text = CFStringCreateWithCString(kCFAllocatorDefault, name, kCFStringEncodingUTF8);
  void* const found = CFBundleGetFunctionPointerForName(bundle_, text);
  CFRelease(text);
  if (found == nullptr) throw std::runtime_error(path_ + ": the bundle does not load, or has no " + name);
  return found;
}
