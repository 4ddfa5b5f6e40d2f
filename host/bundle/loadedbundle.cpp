#include "host/bundle/loadedbundle.h"

#include <dlfcn.h>
#include <fmt/format.h>

#include <filesystem>
#include <system_error>

#include "host/bundle/createbundle.h"
#include "host/bundle/thrown.h"
#include "host/process/whereabouts.h"
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
  const std::string thrown = LoadCode();
  if (thrown.empty() && CFBundleIsExecutableLoaded(bundle_)) return;
  const char* const reason = thrown.empty() ? dlerror() : thrown.c_str();
  CFRelease(bundle_);
  throw BundleError(fmt::format("{}: its code does not load: {}", path,
                                reason != nullptr ? reason : "there is none for this system"));
}

std::string LoadedBundle::LoadCode() const {
  const InExtension here("its constructors");
  try {
    Find("main");
    return "";
  } catch (...) {
    return "its constructors threw an exception: " + ThrownText();
  }
}

LoadedBundle::~LoadedBundle() { CFRelease(bundle_); }

void* LoadedBundle::Find(const char* name) const {
  const Owned<CFStringRef> text(CFStringCreateWithCString(nullptr, name, kCFStringEncodingMacRoman));
  return CFBundleGetFunctionPointerForName(bundle_, text.Get());
}

}  // namespace brvhost
