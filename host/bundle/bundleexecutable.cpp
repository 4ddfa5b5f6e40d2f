#include "host/bundle/bundleexecutable.h"

#include <climits>

#include "host/text/cfowner.h"

namespace brvhost {

std::string ExecutableOf(CFBundleRef bundle) {
  const Owned<CFURLRef> url(CFBundleCopyExecutableURL(bundle));
  char path[PATH_MAX];
  auto* const bytes = reinterpret_cast<UInt8*>(path);
  return url && CFURLGetFileSystemRepresentation(url.Get(), true, bytes, sizeof(path)) ? path : "";
}

}  // namespace brvhost
