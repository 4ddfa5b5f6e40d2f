#include "cfbundle.h"

#include <brvplatform.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>
#include <vector>

#include "boundary.h"
#include "cfstring.h"
#include "cfurl.h"
#include "files.h"
#include "textencoding.h"

using namespace brvplatform;

namespace {

// They exist before any code runs, and need no memory.
constinit const String executableKey(u"CFBundleExecutable");
constinit const String identifierKey(u"CFBundleIdentifier");

// What the host has set.
BrvPlatformFunctionFinder functionFinder = nullptr;
void* finderContext = nullptr;

// Every bundle that is alive, oldest first.
std::vector<Bundle*>& Bundles() {
  static std::vector<Bundle*> bundles;
  return bundles;
}

Bundle& BundleOf(CFBundleRef bundle) { return *reinterpret_cast<Bundle*>(bundle); }

CFBundleRef RefOf(Bundle* bundle) { return reinterpret_cast<CFBundleRef>(bundle); }

Dictionary ReadPropertyList(const std::string& path) {
  if (!IsFile(path)) return {};
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  return ParsePropertyList(bytes).value_or(Dictionary());
}

// The text as the name of a file or a function, empty for null; nothing if it cannot be such a name.
std::optional<std::string> NameOf(CFStringRef string) {
  if (string == nullptr) return std::string();
  const std::u16string_view text = UnitsOf(string);
  Encoded name = EncodeInto(text, kCFStringEncodingUTF8, 0, SIZE_MAX);
  if (name.units < text.size() || name.bytes.find('\0') != std::string::npos) return std::nullopt;
  return std::move(name.bytes);
}

// Null if the program's path is not known.
CFBundleRef NewMainBundle() {
  const std::optional<std::string> program = ProgramPath();
  return program ? RefOf(new Bundle(std::string(FolderOf(*program)), Image::MainProgram())) : nullptr;
}

}  // namespace

const CFStringRef kCFBundleExecutableKey = RefOf(executableKey);
const CFStringRef kCFBundleIdentifierKey = RefOf(identifierKey);

namespace brvplatform {

Bundle::Bundle(const std::string& folder, Image image)
    : folder_(BundleFolder::At(folder)), info_(ReadPropertyList(folder_.infoPlist)), image_(image) {
  Bundles().push_back(this);
}

Bundle::~Bundle() { std::erase(Bundles(), this); }

std::u16string Bundle::Description() const { return u"CFBundle " + DescriptionOf(folder_.top); }

CFTypeRef Bundle::InfoValue(std::u16string_view key) const {
  const auto found = info_.find(key);
  return found == info_.end() ? nullptr : found->second.Get();
}

CFStringRef Bundle::InfoString(std::u16string_view key) const {
  const CFTypeRef value = InfoValue(key);
  return IsString(value) ? static_cast<CFStringRef>(value) : nullptr;
}

std::string Bundle::ExecutablePath() const {
  const CFStringRef key = InfoString(executableKey.Units());
  const std::optional<std::string> name = key == nullptr ? std::nullopt : NameOf(key);
  return name ? folder_.Executable(*name) : std::string();
}

std::optional<std::string> Bundle::FindResource(const std::string& fileName, const std::string& subfolder) const {
  return folder_.FindResource(fileName, subfolder, NameOf(InfoString(u"CFBundleDevelopmentRegion")).value_or(""));
}

CFStringRef Bundle::LocalizedString(std::u16string_view key, const std::string& table) {
  const std::optional<std::string> file = FindResource(table + ".strings", "");
  if (!file) return nullptr;
  const Dictionary& strings = Table(*file);
  const auto found = strings.find(key);
  return found == strings.end() || !IsString(found->second.Get()) ? nullptr
                                                                  : static_cast<CFStringRef>(found->second.Get());
}

const Dictionary& Bundle::Table(const std::string& file) {
  const auto known = tables_.find(file);
  return known != tables_.end() ? known->second : tables_[file] = ReadPropertyList(file);
}

void* Bundle::Function(const char* name) {
  if (!image_.IsOpen()) image_ = Image::Load(ExecutablePath());
  return image_.IsOpen() ? image_.Function(name) : nullptr;
}

}  // namespace brvplatform

CFBundleRef CFBundleCreate(CFAllocatorRef, CFURLRef url) {
  return OrNothing([&]() -> CFBundleRef {
    const std::optional<std::string> folder = RealPath(PathOf(url));
    if (!folder || !IsFolder(*folder)) return nullptr;
    const auto same = std::find_if(Bundles().begin(), Bundles().end(), [&](Bundle* b) { return b->Path() == *folder; });
    if (same == Bundles().end()) return RefOf(new Bundle(*folder, Image()));
    (*same)->Retain();
    return RefOf(*same);
  });
}

CFBundleRef CFBundleGetMainBundle() {
  return OrNothing([] {
    static const Owned<CFBundleRef> bundle(NewMainBundle());
    return bundle.Get();
  });
}

CFBundleRef CFBundleGetBundleWithIdentifier(CFStringRef identifier) {
  if (identifier == nullptr) return nullptr;
  const auto found = std::find_if(Bundles().begin(), Bundles().end(), [&](Bundle* bundle) {
    const CFStringRef own = bundle->InfoString(identifierKey.Units());
    return own != nullptr && CFEqual(own, identifier);
  });
  return found == Bundles().end() ? nullptr : RefOf(*found);
}

CFStringRef CFBundleGetIdentifier(CFBundleRef bundle) { return BundleOf(bundle).InfoString(identifierKey.Units()); }

CFTypeRef CFBundleGetValueForInfoDictionaryKey(CFBundleRef bundle, CFStringRef key) {
  return key == nullptr ? nullptr : BundleOf(bundle).InfoValue(UnitsOf(key));
}

CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name, CFStringRef type, CFStringRef subdirectory) {
  return OrNothing([&]() -> CFURLRef {
    std::optional<std::string> fileName = NameOf(name);
    const std::optional<std::string> extension = NameOf(type);
    const std::optional<std::string> subfolder = NameOf(subdirectory);
    if (!fileName || !extension || !subfolder) return nullptr;
    if (!extension->empty()) *fileName += extension->starts_with('.') ? *extension : "." + *extension;
    if (fileName->empty()) return nullptr;
    const std::optional<std::string> file = BundleOf(bundle).FindResource(*fileName, *subfolder);
    return file ? NewFileURL(*file) : nullptr;
  });
}

CFURLRef CFBundleCopyExecutableURL(CFBundleRef bundle) {
  return OrNothing([&] {
    const std::string path = BundleOf(bundle).ExecutablePath();
    return IsFile(path) ? NewFileURL(path) : nullptr;
  });
}

CFStringRef CFBundleCopyLocalizedString(CFBundleRef bundle, CFStringRef key, CFStringRef value, CFStringRef table) {
  if (key == nullptr) return nullptr;
  return OrNothing([&] {
    const std::optional<std::string> name = table == nullptr ? "Localizable" : NameOf(table);
    CFStringRef text = name ? BundleOf(bundle).LocalizedString(UnitsOf(key), *name) : nullptr;
    if (text == nullptr) text = value == nullptr || UnitsOf(value).empty() ? key : value;
    return static_cast<CFStringRef>(CFRetain(text));
  });
}

Boolean CFBundleIsExecutableLoaded(CFBundleRef bundle) { return BundleOf(bundle).IsLoaded(); }

void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef name) {
  return OrNothing([&] {
    const std::optional<std::string> function = NameOf(name);
    if (!function) return static_cast<void*>(nullptr);
    void* const address = BundleOf(bundle).Function(function->c_str());
    return functionFinder == nullptr ? address : functionFinder(finderContext, bundle, function->c_str(), address);
  });
}

void BrvPlatformSetFunctionFinder(BrvPlatformFunctionFinder finder, void* context) {
  functionFinder = finder;
  finderContext = context;
}
