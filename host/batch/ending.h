// How a process that runs an extension ended.
#pragma once

#include <string>

namespace brvhost {

// A clause about the extension, by the process's status as waitpid gives it, and by where in the extension it was
// (" in BrevixExtensionInvoke", or nothing): "crashed in BrevixExtensionInvoke: signal 11 (Segmentation fault)".
std::string EndingOfExtension(int status, const std::string& where);

}  // namespace brvhost
