#include "host/process/cancelkeys.h"

namespace brvhost {

// The keyboard is the user's own: extensions see Command-period when it is pressed, and brvhost sees an interrupt when
// they are done.
void HoldCancelKeys() {}

void ReleaseCancelKeys() {}

}  // namespace brvhost
