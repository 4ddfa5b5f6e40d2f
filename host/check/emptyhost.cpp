#include "host/check/emptyhost.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <stdexcept>

#include "BrvEDK/Source/hosttypes.h"
#include "host/bundle/createbundle.h"

namespace brvhost {
namespace {

constexpr const char* kInfo = R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict><key>CFBundleIdentifier</key><string>)" BREVIX_HOST_IDENTIFIER R"(</string></dict></plist>
)";

}  // namespace

EmptyHost::EmptyHost()
    : folder_((std::filesystem::temp_directory_path() / "brvhost.XXXXXX").string()),
      bundle_(folder_ + "/Host.bundle"),
      contents_(bundle_ + "/Contents"),
      info_(contents_ + "/Info.plist") {
  if (mkdtemp(folder_.data()) == nullptr) throw std::runtime_error("there is no space for temporary files");
  for (std::string* const path : {&bundle_, &contents_, &info_}) path->replace(0, folder_.size(), folder_);
  try {
    std::filesystem::create_directories(contents_);
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
