#include "host/bundle/installedbundles.h"

#include <CoreFoundation/CoreFoundation.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "host/bundle/bundleexecutable.h"
#include "host/bundle/bundlefolders.h"
#include "host/bundle/bundlelanguages.h"
#include "host/bundle/bundlename.h"
#include "host/bundle/bundlesystems.h"
#include "host/bundle/createbundle.h"
#include "host/bundle/missingexecutable.h"
#include "host/files/foldernames.h"
#include "host/text/cfowner.h"
#include "host/text/utf8.h"

namespace brvhost {
namespace {

namespace fs = std::filesystem;

std::string VersionOf(CFBundleRef bundle) {
  for (const char* const key : {"CFBundleShortVersionString", "CFBundleVersion"}) {
    const Owned<CFStringRef> name(CFStringCreateWithCString(nullptr, key, kCFStringEncodingUTF8));
    const CFTypeRef value = name ? CFBundleGetValueForInfoDictionaryKey(bundle, name.Get()) : nullptr;
    if (value == nullptr || CFGetTypeID(value) != CFStringGetTypeID()) continue;
    return Utf8FromString(static_cast<CFStringRef>(value));
  }
  return "";
}

InstalledBundle Described(const std::string& path) {
  InstalledBundle installed;
  installed.name = NameOfBundle(path);
  installed.path = path;
  std::error_code error;
  const std::string absolute = fs::absolute(path, error).lexically_normal().string();
  const Owned<CFBundleRef> bundle(error ? nullptr : CreateBundle(absolute));
  if (!bundle) {
    installed.wrong = "is not a bundle";
    return installed;
  }
  installed.version = VersionOf(bundle.Get());
  installed.languages = LanguagesOf(path);
  installed.systems = SystemsOf(path);
  if (ExecutableOf(bundle.Get()).empty()) installed.wrong = MissingExecutable(bundle.Get(), path);
  return installed;
}

}  // namespace

std::vector<InstalledBundle> InstalledBundles(const std::vector<std::string>& folders) {
  std::vector<InstalledBundle> bundles;
  for (const std::string& path : BundlesIn(folders)) {
    InstalledBundle bundle = Described(path);
    const auto first = std::ranges::find(bundles, bundle.name, &InstalledBundle::name);
    if (first != bundles.end()) bundle.hiddenBy = first->path;
    bundles.push_back(std::move(bundle));
  }
  return bundles;
}

}  // namespace brvhost
