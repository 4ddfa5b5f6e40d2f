// What a file of code is for, by its first bytes. No code is run.
#pragma once

#include <optional>
#include <set>
#include <string>

#include "host/code/codeprocessor.h"

namespace brvhost {

struct CodeFile {
  bool isForMacOS = false;             // else for Linux
  std::set<CodeProcessor> processors;  // several in a universal file for macOS
};

// Null for what is no code, or cannot be read.
std::optional<CodeFile> CodeIn(const std::string& path);

}  // namespace brvhost
