// Encodings that an XML declaration may name beyond those that the parser has of its own.
#pragma once

#include <expat.h>

namespace brvhost {

// The parser's question about an encoding: a table of what each byte starts, and a converter where one character takes
// several bytes. Known is what ICU knows, so long as the characters of ASCII stand for themselves.
int DescribeEncoding(void* unused, const char* name, XML_Encoding* description);

}  // namespace brvhost
