#include "host/bundle/loadedbundle.h"

#include <dlfcn.h>
#include <fmt/format.h>

#include <filesystem>
#include <system_error>

#include "host/bundle/createbundle.h"
#include "host/text/cfowner.h"

namespace brvhost {
namespace {

CFBundleRef BundleAt(const std::string& path) {
  std::error_code error;
  const std::string absolute = std::filesystem::absolute(path, error).lexically_normal().string();
  if (error || !std::filesystem::is_directory(absolute, error)) throw BundleError(path + ": there is no such bundle");
  const CFBundleRef bundle = CreateBundle(absolute);
  if (bundle == nullptr) throw BundleError(path + ": is not a bundle");
  return bundle;
}

}  // namespace

LoadedBundle::LoadedBundle(const std::string& path) : path_(path), bundle_(BundleAt(path)) {
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

}  // namespace brvhost
