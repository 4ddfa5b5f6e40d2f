// The imports of code for macOS, as instructions to the loader.
#pragma once

#include "host/code/codebytes.h"
#include "host/code/codeimage.h"

namespace brvhost {

enum class ImportCode {
  kAtStart,
  kWhenUsed,  // each import by itself
};

// Throws CodeError.
void AddImportsOfCode(const CodeBytes& code, ImportCode kind, CodeImage& image);

}  // namespace brvhost
