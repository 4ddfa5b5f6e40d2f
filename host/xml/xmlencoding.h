// Encodings that an XML declaration may name besides those that the parser knows itself.
#pragma once

#include <expat.h>

namespace brvhost {

// Describes an encoding to the parser: a table of what each byte starts, and a converter where one character takes
// several bytes. It knows what ICU knows, as long as the characters of ASCII stand for themselves.
int DescribeEncoding(void* unused, const char* name, XML_Encoding* description);

}  // namespace brvhost
