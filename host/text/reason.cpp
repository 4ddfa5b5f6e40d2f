#include "host/text/reason.h"

#include <new>

namespace brvhost {

const char* ReasonOf(const std::exception& error) {
  return dynamic_cast<const std::bad_alloc*>(&error) != nullptr ? kNoMemory : error.what();
}

}  // namespace brvhost
