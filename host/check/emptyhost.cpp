#include "host/check/emptyhost.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <system_error>

#include "BrvEDK/Source/hosttypes.h"
#include "host/bundle/createbundle.h"

namespace brvhost {
namespace {

constexpr const char* kInfo = R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict><key>CFBundleIdentifier</key><string>)" BREVIX_HOST_IDENTIFIER R"(</string></dict></plist>
)";

[[noreturn]] void ThrowNoPlace() { throw std::runtime_error("there is no place for temporary files"); }

// The name of a folder that is still to be made.
std::string Template() {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  if (error) ThrowNoPlace();
  return (folder / "brvhost.XXXXXX").string();
}

}  // namespace

EmptyHost::EmptyHost()
    : folder_(Template()),
      bundle_(folder_ + "/Host.bundle"),
      contents_(bundle_ + "/Contents"),
      info_(contents_ + "/Info.plist") {
  if (mkdtemp(folder_.data()) == nullptr) ThrowNoPlace();
  for (std::string* const path : {&bundle_, &contents_, &info_}) path->replace(0, folder_.size(), folder_);
  try {
    std::error_code error;
    if (!std::filesystem::create_directories(contents_, error)) ThrowNoPlace();
    std::ofstream(info_) << kInfo;
  } catch (...) {
    Remove();
    throw;
  }
}

EmptyHost::~EmptyHost() { Remove(); }

void EmptyHost::Remove() const {
  for (const std::string* const path : {&info_, &contents_, &bundle_, &folder_}) std::remove(path->c_str());
}

void EmptyHost::Open() const {
  // Kept as long as the process lives: extensions find the bundles that somebody holds.
  static CFBundleRef bundle = nullptr;
  bundle = CreateBundle(bundle_);
  if (bundle == nullptr) throw std::runtime_error("a temporary bundle does not open");
}

}  // namespace brvhost
