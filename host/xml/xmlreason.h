// What is wrong with a document that is not well formed, by the error code of the parser.
#pragma once

#include <string>

namespace brvhost {

// A few words, the same with every release of the parser, whose own texts may differ.
std::string XmlReason(int code);

}  // namespace brvhost
