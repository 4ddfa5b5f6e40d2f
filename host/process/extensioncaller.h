// Who in an extension calls the host.
#pragma once

namespace brvhost {

// The name of the function in another image from which this one is called: the innermost that is not called `bridge`,
// as a function of the kit is that leads to the host's of the same name. Null where that function is not exported. The
// name stays as long as its image.
const char* CallerInExtension(const char* bridge);

}  // namespace brvhost
