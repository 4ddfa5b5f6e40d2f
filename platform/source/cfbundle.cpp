#include "cfbundle.h"

#include <algorithm>
#include <fstream>
#include <vector>

#include "cfstring.h"
#include "cfurl.h"

namespace fs = std::filesystem;
using namespace brvplatform;

const CFStringRef kCFBundleExecutableKey = CFSTR("CFBundleExecutable");
const CFStringRef kCFBundleIdentifierKey = CFSTR("CFBundleIdentifier");

namespace {

// Every bundle that is alive, oldest first.
std::vector<Bundle*>& Bundles() {
  static std::vector<Bundle*> bundles;
  return bundles;
}

Bundle& BundleOf(CFBundleRef bundle) { return *reinterpret_cast<Bundle*>(bundle); }

CFBundleRef RefOf(Bundle* bundle) { return reinterpret_cast<CFBundleRef>(bundle); }

Dictionary ReadPropertyList(const fs::path& path) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return {};
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  return ParsePropertyList(bytes).value_or(Dictionary());
}

std::string OptionalUtf8(CFStringRef string) { return string == nullptr ? std::string() : Utf8Of(string); }

}  // namespace

namespace brvplatform {

Bundle::Bundle(const fs::path& folder, Image image)
    : folder_(BundleFolder::At(folder)), info_(ReadPropertyList(folder_.infoPlist)), image_(image) {
  Bundles().push_back(this);
}

Bundle::~Bundle() { std::erase(Bundles(), this); }

std::u16string Bundle::Description() const { return u"CFBundle " + folder_.top.u16string(); }

CFTypeRef Bundle::InfoValue(const std::u16string& key) const {
  const auto found = info_.find(key);
  return found == info_.end() ? nullptr : found->second.Get();
}

CFStringRef Bundle::InfoString(const std::u16string& key) const {
  const CFTypeRef value = InfoValue(key);
  return IsString(value) ? static_cast<CFStringRef>(value) : nullptr;
}

fs::path Bundle::ExecutablePath() const {
  const CFStringRef name = InfoString(u"CFBundleExecutable");
  return name == nullptr ? fs::path() : folder_.Executable(Utf8Of(name));
}

std::optional<fs::path> Bundle::FindResource(const std::string& fileName, const std::string& subfolder) const {
  return folder_.FindResource(fileName, subfolder, OptionalUtf8(InfoString(u"CFBundleDevelopmentRegion")));
}

CFStringRef Bundle::LocalizedString(const std::u16string& key, const std::string& table) {
  const std::optional<fs::path> file = FindResource(table + ".strings", "");
  if (!file) return nullptr;
  const Dictionary& strings = Table(*file);
  const auto found = strings.find(key);
  return found == strings.end() || !IsString(found->second.Get()) ? nullptr
                                                                  : static_cast<CFStringRef>(found->second.Get());
}

const Dictionary& Bundle::Table(const fs::path& file) {
  const auto known = tables_.find(file);
  return known != tables_.end() ? known->second : tables_[file] = ReadPropertyList(file);
}

void* Bundle::Function(const char* name) {
  if (!image_.IsOpen()) image_ = Image::Load(ExecutablePath());
  return image_.IsOpen() ? image_.Function(name) : nullptr;
}

}  // namespace brvplatform

CFBundleRef CFBundleCreate(CFAllocatorRef, CFURLRef url) {
  std::error_code error;
  const fs::path folder = fs::canonical(PathOf(url), error);
  if (error || !fs::is_directory(folder)) return nullptr;
  const auto same = std::find_if(Bundles().begin(), Bundles().end(), [&](Bundle* b) { return b->Path() == folder; });
  if (same == Bundles().end()) return RefOf(new Bundle(folder, Image()));
  (*same)->Retain();
  return RefOf(*same);
}

CFBundleRef CFBundleGetMainBundle() {
  static const Owned<CFBundleRef> bundle(
      RefOf(new Bundle(fs::read_symlink("/proc/self/exe").parent_path(), Image::MainProgram())));
  return bundle.Get();
}

CFBundleRef CFBundleGetBundleWithIdentifier(CFStringRef identifier) {
  const auto found = std::find_if(Bundles().begin(), Bundles().end(), [&](Bundle* bundle) {
    const CFStringRef own = bundle->InfoString(u"CFBundleIdentifier");
    return own != nullptr && CFEqual(own, identifier);
  });
  return found == Bundles().end() ? nullptr : RefOf(*found);
}

CFStringRef CFBundleGetIdentifier(CFBundleRef bundle) { return BundleOf(bundle).InfoString(u"CFBundleIdentifier"); }

CFTypeRef CFBundleGetValueForInfoDictionaryKey(CFBundleRef bundle, CFStringRef key) {
  return BundleOf(bundle).InfoValue(UnitsOf(key));
}

CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name, CFStringRef type, CFStringRef subdirectory) {
  std::string fileName = OptionalUtf8(name);
  const std::string extension = OptionalUtf8(type);
  if (!extension.empty()) fileName += extension.starts_with('.') ? extension : "." + extension;
  if (fileName.empty()) return nullptr;
  const std::optional<fs::path> file = BundleOf(bundle).FindResource(fileName, OptionalUtf8(subdirectory));
  return file ? NewFileURL(*file) : nullptr;
}

CFURLRef CFBundleCopyExecutableURL(CFBundleRef bundle) {
  const fs::path path = BundleOf(bundle).ExecutablePath();
  std::error_code error;
  return fs::is_regular_file(path, error) ? NewFileURL(path) : nullptr;
}

CFStringRef CFBundleCopyLocalizedString(CFBundleRef bundle, CFStringRef key, CFStringRef value, CFStringRef table) {
  const std::string tableName = table == nullptr ? "Localizable" : Utf8Of(table);
  CFStringRef text = BundleOf(bundle).LocalizedString(UnitsOf(key), tableName);
  if (text == nullptr) text = value == nullptr || UnitsOf(value).empty() ? key : value;
  return static_cast<CFStringRef>(CFRetain(text));
}

Boolean CFBundleIsExecutableLoaded(CFBundleRef bundle) { return BundleOf(bundle).IsLoaded(); }

void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef name) {
  return BundleOf(bundle).Function(Utf8Of(name).c_str());
}
