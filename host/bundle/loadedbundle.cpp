#include "host/bundle/loadedbundle.h"

#include <dlfcn.h>
#include <fmt/format.h>

#include <filesystem>
#include <system_error>

#include "host/bundle/bundleexecutable.h"
#include "host/bundle/createbundle.h"
#include "host/bundle/loadingreason.h"
#include "host/bundle/missingexecutable.h"
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

// dlopen, called as what it is: its declaration promises that it throws nothing, and compilers count on that, but the
// constructors that it runs can throw.
void* OpenCode(const std::string& executable) {
  void* (*volatile const open)(const char*, int) = dlopen;
  return open(executable.c_str(), RTLD_NOW | RTLD_LOCAL);
}

}  // namespace

LoadedBundle::LoadedBundle(const std::string& path) : path_(path), bundle_(BundleAt(path)) {
  const std::string wrong = LoadCode();
  if (wrong.empty()) return;
  CFRelease(bundle_);
  throw BundleError(fmt::format("{}: {}", path, wrong));
}

// The bundle loads its code itself when it is first asked for a function. It lets no exception pass, though: the code
// is loaded before that, so that what its constructors throw is known.
std::string LoadedBundle::LoadCode() const {
  const std::string executable = ExecutableOf(bundle_);
  if (executable.empty()) return MissingExecutable(bundle_, path_);
  const InExtension here("its constructors");
  try {
    if (OpenCode(executable) != nullptr) return "";
  } catch (...) {
    return "its code does not load: its constructors threw an exception: " + ThrownText();
  }
  return "its code does not load: " + LoadingReason(executable, dlerror());
}

LoadedBundle::~LoadedBundle() { CFRelease(bundle_); }

void* LoadedBundle::Find(const char* name) const {
  const Owned<CFStringRef> text(CFStringCreateWithCString(nullptr, name, kCFStringEncodingMacRoman));
  return CFBundleGetFunctionPointerForName(bundle_, text.Get());
}

}  // namespace brvhost
