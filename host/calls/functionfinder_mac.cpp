#include "host/calls/functionfinder.h"

namespace brvhost {

// The system finds them itself.
const bool kFunctionsCanBeChosen = false;

void SetFunctionFinder(FunctionFinder) {}

}  // namespace brvhost
