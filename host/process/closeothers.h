// Closes what a process inherits and has no use for.
#pragma once

namespace brvhost {

// Closes every descriptor but the standard streams and `kept`.
void CloseOthers(int kept);

}  // namespace brvhost
