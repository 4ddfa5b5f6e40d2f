// Data beside the project: facts about the macOS calls, and real scores. Tests that need it skip without
// it.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

// The folder of shared data: $BRV_SHARED_DIR, else the folder beside the checkout.
inline std::filesystem::path SharedFolder() {
  if (const char* folder = std::getenv("BRV_SHARED_DIR")) return folder;
  return std::filesystem::path(BRV_SOURCE_DIR).parent_path() / "shared";
}

#define SKIP_WITHOUT(path) \
  if (!std::filesystem::exists(path)) GTEST_SKIP() << "no " << (path).string() << ": nothing to compare with"
