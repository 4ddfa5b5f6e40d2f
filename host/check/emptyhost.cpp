#include "host/check/emptyhost.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include "BrvEDK/Source/hosttypes.h"
#include "host/bundle/createbundle.h"

namespace brvhost {
namespace {

constexpr const char* kInfo = R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict><key>CFBundleIdentifier</key><string>)" BREVIX_HOST_IDENTIFIER R"(</string></dict></plist>
)";

std::string MakeTemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "brvhost.XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("there is no space for temporary files");
  return pattern;
}

}  // namespace

EmptyHost::EmptyHost() : folder_(MakeTemporaryFolder()) {
  std::filesystem::create_directories(folder_ + "/Host.bundle/Contents");
  std::ofstream(folder_ + "/Host.bundle/Contents/Info.plist") << kInfo;
}

EmptyHost::~EmptyHost() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

void EmptyHost::Open() const {
  // Kept as long as the process lives: extensions find the bundles that somebody holds.
  static CFBundleRef bundle = nullptr;
  bundle = CreateBundle(folder_ + "/Host.bundle");
  if (bundle == nullptr) throw std::runtime_error("a temporary bundle does not open");
}

}  // namespace brvhost
