// The name of an extension.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace brvhost {

inline constexpr std::string_view kBundleEnding = ".bundle";

// "LegerLines" for "bundles/LegerLines.bundle/".
inline std::string NameOfBundle(const std::string& path) {
  const std::filesystem::path normal = std::filesystem::path(path).lexically_normal();
  const std::filesystem::path folder = normal.has_filename() ? normal : normal.parent_path();
  return folder.stem().string();
}

}  // namespace brvhost
