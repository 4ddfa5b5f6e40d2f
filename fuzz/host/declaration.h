// What a document declares of its encoding.
#pragma once

#include <string_view>

namespace brvhost {

// Whether the document may declare an encoding that takes the reader a second to learn, which a target that is about
// something else cannot wait for.
bool DeclaresSlowEncoding(std::string_view document);

}  // namespace brvhost
