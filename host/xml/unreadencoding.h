// Encodings that no reader recognises, so that people learn what is wrong with a document.
#pragma once

#include <string_view>

namespace brvhost {

// The name of the encoding, among those that the parser cannot read, that a document seems to be in by its first bytes,
// or null. Only for a document that the parser has refused.
const char* UnreadEncodingOf(std::string_view document);

}  // namespace brvhost
