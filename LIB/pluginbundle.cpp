#include "pluginbundle.h"

#include <dlfcn.h>
#include <libgen.h>

#include <climits>
#include <cstring>

#include "brvassert.h"

namespace {

// An object of the extension itself, used to find its image.
const char kOwnImage[] = "dlbundle";

// Compatibility: the failed assertion keeps the function, file and line by which existing crash reports are sorted,
// wherever the check is now.
[[noreturn]] void NoBundle() { BrvAssertFailed("CopyPlugInStringResource", "LIB/portable", 176, "bundleRef != NULL"); }

// The folder as a bundle, or null if it has no executable. A folder that is not read, as memory runs out or it is gone,
// could be the one that is looked for.
CFBundleRef BundleAt(const char* folder) {
  const CFURLRef url = CFURLCreateFromFileSystemRepresentation(
      kCFAllocatorDefault, reinterpret_cast<const UInt8*>(folder), static_cast<CFIndex>(std::strlen(folder)), true);
  if (url == nullptr) NoBundle();
  const CFBundleRef bundle = CFBundleCreate(kCFAllocatorDefault, url);
  CFRelease(url);
  if (bundle == nullptr) NoBundle();
  if (CFBundleGetValueForInfoDictionaryKey(bundle, kCFBundleExecutableKey) != nullptr) return bundle;
  CFRelease(bundle);
  return nullptr;
}

// Climbs from the executable to the first folder that is a bundle with an executable. A relative path that meets none
// ends at ".".
//
// Compatibility: an absolute path that meets none reaches "/" and is tried there for ever. Hosts load extensions from
// bundles alone; outside of one there is no text to show and no host to show it.
CFBundleRef FindPluginBundle() {
  Dl_info image;
  if (dladdr(kOwnImage, &image) == 0) NoBundle();
  char path[PATH_MAX];
  std::strncpy(path, image.dli_fname, sizeof(path) - 1);
  path[sizeof(path) - 1] = '\0';
  const char* folder = dirname(path);
  while (true) {
    if (const CFBundleRef bundle = BundleAt(folder)) return bundle;
    std::memmove(path, folder, std::strlen(folder) + 1);
    folder = dirname(path);
    if (std::strcmp(folder, ".") == 0) NoBundle();
  }
}

}  // namespace

CFBundleRef GetPluginBundle() {
  static const CFBundleRef bundleRef = FindPluginBundle();
  return bundleRef;
}
