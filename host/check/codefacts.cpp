#include "host/check/codefacts.h"

#include <fmt/format.h>

#include <string_view>

#include "host/check/placedcode.h"

namespace brvhost {
namespace {

CodeProcessor ProcessorOfFolder(std::string_view folder) {
  if (folder == "Linux-x86-64") return CodeProcessor::kX64;
  return folder == "Linux-arm64" ? CodeProcessor::kArm64 : CodeProcessor::kOther;
}

bool Fits(const PlacedCode& placed) {
  if (placed.code.isForMacOS || placed.folder == kMacFolder) {
    return placed.code.isForMacOS && placed.folder == kMacFolder;
  }
  return placed.code.processors.contains(ProcessorOfFolder(placed.folder));
}

std::string SystemOf(const CodeFile& code) {
  if (code.isForMacOS) return "macOS";
  if (code.processors.contains(CodeProcessor::kX64)) return "Linux on x86-64";
  return code.processors.contains(CodeProcessor::kArm64) ? "Linux on arm64" : "Linux on another processor";
}

}  // namespace

std::string FitsItsFolders(const std::string& path) {
  for (const PlacedCode& placed : CodeOf(path)) {
    if (!Fits(placed)) return fmt::format("{} is for {}", ShownPath(placed), SystemOf(placed.code));
  }
  return "";
}

std::string RunsOnEveryMac(const std::string& path) {
  for (const PlacedCode& placed : CodeOf(path)) {
    if (!placed.code.isForMacOS) continue;
    for (const CodeProcessor processor : {CodeProcessor::kX64, CodeProcessor::kArm64}) {
      if (!placed.code.processors.contains(processor)) {
        return fmt::format("{} has no code for {}", ShownPath(placed), NameOnMac(processor));
      }
    }
  }
  return "";
}

}  // namespace brvhost
