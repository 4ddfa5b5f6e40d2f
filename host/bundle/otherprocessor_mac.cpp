#include "host/bundle/otherprocessor.h"

namespace brvhost {

// The reason that the dynamic loader gives names the processors by itself.
bool IsForAnotherProcessor(const std::string&) { return false; }

}  // namespace brvhost
