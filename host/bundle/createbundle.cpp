#include "host/bundle/createbundle.h"

#include "host/text/cfowner.h"

namespace brvhost {

CFBundleRef CreateBundle(const std::string& path) {
  const Owned<CFURLRef> url(CFURLCreateFromFileSystemRepresentation(
      nullptr, reinterpret_cast<const UInt8*>(path.data()), static_cast<CFIndex>(path.size()), true));
  return url ? CFBundleCreate(nullptr, url.Get()) : nullptr;
}

}  // namespace brvhost
