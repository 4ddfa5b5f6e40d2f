// The names that code for macOS exports: a tree, whose paths are the names.
#pragma once

#include "host/code/codebytes.h"
#include "host/code/codeimage.h"

namespace brvhost {

// Throws CodeError.
void AddExportsOfTrie(const CodeBytes& trie, CodeImage& image);

}  // namespace brvhost
