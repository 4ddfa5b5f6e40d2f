// Encodings that no reader takes a document for, told apart so that people learn what is wrong with it.
#pragma once

#include <string_view>

namespace brvhost {

// The name of the encoding that a document seems to be in by its first bytes, or null: of those that the parser cannot
// read. Only for a document that the parser has refused.
const char* UnreadEncodingOf(std::string_view document);

}  // namespace brvhost
