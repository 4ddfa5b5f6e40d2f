// Exceptions that come out of foreign code.
#pragma once

#include <string>

namespace brvhost {

// The text of the exception that is being handled, or its type.
std::string ThrownText();

}  // namespace brvhost
