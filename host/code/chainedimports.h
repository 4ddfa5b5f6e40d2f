// The imports of code for macOS 12 and later, as a table.
#pragma once

#include "host/code/codebytes.h"
#include "host/code/codeimage.h"

namespace brvhost {

// Throws CodeError.
void AddChainedImports(const CodeBytes& table, CodeImage& image);

}  // namespace brvhost
