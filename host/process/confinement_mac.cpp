#include "host/process/confinement.h"

#include <stdexcept>

namespace brvhost {

void Confine() { throw std::runtime_error("this system cannot confine an extension"); }

}  // namespace brvhost
